#pragma once

#include "platform/Control.h"

#include <vector>

namespace ko {

/// A row of tabs, each with its own frame; the selected tab's frame is in front. The controls of the other frames stay
/// usable: a caller that sends input to a control selects its tab first.
class TabControl : public Control {
public:
    struct Tab {
        std::string caption;
        bool enabled = true;
    };

    TabControl(Form& form, std::string name, std::vector<Control*> frames);

    [[nodiscard]] std::string_view typeName() const override { return "SSTab"; }
    [[nodiscard]] bool takesFocus() const override { return true; }

    [[nodiscard]] const std::vector<Tab>& tabs() const { return tabs_; }
    /// The frame of a tab. Failure 9 when there is no such tab, here and below.
    [[nodiscard]] Control& frame(std::int32_t index) const;
    void setTabCaption(std::int32_t index, const std::string& caption);
    /// A disabled tab disables its frame and cannot be chosen by the user; it may still be the selected one.
    void setTabEnabled(std::int32_t index, bool enabled);

    /// The selected tab.
    [[nodiscard]] std::int32_t tab() const { return tab_; }
    void setTab(std::int32_t index);
    /// Inert when there is no such tab or it is disabled.
    Outcome userChoseTab(std::int32_t index);

private:
    Tab& at(std::int32_t index);

    std::vector<Control*> frames_;
    std::vector<Tab> tabs_;
    std::int32_t tab_ = 0;
};

} // namespace ko
