#pragma once

#include "schedule/SetDateTime.h"
#include "timebase/ShowOffers.h"
#include "triggering/AdvancedTrig.h"
#include "triggering/SelectChannel.h"

#include <memory>
#include <utility>

namespace ko {

/// The component's dialogs: one instance each, created on first use, shared by all documents.
class Dialogs {
public:
    explicit Dialogs(Support& support) : support_(support) {}

    AdvancedTrig& advancedTrig() { return made(advancedTrig_); }
    SetDateTime& setDateTime() { return made(setDateTime_); }
    SelectChannel& selectChannel() { return made(selectChannel_); }
    ShowOffers& showOffers() { return made(showOffers_); }

    /// Sets the host's help for all dialogs; null removes it.
    void setHelp(const std::shared_ptr<HelpSite>& help);

private:
    /// The constructor calls the host, which may request the same dialog and so create it first.
    template <class Form> Form& made(std::unique_ptr<Form>& form)
    {
        if (!form)
            if (auto another = std::make_unique<Form>(support_); !form)
                form = std::move(another);
        return *form;
    }

    Support& support_;
    std::unique_ptr<AdvancedTrig> advancedTrig_;
    std::unique_ptr<SetDateTime> setDateTime_;
    std::unique_ptr<SelectChannel> selectChannel_;
    std::unique_ptr<ShowOffers> showOffers_;
};

} // namespace ko
