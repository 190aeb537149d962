#include "host/FrameWindow.h"

#include "host/HostTexts.h"
#include "host/InputError.h"
#include "host/Reports.h"
#include "host/SetupSaving.h"
#include "widgets/DateDialog.h"
#include "widgets/Guarded.h"
#include "widgets/PageTexts.h"
#include "widgets/TriggerDialogs.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QToolButton>

namespace ko {

FrameWindow::FrameWindow(const std::string& language)
    : services_([this](const Form& form) -> QWidget* {
          const bool shown = document_ && &form == &document_->page();
          return shown && page_ ? &page_->view() : nullptr;
      }),
      platform_(services_.platform([this] { return makeReporter(*reports_); }))
{
    services_.messageBox.setOwner(this);
    services_.modalForms.setOwner(this);
    component_.reset(createKoTimebaseEditor(platform_, language));
    const Texts texts = [this](int number) { return text(number); };
    addTriggerDialogs(services_.modalForms, component_->dialogs(), texts);
    addDateDialog(services_.modalForms, component_->dialogs(), texts, platform_.locale);
    reports_ = new Reports(texts, this);
    addDockWidget(Qt::BottomDockWidgetArea, reports_);
    document_ = component_->createDocument(*this);
    page_ = new PageWidget(document_->page(), texts, this);
    setCentralWidget(page_);
    makeStatusBar();
    page_->view().formChanged = [this] { showHint(); };
    makeRecording();
    makeMenus();
    makeSite();
    showTitle(text(hostText::noSetup));
    document_->mode().setClientSite(site_);
    handOver({});
}

FrameWindow::~FrameWindow()
{
    recording_.reset();
    site_->close();
    page_->view().formChanged = nullptr;
    delete page_;
    document_->UserDocument_Hide();
    document_.reset();
    component_.reset();
}

QString FrameWindow::text(int number) const
{
    QString text;
    guarded([&] { text = toQt(component_->text(number)); });
    return text;
}

void FrameWindow::makeSite()
{
    site_ = std::make_shared<FrameSite>();
    site_->caption = [this] { return focusHint(); };
    site_->showHint = [this](const std::string& hint, const std::string&) {
        hinted_ = document_->page().activeControl();
        rangeHint_ = hint;
        showHint();
    };
    site_->showHelp = [this](std::int32_t topic) { showHelp(topic); };
}

void FrameWindow::makeRecording()
{
    const auto present = [this] { return withPresentValues({"", services_.clock.standing(), {}}, drivers_); };
    recording_ = std::make_unique<FrameRecording>(RecordingFrame{
        *this, [this](int number) { return text(number); }, services_, platform_, *component_, *document_,
        [this] { return okToLeave(); }, present, [this] { handOver(SimulatedDrivers(drivers_)); }});
}

void FrameWindow::makeStatusBar()
{
    hint_ = new QLabel(this);
    hint_->setObjectName(QStringLiteral("hint"));
    hint_->setTextFormat(Qt::PlainText);
    // A long hint is cut off rather than widening the window.
    hint_->setMinimumWidth(1);
    hint_->setContentsMargins(hint_->fontMetrics().height() / 3, 0, 0, 0);
    statusBar()->addWidget(hint_, 1);
    statusBar()->addPermanentWidget(&reports_->button());
}

void FrameWindow::open(const std::string& file)
{
    const Setup setup = loadSetup(file);
    services_.clock.standAt(setup.clock);
    file_ = toQt(file);
    showTitle(QFileInfo(file_).fileName());
    recording_->setup(file);
    handOver(makeDrivers(setup));
}

void FrameWindow::openAsking(const QString& file)
{
    if (!okToLeave())
        return;
    try {
        open(fromQt(file));
    } catch (const InputError& error) {
        refuse(error.what());
    }
}

void FrameWindow::refuse(const std::string& reason)
{
    QMessageBox box(QMessageBox::Warning, text(hostText::openTitle), text(hostText::notOpened), QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(toQt(reason));
    box.exec();
}

void FrameWindow::handOver(const SimulatedDrivers& drivers)
{
    document_->UserDocument_Hide();
    drivers_ = drivers;
    document_->drivers().setNumberOfDrivers(static_cast<std::int32_t>(drivers_.size()));
    document_->drivers().setDrivers(DriverList(drivers_.begin(), drivers_.end()));
    document_->drivers().DriversHaveChanged();
    document_->UserDocument_Show();
    setWindowModified(false);
    page_->view().focus().follow();
}

void FrameWindow::showTitle(const QString& name)
{
    setWindowTitle(QStringLiteral("%1[*] - %2").arg(name, text(hostText::product)));
}

std::string FrameWindow::focusHint()
{
    const Control* active = document_->page().activeControl();
    if (!active)
        return {};
    const auto* box = dynamic_cast<const TextBox*>(active);
    const bool marked = box && box->marked();
    return (marked ? fromQt(text(pageText::invalidEntry)) + ". " : std::string()) + active->tag();
}

void FrameWindow::showHint()
{
    const bool sameControl = hinted_ == document_->page().activeControl();
    hint_->setText(toQt(focusHint() + (sameControl ? rangeHint_ : std::string())));
}

bool FrameWindow::okToLeave()
{
    bool allowed = false;
    recording_->host({"ok-to-leave"});
    document_->state().OKToLeave(allowed);
    return allowed;
}

bool FrameWindow::isAvailable(std::int32_t command)
{
    std::int32_t enable = 0;
    document_->menu().OnUpdateCommandUI(command, enable);
    return enable == 1;
}

void FrameWindow::runCommand(std::int32_t command)
{
    if (!isAvailable(command))
        return;
    recording_->command(command);
    document_->menu().OnCommand(command);
}

void FrameWindow::closeEvent(QCloseEvent* event)
{
    event->setAccepted(okToLeave());
}

void FrameWindow::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        recording_->command(command::acceptEntry);
        document_->menu().OnCommand(command::acceptEntry);
        break;
    case Qt::Key_F1: runCommand(command::help); break;
    default: QMainWindow::keyPressEvent(event);
    }
}

} // namespace ko
