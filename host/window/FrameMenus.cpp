#include "host/docks/DriverLog.h"
#include "host/docks/InstrumentsView.h"
#include "host/docks/Reports.h"
#include "host/recording_view/RecordingView.h"
#include "host/setup/SetupTemplates.h"
#include "host/sheet/SheetTexts.h"
#include "host/support/HostTexts.h"
#include "host/toolkit/DockRoom.h"
#include "host/toolkit/HelpWindow.h"
#include "host/window/FrameWindow.h"
#include "widgets/support/Convert.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/Modal.h"
#include "widgets/support/PlainText.h"
#include "widgets/support/ShownText.h"

#include <QApplication>
#include <QFileInfo>
#include <QMenuBar>
#include <QStyle>
#include <QToolBar>
#include <array>

namespace ko {

namespace {

/// Returns a menu text for a file, with its number as the mnemonic.
QString entryOf(int number, const QString& file)
{
    const QFileInfo info(file);
    QString text = QStringLiteral("%1 (%2)").arg(toLine(info.fileName()), toLine(info.path()));
    return QStringLiteral("&%1  %2").arg(QString::number(number), text.replace(u'&', QStringLiteral("&&")));
}

} // namespace

void FrameWindow::makeMenus()
{
    makeFileMenu();
    makeEditMenu();
    makeViewMenu();
    makeHelpMenu();
}

QAction& FrameWindow::addEntry(QMenu& menu, int label, const QKeySequence& key, std::function<void()> act)
{
    QAction* entry = menu.addAction(text(label));
    entry->setShortcut(key);
    onSignal(entry, &QAction::triggered, this, [this, act = std::move(act)] {
        const UserActions::Action action(actions_);
        act();
    });
    return *entry;
}

void FrameWindow::addSetupEntry(QMenu& menu, int label, const QKeySequence& key, std::function<void()> act)
{
    addEntryWhile([this] { return session().hasSetup(); }, menu, label, key, std::move(act));
}

void FrameWindow::addEntryWhile(const std::function<bool()>& isPossible, QMenu& menu, int label,
                                const QKeySequence& key, std::function<void()> act)
{
    QAction& entry = addEntry(menu, label, key, [isPossible, act = std::move(act)] {
        if (isPossible())
            act();
    });
    onSignal(&menu, &QMenu::aboutToShow, &entry, [isPossible, &entry] { entry.setEnabled(isPossible()); });
    // A disabled action would not receive its shortcut.
    onSignal(&menu, &QMenu::aboutToHide, &entry, [&entry] { entry.setEnabled(true); });
}

void FrameWindow::makeFileMenu()
{
    QMenu& menu = *menuBar()->addMenu(text(hostText::fileMenu));
    makeNewMenu(menu);
    addEntry(menu, hostText::openSetup, QKeySequence::Open, [this] { files_.chooseAndOpen(); });
    makeRecentMenu(menu);
    menu.addSeparator();
    addSetupEntry(menu, textNumber::start::close, QKeySequence::Close, [this] { files_.close(); });
    addSetupEntry(menu, hostText::save, QKeySequence::Save, [this] { files_.save(); });
    // Some desktops define no standard key for this.
    addSetupEntry(menu, hostText::saveAs, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S), [this] { files_.saveAs(); });
    addEntryWhile([this] { return session().isOpen() && !recording_.isActive(); }, menu, textNumber::history::revert,
                  {}, [this] { revertToSaved(); });
    menu.addSeparator();
    addSetupEntry(menu, hostText::print, QKeySequence::Print, [this] { printing_.printPage(); });
    addSetupEntry(menu, hostText::printPreview, {}, [this] { printing_.previewPage(); });
    addSetupEntry(menu, sheetText::menuEntry, {}, [this] { printing_.printSheet(); });
    addSetupEntry(menu, sheetText::previewEntry, {}, [this] { printing_.previewSheet(); });
    addSetupEntry(menu, sheetText::exportEntry, {}, [this] { printing_.exportSheet(files_.questions()); });
    menu.addSeparator();
    recording_.addEntries(menu);
    menu.addSeparator();
    menu.addAction(&capture_.action());
    menu.addAction(&replay_.action());
    onSignal(&menu, &QMenu::aboutToShow, this,
             [this] { replay_.action().setEnabled(!capture_.action().isChecked() && !recording_.isActive()); });
    menu.addSeparator();
    addEntry(menu, hostText::quit, QKeySequence::Quit, [this] { close(); });
}

void FrameWindow::makeNewMenu(QMenu& menu)
{
    namespace newText = textNumber::newSetup;
    // In the order of the templates.
    constexpr std::array labels{newText::empty, newText::vibration, newText::engineBench, newText::temperatures,
                                newText::mixed};
    static_assert(labels.size() == templateCount);
    QMenu& submenu = *menu.addMenu(text(newText::menu));
    const std::vector<std::string> names = templateNames();
    for (std::size_t i = 0; i < labels.size(); ++i)
        addEntry(submenu, labels[i], i == 0 ? QKeySequence(QKeySequence::New) : QKeySequence(),
                 [this, name = names[i]] { files_.beginNew(name); });
}

