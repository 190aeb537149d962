#include "document/ClassFactory.h"

#include "document/TimebaseEditor.h"

namespace ko {

namespace {

class KoTimebaseEditor final : public Component {
public:
    KoTimebaseEditor(const Platform& platform, const std::string& language) : shared_(platform, language) {}

    std::unique_ptr<Document> createDocument(PropertyNotifySink& sink) override { return makeDocument(shared_, sink); }

    std::string text(int number) override { return shared_.support.text(number); }

    DialogForms dialogs() override
    {
        Dialogs& dialogs = shared_.dialogs;
        return {dialogs.advancedTrig(), dialogs.setDateTime(), dialogs.selectChannel(), dialogs.showOffers()};
    }

private:
    Shared shared_;
};

} // namespace

} // namespace ko

ko::Component* createKoTimebaseEditor(const ko::Platform& platform, const std::string& language)
{
    return std::make_unique<ko::KoTimebaseEditor>(platform, language).release();
}
