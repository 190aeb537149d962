#include "host/settings/HeadlessPage.h"

#include "platform/CaptionControls.h"
#include "platform/Form.h"
#include "platform/TextBox.h"
#include "platform/Utf8.h"

#include <algorithm>
#include <ostream>
#include <utility>

namespace ko {

/// The component's platform: collects messages and error reports, answers dialogs with `answer_`, and ignores
/// everything else.
class HeadlessPage::Machine final : public MessageBox, public ModalForms, public PropertyNotifySink {
public:
    Machine(HeadlessPage& page, const Locale& locale)
        : platform{*this,       clipboard_, printers_, screen_,
                   page.clock_, *this,      locale,    [&page] { return std::make_shared<Errors>(page.reaction_); }},
          page_(page)
    {
    }

    void show(const std::string& text, const std::string& /*title*/, int /*style*/) override
    {
        keep(page_.reaction_, text);
    }

    void showModal(Form& form) override
    {
        open_ = &form;
        if (const Answer answer = std::exchange(page_.answer_, nullptr))
            answer(page_.component_->dialogs());
        if (open_ == &form && form.cancelButton())
            form.cancelButton()->userClicked();
        hide(form);
    }

    void hide(Form& form) override
    {
        if (open_ == &form)
            open_ = nullptr;
    }

    void OnChanged() override {}

    Platform platform;

private:
    /// A value with its unit may be refused twice, and a device that is missing fails again and again.
    static void keep(Reaction& reaction, const std::string& message)
    {
        auto& messages = reaction.messages;
        if (std::find(messages.begin(), messages.end(), message) == messages.end())
            messages.push_back(message);
    }

    class Errors final : public ErrorReporter {
    public:
        explicit Errors(Reaction& reaction) : reaction_(reaction) {}
        void ReportError(std::int32_t /*number*/, const std::string& source, const std::string& description,
                         std::int32_t /*helpContext*/, const std::string& /*helpFile*/, bool /*log*/) override
        {
            keep(reaction_, source + ": " + description);
        }

    private:
        Reaction& reaction_;
    };

    HeadlessPage& page_;
    std::ostream nowhere_{nullptr};
    EventLog log_{nowhere_};
    PlainClipboard clipboard_;
    SimulatedPrinters printers_{log_};
    SimulatedScreen screen_;
    Form* open_ = nullptr;
};

HeadlessPage::HeadlessPage(const ScenarioOptions& options)
    : drivers_(makeDrivers(options.setup, options.devices)), machine_(std::make_unique<Machine>(*this, options.locale)),
      component_(createKoTimebaseEditor(machine_->platform, options.language)),
      document_(component_->createDocument(*machine_))
{
    clock_.time = options.setup.clock;
    document_->drivers().setNumberOfDrivers(static_cast<std::int32_t>(drivers_.size()));
    document_->drivers().setDrivers(DriverList(drivers_.begin(), drivers_.end()));
    document_->drivers().DriversHaveChanged();
    document_->UserDocument_Show();
    atStart_ = std::exchange(reaction_, {}).messages;
}

HeadlessPage::~HeadlessPage() = default;

HeadlessPage::Reaction HeadlessPage::use(const std::function<void(HeadlessPage&)>& act)
{
    act(*this);
    return std::exchange(reaction_, {});
}

void HeadlessPage::enter(TextBox& box, const std::string& text)
{
    if (!box.isUsable())
        return give(Outcome::Inert);
    page().userMovedFocus(&box);
    give(box.userReplaced(text, utf8Length(text), 0));
    page().userMovedFocus(nullptr);
}

void HeadlessPage::answer(PressControl& opener, Answer answer)
{
    answer_ = std::move(answer);
    give(opener.userClicked());
    answer_ = nullptr;
}

Driver* HeadlessPage::driverAt(std::int32_t index) const
{
    const DriverList& drivers = page().drivers;
    // A negative one is beyond all.
    const auto at = static_cast<std::size_t>(index);
    return at < drivers.size() ? drivers[at].get() : nullptr;
}

} // namespace ko