void FrameWindow::makeRecentMenu(QMenu& menu)
{
    QMenu* recent = menu.addMenu(text(hostText::recentFiles));
    recent->setObjectName(QStringLiteral("recentFiles"));
    onSignal(recent, &QMenu::aboutToShow, this, [this, recent] { fillRecentMenu(*recent); });
}

void FrameWindow::fillRecentMenu(QMenu& menu)
{
    menu.clear();
    if (files_.recent().files().isEmpty()) {
        menu.addAction(text(hostText::noRecentFiles))->setEnabled(false);
        return;
    }
    int number = 0;
    for (const QString& file : files_.recent().files()) {
        QAction* entry = menu.addAction(entryOf(++number, file));
        entry->setToolTip(plainTip(file));
        onSignal(entry, &QAction::triggered, this, [this, file] { files_.openRecent(file); });
    }
    menu.addSeparator();
    addEntry(menu, hostText::clearRecent, {}, [this] { files_.recent().clear(); });
}

void FrameWindow::makeEditMenu()
{
    struct Entry {
        int text;
        QKeySequence::StandardKey key;
        std::int32_t command;
    };
    QMenu* menu = menuBar()->addMenu(text(hostText::editMenu));
    history_.addEntries(*menu);
    for (const auto& [label, key, command] : {Entry{hostText::cut, QKeySequence::Cut, command::cut},
                                              Entry{hostText::copy, QKeySequence::Copy, command::copy},
                                              Entry{hostText::paste, QKeySequence::Paste, command::paste},
                                              Entry{hostText::erase, QKeySequence::Delete, command::erase}}) {
        QAction* action = menu->addAction(text(label));
        action->setShortcuts(key);
        onSignal(action, &QAction::triggered, this, [this, id = command] { runCommand(id); });
        onSignal(menu, &QMenu::aboutToShow, action,
                 [this, action, id = command] { action->setEnabled(isAvailable(id)); });
        // A disabled action would not receive its shortcut.
        onSignal(menu, &QMenu::aboutToHide, action, [action] { action->setEnabled(true); });
    }
}

void FrameWindow::makeViewMenu()
{
    QMenu& menu = *menuBar()->addMenu(text(hostText::viewMenu));
    readOnly_ = menu.addAction(text(hostText::readOnly));
    readOnly_->setCheckable(true);
    onSignal(&menu, &QMenu::aboutToShow, this, [this] { readOnly_->setEnabled(!recording_.isActive()); });
    onSignal(readOnly_, &QAction::toggled, this, [this](bool on) {
        const UserActions::Action action(actions_);
        isLockedForRecording_ = false;
        history_.hostCall([&] { docks_.health().rebuild([&] { page_.setReadOnly(on); }); });
    });
    menu.addSeparator();
    addDock(menu, docks_.instruments(), hostText::instruments);
    addDock(menu, docks_.log(), hostText::driverLog);
    addDock(menu, docks_.reports(), hostText::reportsEntry);
    addDock(menu, history_.dock(), textNumber::history::history);
    addDock(menu, recording_.view(), textNumber::record::dock);
    menu.addAction(recording_.toolBar().toggleViewAction());
}

void FrameWindow::addDock(QMenu& menu, QDockWidget& dock, int label)
{
    QAction* toggle = dock.toggleViewAction();
    toggle->setText(text(label));
    menu.addAction(toggle);
    onSignal(toggle, &QAction::triggered, this, [this, &dock](bool shown) {
        if (!shown)
            return;
        makeRoom(*this, dock, page().sizeHint());
        dock.raise();
        dock.setFocus(Qt::OtherFocusReason);
    });
}

void FrameWindow::makeHelpMenu()
{
    QMenu& menu = *menuBar()->addMenu(text(hostText::helpMenu));
    // The page handles F1 itself; the text after the tab only displays the key.
    QAction& onPage = addEntry(menu, hostText::helpOnPage, {}, [this] { runCommand(command::help); });
    onPage.setText(onPage.text() + QStringLiteral("\tF1"));
    addEntry(menu, hostText::contents, {}, [this] { showHelp(parts_->texts(), *this, contentsTopic); });
    addEntry(menu, hostText::about, {}, [this] { showAbout(); });
}

void FrameWindow::showAbout()
{
    const QString name = withoutMnemonic(text(hostText::product)) + u' ';
    const QString version = text(textNumber::about::version).arg(QLatin1String(KO_VERSION));
    Modal<PlainBox> box(QMessageBox::NoIcon, withoutMnemonic(text(hostText::about)), name + version,
                        text(hostText::aboutText) + QStringLiteral("\n\n") + text(textNumber::about::licence),
                        QMessageBox::Ok, this);
    box->setIconPixmap(windowIcon().pixmap(style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this)));
    box.wait();
}

} // namespace ko
