#include "host/window/PageHost.h"

#include "host/support/HostTexts.h"
#include "host/toolkit/HelpWindow.h"
#include "host/toolkit/HintLine.h"
#include "host/window/FrameCapture.h"
#include "widgets/support/PageTexts.h"
#include "widgets/support/ShownText.h"

#include <QMainWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <QVBoxLayout>

namespace ko {

/// Shows the document's hints and help. The document may keep it longer than the window exists.
class PageHost::Site : public ClientSite,
                       public StatusSite,
                       public HelpSite,
                       public std::enable_shared_from_this<Site> {
public:
    explicit Site(PageHost& owner) : host(&owner) {}

    PageHost* host; ///< null after the end of the page

    std::shared_ptr<StatusSite> queryStatusSite() override { return shared_from_this(); }
    std::shared_ptr<HelpSite> queryHelpSite() override { return shared_from_this(); }
    std::string Caption() override { return host ? host->focusHint() : std::string(); }
    void ShowHint(const std::string& hint, const std::string&) override
    {
        if (host)
            host->showRange(hint);
    }
    void ShowHelpTopic(std::int32_t topic) override
    {
        if (host)
            showHelp(host->parts_->texts(), host->window_, topic);
    }
};

PageHost::PageHost(QMainWindow& window, const UserActions& actions, std::shared_ptr<FrameParts> parts,
                   FrameCapture& capture, PropertyNotifySink& changes)
    : window_(window), actions_(actions), parts_(std::move(parts)), capture_(capture), changes_(changes),
      site_(std::make_shared<Site>(*this)), hint_(new HintLine(&window))
{
    auto* centre = new QWidget(&window);
    auto* column = new QVBoxLayout(centre);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    window.setCentralWidget(centre);
    hint_->setObjectName(QStringLiteral("hint"));
    parts_->surface = [this](const Form& form) -> QWidget* {
        return widget_ && &form == &document_->page() ? &widget_->view() : nullptr;
    };
}

void PageHost::make()
{
    const FrameParts& parts = *parts_;
    document_ = parts.component->createDocument(changes_);
    widget_ = new PageWidget(document_->page(), parts.texts(), &window_,
                             {parts.text(hostText::fileMenu), parts.text(hostText::editMenu),
                              parts.text(hostText::viewMenu), parts.text(hostText::helpMenu)});
    widget_->view().actions().keep(parts_);
    widget_->view().actions().whenDone([this] { ko::raise(actionDone); });
    widget_->view().formChanged = [this] {
        showHint();
        ko::raise(focusMoved);
    };
    static_cast<QBoxLayout*>(window_.centralWidget()->layout())->insertWidget(0, widget_, 1);
    window_.menuBar()->insertMenu(window_.menuBar()->actions().constLast(), &widget_->menu());
    document_->mode().setClientSite(site_);
    ko::raise(made);
}

void PageHost::renew()
{
    const bool readOnly = document_->page().readOnly;
    removeWidget();
    document_.reset();
    make();
    show({});
    document_->mode().setReadOnly(readOnly);
}

void PageHost::end()
{
    site_->host = nullptr;
    removeWidget();
    document_->UserDocument_Hide();
    document_.reset();
    parts_->surface = nullptr;
}

void PageHost::removeWidget()
{
    hinted_ = nullptr;
    widget_->view().formChanged = nullptr;
    delete std::exchange(widget_, nullptr);
}

void PageHost::show(const HostInstruments& drivers)
{
    document_->UserDocument_Hide();
    document_->drivers().setNumberOfDrivers(static_cast<std::int32_t>(drivers.size()));
    document_->drivers().setDrivers(DriverList(drivers.begin(), drivers.end()));
    document_->drivers().DriversHaveChanged();
    document_->UserDocument_Show();
}

void PageHost::handOver(const HostInstruments& drivers)
{
    const UserActions::Action action(actions_);
    document_->drivers().setNumberOfDrivers(static_cast<std::int32_t>(drivers.size()));
    document_->drivers().setDrivers(DriverList(drivers.begin(), drivers.end()));
    if (!action.isOver())
        document_->drivers().DriversHaveChanged();
}

void PageHost::handOverHidden(const HostInstruments& drivers)
{
    document_->UserDocument_Hide();
    document_->drivers().setNumberOfDrivers(static_cast<std::int32_t>(drivers.size()));
    document_->drivers().setDrivers(DriverList(drivers.begin(), drivers.end()));
}

/// A visible page clears the trigger lines of the instruments that it receives, so the page is hidden first.
void PageHost::handOverAgain(const HostInstruments& drivers)
{
    const auto count = static_cast<std::int32_t>(drivers.size());
    capture_.host({"hide"});
    document_->UserDocument_Hide();
    capture_.host({"announce", std::to_string(count)});
    document_->drivers().setNumberOfDrivers(count);
    capture_.host({"hand-over"});
    document_->drivers().setDrivers(DriverList(drivers.begin(), drivers.end()));
    rebuild();
}

/// Showing the page first makes it write its start and stop settings, which an instrument may have failed to accept,
/// before it reads those of the instruments.
void PageHost::rebuild()
{
    const UserActions::Action action(actions_);
    capture_.host({"show"});
    document_->UserDocument_Show();
    if (action.isOver())
        return;
    capture_.host({"drivers-changed"});
    document_->drivers().DriversHaveChanged();
}

bool PageHost::okToLeave()
{
    const UserActions::Action action(actions_);
    ko::raise(leaving);
    if (action.isOver())
        return false;
    bool allowed = false;
    capture_.host({"ok-to-leave"});
    document_->state().OKToLeave(allowed);
    if (allowed && !action.isOver())
        sendCommand(command::acceptEntry);
    return allowed && !action.isOver();
}

bool PageHost::isAvailable(std::int32_t command)
{
    std::int32_t enable = 0;
    document_->menu().OnUpdateCommandUI(command, enable);
    return enable == 1;
}

void PageHost::sendCommand(std::int32_t command)
{
    const UserActions::Action action(actions_);
    capture_.command(command);
    document_->menu().OnCommand(command);
}

void PageHost::setReadOnly(bool on)
{
    capture_.host({"read-only", on ? "on" : "off"});
    document_->mode().setReadOnly(on);
}

std::string PageHost::focusHint()
{
    const Control* active = document_->page().activeControl();
    if (!active)
        return {};
    const auto* box = dynamic_cast<const TextBox*>(active);
    const bool marked = box && box->marked();
    std::string hint = (marked ? fromQt(parts_->text(pageText::invalidEntry)) + ". " : std::string()) + active->tag();
    if (box && !box->escapeText().empty())
        hint += (hint.empty() ? "" : ". ") + fromQt(parts_->text(pageText::escapeHint).arg(toQt(box->escapeText())));
    return hint;
}

void PageHost::showRange(const std::string& hint)
{
    hinted_ = document_->page().activeControl();
    rangeHint_ = hint;
    showHint();
}

void PageHost::showHint()
{
    const bool sameControl = hinted_ == document_->page().activeControl();
    hint_->setText(toLine(focusHint() + (sameControl ? rangeHint_ : std::string())));
    // Otherwise the hint of the widget below the mouse would hide it.
    window_.statusBar()->clearMessage();
}

} // namespace ko
