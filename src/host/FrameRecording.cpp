#include "host/FrameRecording.h"

#include "host/InputError.h"
#include "host/Later.h"
#include "host/SetupSaving.h"
#include "schedule/SetDateTime.h"
#include "timebase/ShowOffers.h"
#include "triggering/AdvancedTrig.h"
#include "triggering/SelectChannel.h"
#include "widgets/Guarded.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QStatusBar>

namespace ko {

namespace {

namespace recordingText {
constexpr int menu = 3200;
constexpr int title = 3201;
constexpr int files = 3202;
constexpr int allFiles = 3117;
constexpr int stopped = 3203;
constexpr int sign = 3204;
} // namespace recordingText

} // namespace

FrameRecording::FrameRecording(RecordingFrame frame) : frame_(std::move(frame))
{
    action_.setText(frame_.texts(recordingText::menu));
    action_.setCheckable(true);
    connect(&action_, &QAction::triggered, this, [this](bool on) { guarded([&] { on ? chooseFile() : stop(); }); });
    sign_.setObjectName(QStringLiteral("recording"));
    sign_.setTextFormat(Qt::PlainText);
    sign_.hide();
    frame_.window.statusBar()->addPermanentWidget(&sign_);
    frame_.services.modalForms.opened = [this](const Form& form) {
        if (recorder_)
            recorder_->dialogOpened(form);
    };
    frame_.services.modalForms.closed = [this] {
        if (recorder_)
            recorder_->dialogClosed();
    };
}

FrameRecording::~FrameRecording()
{
    frame_.services.modalForms.opened = nullptr;
    frame_.services.modalForms.closed = nullptr;
}

void FrameRecording::start(const std::string& file, const std::string& setup)
{
    stop();
    QtClock& clock = frame_.services.clock;
    const DialogForms dialogs = frame_.component.dialogs();
    const Recorded recorded{frame_.document().page(),
                            {&dialogs.advancedTrig, &dialogs.setDateTime, &dialogs.selectChannel, &dialogs.showOffers},
                            [&clock] { return clock.tick(); },
                            frame_.platform.locale};
    recorder_ = std::make_unique<Recorder>(file, recorded);
    // Whoever finds that a line cannot be written is in the middle of the user's input.
    recorder_->failed = [this] { later(*this, [this] { failed(); }); };
    startSetup_ = setup;
    showState();
}

void FrameRecording::startFromHere(const std::string& file)
{
    const std::string beside = file + ".setup.json";
    saveSetup(beside, frame_.present());
    stop();
    frame_.renewPage();
    start(file, {});
    if (frame_.document().page().readOnly)
        host({"read-only", "on"});
    recorder_->setup(beside);
    frame_.showAgain();
}

void FrameRecording::stop()
{
    recorder_.reset();
    frame_.services.clock.runOn();
    showState();
}

void FrameRecording::host(const ScenarioWriter::Words& words)
{
    if (recorder_)
        recorder_->host(words);
}

void FrameRecording::command(std::int32_t id)
{
    if (recorder_ && id == command::paste)
        guarded([&] { recorder_->host({"clipboard", frame_.services.clipboard.text()}); });
    host({"command", std::to_string(id)});
}

void FrameRecording::setup(const std::string& file)
{
    if (!recorder_)
        return;
    recorder_->setup(file == startSetup_ ? std::string() : file);
    startSetup_.clear();
}

void FrameRecording::chooseFile()
{
    // The entry shows what is, not what is being asked for.
    showState();
    if (!frame_.mayLeave())
        return;
    const auto text = frame_.texts;
    QString file = QFileDialog::getSaveFileName(
        &frame_.window, text(recordingText::title), QString(),
        QStringLiteral("%1 (*.scenario);;%2 (*)").arg(text(recordingText::files), text(recordingText::allFiles)));
    if (file.isEmpty())
        return;
    try {
        startFromHere(fromQt(file));
    } catch (const InputError& error) {
        stop();
        warn(toQt(error.what()));
    }
}

void FrameRecording::showState()
{
    action_.setChecked(recorder_ != nullptr);
    sign_.setVisible(recorder_ != nullptr);
    if (recorder_)
        sign_.setText(frame_.texts(recordingText::sign).arg(QFileInfo(toQt(recorder_->file())).fileName()));
}

void FrameRecording::failed()
{
    if (!recorder_)
        return;
    const QString file = toQt(recorder_->file());
    stop();
    warn(file);
}

void FrameRecording::warn(const QString& reason)
{
    QMessageBox box(QMessageBox::Warning, frame_.texts(recordingText::title), frame_.texts(recordingText::stopped),
                    QMessageBox::Ok, &frame_.window);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(reason);
    box.exec();
}

} // namespace ko
