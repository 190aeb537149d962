#pragma once

#include "schedule/SetDateTime.h"
#include "timebase/ShowOffers.h"
#include "triggering/AdvancedTrig.h"
#include "triggering/SelectChannel.h"

#include <optional>

namespace ko {

/// The component's dialogs: one instance each, made on first use, shared by all documents.
class Dialogs {
public:
    explicit Dialogs(Support& support) : support_(support) {}

    AdvancedTrig& advancedTrig() { return made(advancedTrig_); }
    SetDateTime& setDateTime() { return made(setDateTime_); }
    SelectChannel& selectChannel() { return made(selectChannel_); }
    ShowOffers& showOffers() { return made(showOffers_); }

    /// Gives the host's help to all; none takes it away.
    void setHelp(const std::shared_ptr<HelpSite>& help);

private:
    template <class Form> Form& made(std::optional<Form>& form)
    {
        if (!form)
            form.emplace(support_);
        return *form;
    }

    Support& support_;
    std::optional<AdvancedTrig> advancedTrig_;
    std::optional<SetDateTime> setDateTime_;
    std::optional<SelectChannel> selectChannel_;
    std::optional<ShowOffers> showOffers_;
};

} // namespace ko
