#include "host/scenario/UserInput.h"

#include "page/Quantities.h"
#include "platform/CaptionControls.h"
#include "platform/ComboBox.h"
#include "platform/DateControls.h"
#include "platform/Form.h"
#include "platform/Grid.h"
#include "platform/TabControl.h"
#include "platform/TextBox.h"
#include "platform/Utf8.h"

#include <algorithm>
#include <array>

namespace ko {

namespace {

void focus(Scenario& scenario, const Arguments& words)
{
    Control& control = scenario.control(words.text(0));
    give(scenario, control, [&] {
        if (!control.takesFocus() || !control.isUsable())
            return Outcome::Inert;
        return scenario.form().userMovedFocus(&control) ? Outcome::Done : Outcome::Refused;
    });
}

void leave(Scenario& scenario, const Arguments&)
{
    scenario.form().userMovedFocus(nullptr);
}

void type(Scenario& scenario, const Arguments& words)
{
    auto* const box = dynamic_cast<TextBox*>(scenario.form().activeControl());
    if (!box || !scenario.isFormShown())
        return logInert(scenario, scenario.form().activeControl());
    const std::string_view text = firstLine(words.text(0));
    for (std::size_t at = 0, length = utf8Length(text); at < length; ++at)
        if (box->userTyped(std::string(utf8Part(text, at, 1))) == Outcome::Inert)
            return logInert(scenario, box);
}

/// Parses the three numbers of a date such as 2026-11-24 or a time such as 15:04:05.
std::array<std::int32_t, 3> partsOf(const Scenario& scenario, const std::string& word, char separator)
{
    std::array<std::int32_t, 3> parts{};
    std::string_view rest = word;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const std::size_t end = i + 1 < parts.size() ? rest.find(separator) : rest.size();
        const auto number = end == std::string_view::npos ? std::nullopt : integerIn(rest.substr(0, end));
        if (!number || *number < 0)
            scenario.refuse("\"" + word + "\" is no " +
                            (separator == '-' ? "date such as 2026-11-24" : "time such as 15:04:05"));
        parts[i] = *number;
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return parts;
}

struct Selected {
    std::size_t start, length;
};

Selected selectedAt(const Scenario& scenario, const Arguments& words, std::size_t at)
{
    const std::int32_t start = words.integer(at), length = words.integer(at + 1);
    if (start < 0 || length < 0)
        scenario.refuse("a selection begins at 0 and has no length below 0");
    return {static_cast<std::size_t>(start), static_cast<std::size_t>(length)};
}

/// Returns the selection after a new text: the optional arguments, or an empty selection at its end.
Selected selectedAfter(const Scenario& scenario, const Arguments& words)
{
    if (words.count() == 3)
        scenario.refuse("a selection has a start and a length");
    return words.count() == 4 ? selectedAt(scenario, words, 2) : Selected{utf8Length(words.text(1)), 0};
}

void text(Scenario& scenario, const Arguments& words)
{
    Control& control = scenario.control(words.text(0));
    if (auto* const calendar = dynamic_cast<Calendar*>(&control)) {
        const auto [year, month, day] = partsOf(scenario, words.text(1), '-');
        give(scenario, control, [&, y = year, m = month, d = day] { return calendar->userChose(y, m, d); });
    } else if (auto* const picker = dynamic_cast<TimePicker*>(&control)) {
        const auto [hour, minute, second] = partsOf(scenario, words.text(1), ':');
        give(scenario, control, [&, h = hour, m = minute, s = second] { return picker->userChose(h, m, s); });
    } else if (auto* const grid = dynamic_cast<Grid*>(&control)) {
        const Selected left = selectedAfter(scenario, words);
        give(scenario, control, [&] { return grid->userTypedInCell(words.text(1), left.start, left.length); });
    } else {
        auto& box = controlAs<TextBox>(scenario, words.text(0), "written in");
        const Selected left = selectedAfter(scenario, words);
        give(scenario, box, [&] { return box.userReplaced(words.text(1), left.start, left.length); });
    }
}

void select(Scenario& scenario, const Arguments& words)
{
    const Selected part = selectedAt(scenario, words, 1);
    if (auto* const grid = dynamic_cast<Grid*>(&scenario.control(words.text(0))))
        return give(scenario, *grid, [&] { return grid->userSelectedInCell(part.start, part.length); });
    auto& box = controlAs<TextBox>(scenario, words.text(0), "selected in");
    give(scenario, box, [&] { return box.userSelected(part.start, part.length); });
}

/// Returns the index of the element with this name, or 3 for `#3`; -1 if there is none.
template <class T> std::int32_t placeOf(const std::vector<T>& all, std::string T::*name, const std::string& word)
{
    const auto found = std::find_if(all.begin(), all.end(), [&](const T& one) { return one.*name == word; });
    if (found != all.end())
        return static_cast<std::int32_t>(found - all.begin());
    return word.rfind('#', 0) == 0 ? integerIn(std::string_view(word).substr(1)).value_or(-1) : -1;
}

void choose(Scenario& scenario, const Arguments& words)
{
    if (auto* const tabs = dynamic_cast<TabControl*>(&scenario.control(words.text(0))))
        return give(scenario, *tabs, [&] {
            return tabs->userChoseTab(placeOf(tabs->tabs(), &TabControl::Tab::caption, words.text(1)));
        });
    auto& box = controlAs<ComboBox>(scenario, words.text(0), "chosen from");
    give(scenario, box, [&] { return box.userChose(placeOf(box.items(), &ComboBox::Item::text, words.text(1))); });
}

void click(Scenario& scenario, const Arguments& words)
{
    auto& control = controlAs<PressControl>(scenario, words.text(0), "clicked");
    give(scenario, control, [&] { return control.userClicked(); });
}

void doubleClick(Scenario& scenario, const Arguments& words)
{
    auto& box = controlAs<TextBox>(scenario, words.text(0), "double-clicked");
    give(scenario, box, [&] { return box.userDoubleClicked(); });
}

void setAll(Scenario& scenario, const Arguments& words)
{
    const auto isNamed = [&](const Quantity& quantity) { return quantity.name == words.text(0); };
    if (std::none_of(quantities.begin(), quantities.end(), isNamed))
        scenario.refuse("\"" + words.text(0) + "\" is no quantity such as sample-rate");
    if (scenario.document().setAll(words.text(0), words.text(1)) == Outcome::Inert)
        logInert(scenario, nullptr);
}

struct KeyName {
    std::string_view name;
    std::int16_t value;
};

constexpr std::array shiftKeys{KeyName{"Shift+", 1}, KeyName{"Ctrl+", 2}, KeyName{"Alt+", 4}};

KeyPress keyOf(const Scenario& scenario, const std::string& word)
{
    KeyPress press;
    std::string_view rest = word;
    for (bool found = true; found;) {
        const auto shift = std::find_if(shiftKeys.begin(), shiftKeys.end(),
                                        [&](const KeyName& s) { return rest.substr(0, s.name.size()) == s.name; });
        found = shift != shiftKeys.end();
        if (found) {
            press.shift = static_cast<std::int16_t>(press.shift | shift->value);
            rest.remove_prefix(shift->name.size());
        }
    }
    const auto number = rest.substr(0, 1) == "F" ? integerIn(rest.substr(1)) : std::nullopt;
    if (!number || *number < 1 || *number > 12)
        scenario.refuse("\"" + word + "\" is no key such as F1, Shift+F1 or Escape");
    press.keyCode = static_cast<std::int16_t>(key::f1 + *number - 1);
    return press;
}

/// Reverts what was typed in the page's focused box, or cancels the open dialog.
void escape(Scenario& scenario)
{
    Control* const active = scenario.form().activeControl();
    if (!scenario.isFormShown())
        logInert(scenario, nullptr);
    else if (PressControl* const cancel = scenario.form().cancelButton())
        give(scenario, *cancel, [&] { return cancel->userClicked(); });
    else if (auto* const box = dynamic_cast<TextBox*>(active); box && box->undo)
        give(scenario, *box, [&] { return box->userUndid(); });
    else
        logInert(scenario, active);
}

void keyCommand(Scenario& scenario, const Arguments& words)
{
    if (words.text(0) == "Escape")
        return escape(scenario);
    KeyPress press = keyOf(scenario, words.text(0));
    if (scenario.isFormShown())
        scenario.form().userPressedKey(press);
    else
        logInert(scenario, nullptr);
}

} // namespace

std::span<const Command> userCommands()
{
    static constexpr Command commands[]{
        {"focus", Giver::User, 1, 1, focus},
        {"leave", Giver::User, 0, 0, leave},
        {"type", Giver::User, 1, 1, type},
        {"text", Giver::User, 2, 4, text},
        {"select", Giver::User, 3, 3, select},
        {"key", Giver::User, 1, 1, keyCommand},
        {"choose", Giver::User, 2, 2, choose},
        {"click", Giver::User, 1, 1, click},
        {"double-click", Giver::User, 1, 1, doubleClick},
        {"set-all", Giver::User, 2, 2, setAll},
    };
    return commands;
}

} // namespace ko
