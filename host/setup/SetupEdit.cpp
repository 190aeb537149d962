#include "host/setup/SetupEdit.h"

#include "host/setup/ListMatch.h"
#include "host/setup/SetupReader.h"
#include "host/setup/SetupWriter.h"
#include "host/setup/TextEdits.h"
#include "host/support/InputError.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace ko {

namespace {

using Json = nlohmann::ordered_json;

/// An item of a list or object in the text.
struct Item {
    std::size_t begin; ///< of its key, if it has one
    std::size_t end;
    bool isKept = false;
    std::vector<std::string> next; ///< new items that follow it
};

/// The items of a list or object.
struct Items {
    std::vector<std::string> first; ///< new items before all others
    std::vector<Item> all;

    /// Returns the new items after the first `count` items.
    std::vector<std::string>& newAfter(std::size_t count) { return count == 0 ? first : all[count - 1].next; }
    [[nodiscard]] bool keepsSome() const
    {
        return std::any_of(all.begin(), all.end(), [](const Item& item) { return item.isKept; });
    }
};

bool isLineEnd(const std::string& text, std::size_t at)
{
    return at == text.size() || text[at] == '\n' || text[at] == '\r';
}

/// Compares a text, as parsed, with its set-up before and after, both as written, and changes the text where they
/// differ.
class TextEditor {
public:
    explicit TextEditor(const std::string& text)
        : text_(text), edits_(text), layout_{{}, indentUnitOf(text), lineBreakOf(text)}
    {
    }

    void change(const JsonValue& value, const Json& before, const Json& after);
    [[nodiscard]] std::string result() const { return edits_.result(); }

private:
    void changeMembers(const JsonValue& value, const JsonObject& members, const Json& before, const Json& after);
    void changeElements(const JsonValue& value, const JsonList& elements, const Json& before, const Json& after);
    void changeItems(const Items& items);
    void addBefore(const Item& item, const std::vector<std::string>& added);
    void addAfter(const Item& item, bool isLast);
    void rewrite(const JsonValue& value, const Json& after);

    /// Formats a value for insertion on the line of `at`.
    [[nodiscard]] std::string laidOutAt(std::size_t at, const Json& json) const;

    const std::string& text_;
    TextEdits edits_;
    JsonLayout layout_;
};

void TextEditor::change(const JsonValue& value, const Json& before, const Json& after)
{
    if (before == after)
        return;
    const auto* const members = std::get_if<JsonObject>(&value.content);
    const auto* const elements = std::get_if<JsonList>(&value.content);
    if (members && before.is_object() && after.is_object())
        return changeMembers(value, *members, before, after);
    if (elements && before.is_array() && after.is_array())
        return changeElements(value, *elements, before, after);
    rewrite(value, after);
}

void TextEditor::rewrite(const JsonValue& value, const Json& after)
{
    edits_.replace(value.begin, value.end, laidOutAt(value.begin, after));
}

std::string TextEditor::laidOutAt(std::size_t at, const Json& json) const
{
    JsonLayout layout = layout_;
    layout.margin = indentAt(text_, at);
    return laidOut(json, layout);
}

void TextEditor::changeMembers(const JsonValue& value, const JsonObject& members, const Json& before, const Json& after)
{
    Items items;
    // A member that is not written, neither before nor after, has a value that reads as missing.
    for (const JsonMember& member : members)
        items.all.push_back(
            {member.keyBegin, member.end, after.contains(member.key) || !before.contains(member.key), {}});
    if (!items.keepsSome())
        return rewrite(value, after);
    std::size_t place = 0;
    for (const auto& [key, now] : after.items()) {
        const auto found =
            std::find_if(members.begin(), members.end(), [&k = key](const JsonMember& m) { return m.key == k; });
        if (found != members.end()) {
            place = static_cast<std::size_t>(found - members.begin()) + 1;
            before.contains(key) ? change(*found, before[key], now) : rewrite(*found, now);
        } else if (!before.contains(key) || before[key] != now) {
            items.newAfter(place).push_back(Json(key).dump() + ": " + laidOutAt(items.all.front().begin, now));
        }
    }
    changeItems(items);
}

void TextEditor::changeElements(const JsonValue& value, const JsonList& elements, const Json& before, const Json& after)
{
    Items items;
    for (const JsonValue& element : elements)
        items.all.push_back({element.begin, element.end, false, {}});
    const auto matches = matchLists(before, after);
    for (const auto& match : matches)
        if (match)
            items.all[*match].isKept = true;
    if (!items.keepsSome())
        return rewrite(value, after);
    std::size_t place = 0;
    for (std::size_t i = 0; i < matches.size(); ++i) {
        if (matches[i]) {
            place = *matches[i] + 1;
            change(elements[*matches[i]], before[*matches[i]], after[i]);
        } else {
            items.newAfter(place).push_back(laidOutAt(items.all.front().begin, after[i]));
        }
    }
    changeItems(items);
}

void TextEditor::changeItems(const Items& items)
{
    const auto isKept = [](const Item& item) { return item.isKept; };
    const auto last = std::find_if(items.all.rbegin(), items.all.rend(), isKept).base() - 1;
    for (const Item& item : items.all)
        if (!item.isKept)
            edits_.removeItem(item.begin, item.end);
    if (!items.first.empty())
        addBefore(*std::find_if(items.all.begin(), items.all.end(), isKept), items.first);
    for (auto item = items.all.begin(); item != items.all.end(); ++item)
        if (!item->next.empty())
            addAfter(*item, item == last);
    const std::size_t comma = commaAfter(text_, last->end);
    if (last->next.empty() && last + 1 != items.all.end() && comma != std::string::npos)
        edits_.replace(comma, comma + 1, {});
}

void TextEditor::addBefore(const Item& item, const std::vector<std::string>& added)
{
    const bool onLines = beginsLine(text_, item.begin);
    for (const std::string& text : added)
        edits_.insert(item.begin, text + "," + (onLines ? layout_.lineBreak + indentAt(text_, item.begin) : " "));
}

void TextEditor::addAfter(const Item& item, bool isLast)
{
    const std::size_t comma = commaAfter(text_, item.end);
    if (comma == std::string::npos)
        edits_.insert(item.end, ",");
    const std::size_t after = comma == std::string::npos ? item.end : comma + 1;
    const std::size_t lineEnd = endOfLine(text_, after);
    const bool onLines = beginsLine(text_, item.begin) && isLineEnd(text_, lineEnd);
    const std::string gap = onLines ? layout_.lineBreak + indentAt(text_, item.begin) : " ";
    for (const std::string& text : item.next)
        edits_.insert(onLines ? lineEnd : after, gap + text + (isLast && &text == &item.next.back() ? "" : ","));
}

} // namespace

std::string editedText(const std::string& text, const Setup& setup)
{
    const std::string whole = setupText(setup);
    try {
        const JsonValue json = parseJson(text, {});
        TextEditor editor(text);
        editor.change(json, toJson(readSetup(json)), toJson(setup));
        const std::string edited = editor.result();
        if (parseSetup(edited, {}) == parseSetup(whole, {}))
            return edited;
    } catch (const InputError&) { // NOLINT(bugprone-empty-catch): the whole is written instead
    } catch (const JsonRefusal&) {
    }
    return whole;
}

} // namespace ko
