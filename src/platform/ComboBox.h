#pragma once

#include "platform/Control.h"

#include <vector>

namespace ko {

/// A drop-down list. Selecting an entry from the program raises nothing; only a user's choice raises the click.
class ComboBox : public Control {
public:
    struct Item {
        std::string text;
        std::int32_t itemData = 0;

        bool operator==(const Item&) const = default;
    };

    using Control::Control;

    [[nodiscard]] std::string_view typeName() const override { return "ComboBox"; }
    [[nodiscard]] bool takesFocus() const override { return true; }

    [[nodiscard]] const std::vector<Item>& items() const { return items_; }
    /// Replaces all entries at once; none is selected afterwards.
    void setItems(std::vector<Item> items);
    /// Replaces one entry and keeps the selection. Failure 5 when there is no such entry.
    void replaceItem(std::int32_t index, Item item);

    /// The selected entry, -1 for none.
    [[nodiscard]] std::int32_t index() const { return index_; }
    /// Failure 5 for an index that is neither -1 nor an entry's.
    void select(std::int32_t index);
    /// The selected entry's text, "" when none is selected.
    [[nodiscard]] const std::string& text() const;
    /// The selected entry's item data. Failure 5 when none is selected.
    [[nodiscard]] std::int32_t itemData() const;

    /// The user chooses an entry, which may be the selected one. Inert when there is no such entry.
    Outcome userChose(std::int32_t index);

    std::function<void()> click;

private:
    [[nodiscard]] bool isEntry(std::int32_t index) const;

    std::vector<Item> items_;
    std::int32_t index_ = -1;
};

} // namespace ko
