#include "host/window/FrameWindow.h"

#include "host/setup/SetupSaving.h"
#include "host/support/HostTexts.h"
#include "host/window/DriverLog.h"
#include "host/window/FailureStrip.h"
#include "host/window/HintLine.h"
#include "host/window/InstrumentsView.h"
#include "host/window/Reports.h"
#include "widgets/dialogs/DateDialog.h"
#include "widgets/dialogs/OffersDialog.h"
#include "widgets/dialogs/TriggerDialogs.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/PageTexts.h"

#include <QKeyEvent>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace ko {

FrameWindow::Parts::Parts(QtPrinters::Surfaces surfaces)
    : services(std::move(surfaces)),
      platform(services.platform([this] { return reports ? makeReporter(*reports) : nullptr; }))
{
}

QString FrameWindow::Parts::text(int number) const
{
    QString text;
    guarded([&] { text = toQt(component->text(number)); });
    return text;
}

/// They outlive the window where its widgets do.
Texts FrameWindow::texts() const
{
    return [parts = parts_.get()](int number) { return parts->text(number); };
}

FrameWindow::FrameWindow(const std::string& language, const std::string& memory)
    : memory_(memory), parts_(std::make_shared<Parts>([this](const Form& form) -> QWidget* {
          const bool shown = document_ && &form == &document_->page();
          return shown && page_ ? &page_->view() : nullptr;
      }))
{
    actions_.keep(parts_);
    services_.messageBox.setOwner(this);
    services_.modalForms.setOwner(this);
    services_.printers.savePdf = [this](const QString& file, const QByteArray& content) { savePdf(file, content); };
    parts_->component.reset(createKoTimebaseEditor(platform_, language));
    const DialogForms dialogs = parts_->component->dialogs();
    addTriggerDialogs(services_.modalForms, dialogs.selectChannel, dialogs.advancedTrig, texts());
    addOffersDialog(services_.modalForms, dialogs.showOffers, texts());
    addDateDialog(services_.modalForms, dialogs.setDateTime, texts());
    makeDocks();
    makeCentre();
    makeStatusBar();
    makePage();
    makeSession();
    makeCapture();
    makeMenus();
    makeSite();
    setAcceptDrops(true);
    document_->mode().setClientSite(site_);
    handOver();
    showTitle();
}

FrameWindow::~FrameWindow()
{
    capture_.reset();
    site_->close();
    watch_.health().changed = nullptr;
    watch_.watch({});
    page_->view().formChanged = nullptr;
    // They take their texts from the component until they are gone.
    delete page_;
    if (!actions_.end(*this)) {
        delete instruments_;
        delete log_;
    }
    document_->UserDocument_Hide();
    document_.reset();
    services_.printers.savePdf = nullptr;
}

void FrameWindow::makeCentre()
{
    failures_ = new FailureStrip(texts(), this);
    auto* centre = new QWidget(this);
    auto* column = new QVBoxLayout(centre);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(failures_);
    setCentralWidget(centre);
    watch_.health().changed = [this] { failures_->refreshLater(); };
    failures_->failing = [this] { return watch_.health().failing(); };
    failures_->tryAgain = [this] {
        if (okToLeave())
            handOverAgain();
    };
    failures_->grown = [this] {
        QWidget* const focused = focusWidget();
        if (focused && page_->view().isAncestorOf(focused))
            page_->ensureWidgetVisible(focused);
    };
    failures_->leaving = [this] { page_->view().focus().follow(); };
}

