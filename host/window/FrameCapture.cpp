#include "host/window/FrameCapture.h"

#include "host/setup/SetupSaving.h"
#include "host/support/HostTexts.h"
#include "host/support/InputError.h"
#include "host/toolkit/Later.h"
#include "host/toolkit/SaveDialog.h"
#include "schedule/SetDateTime.h"
#include "support/TextNumbers.h"
#include "timebase/ShowOffers.h"
#include "triggering/AdvancedTrig.h"
#include "triggering/SelectChannel.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/Modal.h"
#include "widgets/support/PlainText.h"

#include <QFileInfo>
#include <QPushButton>

namespace ko {

namespace {

namespace captureText = textNumber::capture;

/// Returns the path of the set-up with which a replay of the scenario starts.
std::string setupBeside(const std::string& scenario)
{
    return scenario + ".setup.json";
}

} // namespace

FrameCapture::FrameCapture(CaptureFrame frame) : frame_(std::move(frame))
{
    action_.setText(frame_.parts.text(captureText::menu));
    action_.setCheckable(true);
    onSignal(&action_, &QAction::triggered, this, [this](bool on) {
        const UserActions::Action action(frame_.actions);
        on ? chooseFile() : stop();
    });
    sign_.setObjectName(QStringLiteral("capture"));
    sign_.hide();
    frame_.parts.services.modalForms.opened = [this](const Form& form) {
        if (capture_)
            capture_->dialogOpened(form);
    };
    frame_.parts.services.modalForms.closed = [this] {
        if (capture_)
            capture_->dialogClosed();
    };
}

FrameCapture::~FrameCapture()
{
    frame_.parts.services.modalForms.opened = nullptr;
    frame_.parts.services.modalForms.closed = nullptr;
}

void FrameCapture::start(const std::string& file, const std::string& setup)
{
    stop();
    QtClock& clock = frame_.parts.services.clock;
    const DialogForms dialogs = frame_.parts.component->dialogs();
    const Captured captured{frame_.document().page(),
                            {&dialogs.advancedTrig, &dialogs.setDateTime, &dialogs.selectChannel, &dialogs.showOffers},
                            [&clock] { return clock.tick(); },
                            frame_.parts.platform.locale};
    capture_ = std::make_unique<ScenarioCapture>(file, captured);
    // A line that cannot be written is found in the middle of the user's input, where no message box may open.
    capture_->failed = [this] { later(*this, [this] { failed(); }); };
    startSetup_ = setup;
    showState();
}

void FrameCapture::startFromHere(const std::string& file)
{
    const std::string beside = setupBeside(file);
    frame_.parts.refuseOwn(file);
    frame_.parts.refuseOwn(beside);
    saveSetup(beside, withPresentValues({"", frame_.parts.services.clock.standing(), {}}, frame_.session.drivers()));
    stop();
    frame_.renewPage();
    try {
        start(file, {});
    } catch (...) {
        frame_.showAgain();
        throw;
    }
    if (frame_.document().page().readOnly)
        host({"read-only", "on"});
    capture_->setup(beside);
    frame_.showAgain();
}

void FrameCapture::stop()
{
    capture_.reset();
    frame_.parts.services.clock.runOn();
    showState();
}

void FrameCapture::refuseOwn(const std::string& file) const
{
    refuseSame(file, capture_ ? capture_->file() : std::string(), "the scenario that is captured");
}

void FrameCapture::host(const ScenarioWriter::Words& words)
{
    if (capture_)
        capture_->host(words);
}

void FrameCapture::command(std::int32_t id)
{
    if (capture_ && id == command::paste)
        guarded([&] { capture_->host({"clipboard", frame_.parts.services.clipboard.text()}); });
    host({"command", std::to_string(id)});
}

void FrameCapture::instruments(const HeldState& to)
{
    if (!capture_)
        return;
    Setup setup;
    for (const HeldState::Settings& settings : to.settings)
        setup.instruments.push_back(*settings);
    try {
        capture_->instruments(setup);
    } catch (const InputError&) {
        failed();
    }
}

void FrameCapture::setup(const std::string& file)
{
    if (!capture_)
        return;
    capture_->setup(file == startSetup_ ? std::string() : file);
    startSetup_.clear();
}

void FrameCapture::chooseFile()
{
    // The toolkit has already checked the entry, but nothing is being captured yet.
    showState();
    if (!frame_.mayLeave())
        return;
    const QString file = fileToWrite();
    if (file.isEmpty() || !mayOverwrite(setupBeside(fromQt(file))))
        return;
    try {
        startFromHere(fromQt(file));
    } catch (const InputError& error) {
        stop();
        warn(toQt(error.what()));
    }
}

/// Asks for the scenario's file; returns an empty path if the user cancels.
QString FrameCapture::fileToWrite()
{
    const Texts text = frame_.parts.texts();
    Modal<SaveDialog> dialog(
        &frame_.window, text(captureText::title), QString(),
        QStringLiteral("%1 (*.scenario);;%2 (*)").arg(text(captureText::files), text(hostText::allFiles)),
        QStringLiteral("scenario"));
    return dialog.isAccepted() ? dialog->selectedFiles().value(0) : QString();
}

/// Asks about the set-up next to the scenario, because the file dialog has asked about the scenario only.
bool FrameCapture::mayOverwrite(const std::string& file)
{
    const QFileInfo info(toQt(file));
    if (!info.exists())
        return true;
    Modal<PlainBox> box(QMessageBox::Question, frame_.parts.text(captureText::title),
                        frame_.parts.text(captureText::exists).arg(info.fileName()), QString(), QMessageBox::Cancel,
                        &frame_.window);
    const auto* const overwrite = box->addButton(frame_.parts.text(hostText::overwrite), QMessageBox::DestructiveRole);
    return box.answer() == overwrite;
}

void FrameCapture::showState()
{
    action_.setChecked(capture_ != nullptr);
    sign_.setVisible(capture_ != nullptr);
    if (capture_)
        sign_.setText(frame_.parts.text(captureText::sign).arg(QFileInfo(toQt(capture_->file())).fileName()));
}

void FrameCapture::failed()
{
    if (!capture_)
        return;
    const QString file = toQt(capture_->file());
    stop();
    warn(file);
}

void FrameCapture::warn(const QString& reason)
{
    Modal<PlainBox>(QMessageBox::Warning, frame_.parts.text(captureText::title),
                    frame_.parts.text(captureText::stopped), reason, QMessageBox::Ok, &frame_.window)
        .wait();
}

} // namespace ko
