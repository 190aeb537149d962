#include "support/ResourceUtils.h"

#include "platform/CaptionControls.h"
#include "platform/ComboBox.h"
#include "platform/Grid.h"
#include "platform/NumberText.h"
#include "platform/TabControl.h"

namespace ko {

namespace {

/// The offset stored in a design-time text; 0 for none.
int offsetIn(const std::string& designTimeText)
{
    return toLong(leadingNumber(designTimeText));
}

void loadGridFont(Grid& grid, const Font& font)
{
    Font gridFont;
    gridFont.name = font.name;
    gridFont.size = font.size;
    gridFont.weight = font.weight;
    const auto with = [&](CellStyle style, bool bold) {
        style.font = gridFont;
        style.font.bold = bold;
        return style;
    };
    grid.setStandardStyle(with(grid.standardStyle(), false));
    grid.setColHeaderStyle(with(grid.colHeaderStyle(), true));
    grid.setRowHeaderStyle(with(grid.rowHeaderStyle(), true));
}

void loadFont(Control& control, const Font& font)
{
    if (!control.hasFont())
        return;
    if (auto* grid = dynamic_cast<Grid*>(&control)) {
        loadGridFont(*grid, font);
        return;
    }
    Font own = control.font();
    own.name = font.name;
    own.size = font.size;
    own.charset = font.charset;
    own.weight = font.weight;
    control.setFont(own);
}

void loadCaption(Control& control, const StringTable& strings, int base)
{
    auto* captioned = dynamic_cast<CaptionControl*>(&control);
    if (!captioned)
        return;
    if (const int offset = offsetIn(control.tag()); offset > 0)
        captioned->setCaption(strings.text(base + offset));
}

/// A tab's design-time caption is the offset of its caption.
void loadTabs(const Steps& step, Control& control, const StringTable& strings, int base)
{
    auto* tabControl = dynamic_cast<TabControl*>(&control);
    if (!tabControl)
        return;
    for (std::size_t i = 0; i < tabControl->tabs().size(); ++i)
        step([&] {
            if (const int offset = offsetIn(tabControl->tabs()[i].caption); offset > 0)
                tabControl->setTabCaption(static_cast<std::int32_t>(i), strings.text(base + offset));
        });
}

void loadEntries(const Steps& step, Control& control, const StringTable& strings, int base)
{
    auto* list = dynamic_cast<ComboBox*>(&control);
    if (!list)
        return;
    for (std::size_t i = 0; i < list->items().size(); ++i) {
        const std::int32_t itemData = list->items()[i].itemData;
        if (itemData > 0)
            step([&] { list->replaceItem(static_cast<std::int32_t>(i), {strings.text(base + itemData), itemData}); });
    }
}

void loadToolTip(Control& control, const StringTable& strings, int base)
{
    if (!control.hasToolTip())
        return;
    if (const int offset = offsetIn(control.toolTipText()); offset > 0)
        control.setToolTipText(strings.text(base + offset));
}

} // namespace

void loadFormStrings(const Steps& step, const StringTable& strings, Form& form, const Font& font, int base)
{
    for (Control* control : form.controls())
        step([&] { loadFont(*control, font); });
    for (Control* control : form.controls()) {
        step([&] { loadCaption(*control, strings, base); });
        loadTabs(step, *control, strings, base);
        loadEntries(step, *control, strings, base);
        step([&] { loadToolTip(*control, strings, base); });
    }
}

void loadFormCaption(const Steps& step, const StringTable& strings, Form& form, int base)
{
    step([&] {
        if (const int offset = offsetIn(form.caption()); offset > 0)
            form.setCaption(strings.text(base + offset));
    });
    loadFormStrings(step, strings, form, form.font(), base);
}

void moveToolTipsToTags(Form& form)
{
    for (Control* control : form.controls()) {
        const std::string_view type = control->typeName();
        if (!control->hasToolTip() || type == "Label" || type == "Menu" || type == "SSTab")
            continue;
        control->setTag(control->toolTipText());
        control->setToolTipText("");
    }
}

} // namespace ko
