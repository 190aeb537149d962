#include "host/window/FrameParts.h"

#include "host/docks/Reports.h"
#include "widgets/dialogs/DateDialog.h"
#include "widgets/dialogs/OffersDialog.h"
#include "widgets/dialogs/TriggerDialogs.h"
#include "widgets/support/Guarded.h"

namespace ko {

FrameParts::FrameParts(QWidget& window, const std::string& language)
    : services([this](const Form& form) { return surface ? surface(form) : nullptr; }),
      platform(services.platform([this] { return reports ? makeReporter(*reports) : nullptr; })),
      component(createKoTimebaseEditor(platform, language))
{
    services.messageBox.setOwner(&window);
    services.modalForms.setOwner(&window);
    const DialogForms dialogs = component->dialogs();
    addTriggerDialogs(services.modalForms, dialogs.selectChannel, dialogs.advancedTrig, texts());
    addOffersDialog(services.modalForms, dialogs.showOffers, texts());
    addDateDialog(services.modalForms, dialogs.setDateTime, texts());
}

QString FrameParts::text(int number) const
{
    QString text;
    guarded([&] { text = toQt(component->text(number)); });
    return text;
}

Texts FrameParts::texts() const
{
    return [this](int number) { return text(number); };
}

} // namespace ko
