#include "Workplace.h"

#include "WindowDeeds.h"
#include "host/recording_view/RecordDialog.h"

#include <QAbstractPrintDialog>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintPreviewDialog>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

namespace ko::test {

namespace {

const char* const bench = R"({"drivers": [
  {"name": "Digitizer", "timebase": {"samplePeriod": {"value": 0.001, "choices": [0.001, 0.002, 0.01]},
      "blockSize": {"value": 1024, "range": [16, 65536]}},
   "triggerLines": {"startMasterRank": 5, "startLinesAsMaster": [0, 1, 2], "startLinesAsListener": [0, 1, 2]},
   "groups": [{"name": "Inputs", "channels": [
     {"address": "0:3:1", "name": "Crank", "triggerSource": true, "triggerParameters": [
       {"id": 2, "name": "Level", "type": "Float", "min": -10, "max": 10, "value": 0.5},
       {"id": 4, "name": "Slope", "type": "Enum", "choices": ["Rising", "Falling"], "value": "Rising"}]},
     {"address": "0:3:2", "name": "Cam"}]}]},
  {"name": "Other", "timebase": {"samplePeriod": {"value": 0.002, "range": [1e-5, 1]}},
   "triggerLines": {"startMasterRank": 4, "scanMasterRank": 3}, "groups": [{"name": "G", "channels": [
     {"address": "1:1", "name": "A"}, {"address": "1:2", "name": "B", "triggerSource": true}]}]},
  {"name": "Scanner", "samplingMode": 2, "timebase": {"scanPeriod": {"value": 0.1, "range": [0.01, 10]}},
   "triggerLines": {"scanMasterRank": 5}, "groups": [{"name": "Slow", "channels": [{"address": "2:1"}]}]}]})";

const char* const script = "click optStartTime\nfocus txtDuration\ntype 7\nleave\nset-all sample-rate 500\nundo\n";

} // namespace

Workplace::Workplace()
{
    QDir::setCurrent(folder_.path());
    // What the window remembers is not among the files that the user chooses from.
    QDir(folder_.path()).mkdir(QStringLiteral("state"));
    write(QStringLiteral("bench.json"), bench);
    write(QStringLiteral("none.json"), R"({"drivers": []})");
    write(QStringLiteral("broken.json"), R"({"drivers": [{"name")");
    write(QStringLiteral("script.scenario"), script);
    for (const char* demo : {"engine-bench-demo.json", "instrument-kinds.json"})
        QFile::copy(QStringLiteral(KO_DEMO_FOLDER "/%1").arg(demo), path(demo));
    makeWindow();
    window_->open(fromQt(path("bench.json")));
}

Workplace::~Workplace()
{
    QDir::setCurrent(QDir::rootPath());
}

void Workplace::makeWindow()
{
    window_ = std::make_unique<FrameWindow>("", fromQt(path("state/memory.json")));
    window_->replay().setPace(0);
    if (!user_) {
        user_ = std::make_unique<RandomUser>(*window_, 0);
        user_->usesToolBars = true;
        user_->answer = [this](QDialog& dialog) { return answer(dialog); };
    }
    user_->useWindow(*window_);
    window_->show();
    window_->activateWindow();
    QApplication::processEvents();
}

void Workplace::write(const QString& name, const QByteArray& content) const
{
    QFile file(path(name));
    if (file.open(QIODevice::WriteOnly))
        file.write(content);
}

/// The desktop would have activated the window after a dialog.
void Workplace::press(const QKeySequence& key)
{
    if (!window_->isActiveWindow()) {
        window_->activateWindow();
        QApplication::processEvents();
    }
    if (!window_)
        return;
    QWidget* const focused = window_->focusWidget();
    QTest::keySequence(focused ? focused : window_.get(), key);
}

void Workplace::step(std::uint32_t seed)
{
    user_->draw = Draw(seed);
    // A recording locks the page.
    if (draw().oneIn(4))
        window_->recording().stop();
    if (draw().oneIn(2)) {
        user_->act();
    } else {
        const bool isIdle = !window_->session().hasSetup() && draw().oneIn(2);
        const WindowDeed& deed = isIdle ? openingASetup() : draw().weighted(windowDeeds());
        user_->note(deed.name);
        have([&] { deed.perform(*this); });
    }
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    // The window may have become the active one again.
    have([] {});
    if (window_ && window_->isVisible())
        return;
    user_->note("a new window");
    have([this] {
        window_.reset();
        makeWindow();
        window_->autosave().offer(window_->files().questions());
    });
}

void Workplace::have(const std::function<void()>& act)
{
    user_->have(act);
}

bool Workplace::answer(QDialog& dialog)
{
    if (draw().oneIn(200)) {
        user_->note("destroy the window in " + std::string(dialog.metaObject()->className()));
        destroy();
        return true;
    }
    if (auto* const files = qobject_cast<QFileDialog*>(&dialog))
        return choose(*files);
    if (auto* const box = qobject_cast<QMessageBox*>(&dialog)) {
        const QList<QAbstractButton*> buttons = box->buttons();
        QAbstractButton* const button = buttons.value(draw().upTo(static_cast<int>(buttons.size())));
        user_->note("answer \"" + box->text().toStdString() + "\" by " + button->text().toStdString());
        button->click();
        return true;
    }
    // A path is not typed at random, and nothing is printed.
    if (auto* const record = dynamic_cast<RecordDialog*>(&dialog)) {
        user_->note("record");
        record->findChild<QLineEdit*>()->setText(path(draw().oneIn(2) ? "run.h5" : "next.h5"));
        record->accept();
        return true;
    }
    if (qobject_cast<QAbstractPrintDialog*>(&dialog) || qobject_cast<QPrintPreviewDialog*>(&dialog)) {
        dialog.reject();
        return true;
    }
    return false;
}

bool Workplace::choose(QFileDialog& dialog)
{
    const QStringList all = QDir(folder_.path()).entryList(QDir::Files);
    const bool isNew = dialog.acceptMode() == QFileDialog::AcceptSave && draw().oneIn(2);
    const QString name = isNew ? QStringLiteral("new") : all.value(draw().upTo(static_cast<int>(all.size())));
    const bool isCancelled = draw().oneIn(5);
    user_->note(isCancelled ? "cancel the choice of a file" : "choose the file " + name.toStdString());
    dialog.setDirectory(folder_.path());
    dialog.selectFile(name);
    isCancelled ? dialog.reject() : static_cast<QDialog&>(dialog).accept();
    return true;
}

} // namespace ko::test