void FrameWindow::makeDocks()
{
    parts_->reports = reports_ = new Reports(texts(), this);
    log_ = new DriverLog(texts(), this);
    instruments_ = new InstrumentsView(texts(), platform_.locale, this);
    addDockWidget(Qt::BottomDockWidgetArea, reports_);
    addDockWidget(Qt::BottomDockWidgetArea, log_);
    addDockWidget(Qt::RightDockWidgetArea, instruments_);
    const auto note = [this](const DriverWatch::Watched& watched, const auto& call) {
        log_->model().add(watched.driver, call);
        instruments_->refresh();
    };
    watch_.called = note;
    watch_.failed = note;
    instruments_->model().enable = [this](SimulatedDriver& driver, int group, int channel, bool on) {
        return enableChannel(driver, group, channel, on);
    };
    instruments_->faultChanged = [this](const SimulatedDriver& driver, const std::string& operation, bool fails) {
        faultChanged(driver, operation, fails);
    };
    instruments_->handOver = [this] {
        if (okToLeave())
            handOverAgain();
    };
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

void FrameWindow::makePage()
{
    document_ = parts_->component->createDocument(*this);
    page_ = new PageWidget(
        document_->page(), texts(), this,
        {text(hostText::fileMenu), text(hostText::editMenu), text(hostText::viewMenu), text(hostText::helpMenu)});
    page_->view().actions().keep(parts_);
    static_cast<QBoxLayout*>(centralWidget()->layout())->insertWidget(0, page_, 1);
    page_->view().formChanged = [this] { showHint(); };
}

/// The page as it was when the window was made, but for what the menus keep.
void FrameWindow::renewPage()
{
    const bool readOnly = document_->page().readOnly;
    hinted_ = nullptr;
    page_->view().formChanged = nullptr;
    delete page_;
    document_.reset();
    makePage();
    menuBar()->insertMenu(menuBar()->actions().constLast(), &page_->menu());
    document_->mode().setClientSite(site_);
    showOnPage({});
    document_->mode().setReadOnly(readOnly);
}

void FrameWindow::makeCapture()
{
    CaptureFrame frame{*this, actions_, texts(), services_, platform_, *parts_->component, {}, {}, {}, {}, {}, {}};
    frame.document = [this]() -> Document& { return *document_; };
    frame.refuseOwn = [this](const std::string& file) { session_.refuseOwn(file); };
    frame.mayLeave = [this] { return okToLeave(); };
    frame.present = [this] { return withPresentValues({"", services_.clock.standing(), {}}, session_.drivers()); };
    frame.renewPage = [this] { renewPage(); };
    frame.showAgain = [this] {
        const bool changed = session_.isChanged();
        handOver();
        session_.setChanged(changed);
    };
    capture_ = std::make_unique<FrameCapture>(std::move(frame));
}

void FrameWindow::makeStatusBar()
{
    hint_ = new HintLine(this);
    hint_->setObjectName(QStringLiteral("hint"));
    statusBar()->addWidget(hint_, 1);
    statusBar()->addPermanentWidget(&reports_->button());
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
    const UserActions::Action action(actions_);
    bool allowed = false;
    capture_->host({"ok-to-leave"});
    document_->state().OKToLeave(allowed);
    if (allowed && !action.isOver())
        sendCommand(command::acceptEntry);
    return allowed && !action.isOver();
}

bool FrameWindow::isInDock(const QWidget* widget) const
{
    return log_->isAncestorOf(widget) || instruments_->isAncestorOf(widget) || reports_->isAncestorOf(widget) ||
           failures_->isAncestorOf(widget);
}

bool FrameWindow::isAvailable(std::int32_t command)
{
    const QWidget* const focused = focusWidget();
    if (command != command::help && isInDock(focused))
        return command == command::copy && log_->isAncestorOf(focused);
    std::int32_t enable = 0;
    document_->menu().OnUpdateCommandUI(command, enable);
    return enable == 1;
}

void FrameWindow::sendCommand(std::int32_t command)
{
    const UserActions::Action action(actions_);
    capture_->command(command);
    document_->menu().OnCommand(command);
}

void FrameWindow::runCommand(std::int32_t command)
{
    if (!isAvailable(command))
        return;
    if (command != command::help && log_->isAncestorOf(focusWidget()))
        log_->copy();
    else
        sendCommand(command);
}

void FrameWindow::keyPressEvent(QKeyEvent* event)
{
    const bool isHelp = event->key() == Qt::Key_F1 && event->modifiers() == Qt::NoModifier;
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!isInDock(focusWidget()))
            sendCommand(command::acceptEntry);
        break;
    default: isHelp ? runCommand(command::help) : QMainWindow::keyPressEvent(event);
    }
}

} // namespace ko
