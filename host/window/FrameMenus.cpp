#include "host/sheet/SheetTexts.h"
#include "host/support/HostTexts.h"
#include "host/window/DriverLog.h"
#include "host/window/FrameWindow.h"
#include "host/window/HelpWindow.h"
#include "host/window/InstrumentsView.h"
#include "host/window/Reports.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/Modal.h"
#include "widgets/support/PlainText.h"

#include <QApplication>
#include <QFileInfo>
#include <QMenuBar>

namespace ko {

namespace {

/// A file's name as a menu shows it, reached by its number.
QString entryOf(int number, const QString& file)
{
    const QFileInfo info(file);
    QString text = QStringLiteral("%1 (%2)").arg(info.fileName(), info.path());
    return QStringLiteral("&%1  %2").arg(QString::number(number), text.replace(u'&', QStringLiteral("&&")));
}

} // namespace

void FrameWindow::makeMenus()
{
    makeFileMenu();
    makeEditMenu();
    makeViewMenu();
    menuBar()->addMenu(&page_->menu());
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

void FrameWindow::makeFileMenu()
{
    QMenu& menu = *menuBar()->addMenu(text(hostText::fileMenu));
    addEntry(menu, hostText::openSetup, QKeySequence::Open, [this] { chooseSetup(); });
    makeRecentMenu(menu);
    menu.addSeparator();
    addEntry(menu, hostText::save, QKeySequence::Save, [this] { save(); });
    // Not every desktop has a standard key for it.
    addEntry(menu, hostText::saveAs, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S), [this] { saveAs(); });
    menu.addSeparator();
    addEntry(menu, hostText::print, QKeySequence::Print, [this] { print(); });
    addEntry(menu, hostText::printPreview, {}, [this] { previewPrint(); });
    addEntry(menu, sheetText::menuEntry, {}, [this] { printSheet(); });
    menu.addSeparator();
    menu.addAction(&capture_->action());
    menu.addSeparator();
    addEntry(menu, hostText::quit, QKeySequence::Quit, [this] { close(); });
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
    if (recent_.files().isEmpty()) {
        menu.addAction(text(hostText::noRecentFiles))->setEnabled(false);
        return;
    }
    int number = 0;
    for (const QString& file : recent_.files()) {
        QAction* entry = menu.addAction(entryOf(++number, file));
        entry->setToolTip(plainTip(file));
        onSignal(entry, &QAction::triggered, this, [this, file] { openRecent(file); });
    }
    menu.addSeparator();
    addEntry(menu, hostText::clearRecent, {}, [this] { recent_.clear(); });
}

void FrameWindow::makeEditMenu()
{
    struct Entry {
        int text;
        QKeySequence::StandardKey key;
        std::int32_t command;
    };
    QMenu* menu = menuBar()->addMenu(text(hostText::editMenu));
    for (const auto& [label, key, command] : {Entry{hostText::cut, QKeySequence::Cut, command::cut},
                                              Entry{hostText::copy, QKeySequence::Copy, command::copy},
                                              Entry{hostText::paste, QKeySequence::Paste, command::paste},
                                              Entry{hostText::erase, QKeySequence::Delete, command::erase}}) {
        QAction* action = menu->addAction(text(label));
        action->setShortcuts(key);
        onSignal(action, &QAction::triggered, this, [this, id = command] { runCommand(id); });
        onSignal(menu, &QMenu::aboutToShow, action,
                 [this, action, id = command] { action->setEnabled(isAvailable(id)); });
        // A disabled action would not hear its key.
        onSignal(menu, &QMenu::aboutToHide, action, [action] { action->setEnabled(true); });
    }
}

void FrameWindow::makeViewMenu()
{
    QMenu& menu = *menuBar()->addMenu(text(hostText::viewMenu));
    QAction* readOnly = menu.addAction(text(hostText::readOnly));
    readOnly->setCheckable(true);
    onSignal(readOnly, &QAction::toggled, this, [this](bool on) {
        capture_->host({"read-only", on ? "on" : "off"});
        watch_.health().rebuild([&] { document_->mode().setReadOnly(on); });
    });
    menu.addSeparator();
    addDock(menu, *instruments_, hostText::instruments);
    addDock(menu, *log_, hostText::driverLog);
    addDock(menu, *reports_, hostText::reportsEntry);
}

void FrameWindow::addDock(QMenu& menu, QDockWidget& dock, int label)
{
    QAction* toggle = dock.toggleViewAction();
    toggle->setText(text(label));
    menu.addAction(toggle);
    onSignal(toggle, &QAction::triggered, this, [&dock](bool shown) {
        if (shown)
            dock.setFocus(Qt::OtherFocusReason);
    });
}

void FrameWindow::makeHelpMenu()
{
    QMenu& menu = *menuBar()->addMenu(text(hostText::helpMenu));
    // F1 is the page's key first; the text behind the tabulator only shows it.
    QAction& onPage = addEntry(menu, hostText::helpOnPage, {}, [this] { runCommand(command::help); });
    onPage.setText(onPage.text() + QStringLiteral("\tF1"));
    addEntry(menu, hostText::contents, {}, [this] { showHelp(contentsTopic); });
    addEntry(menu, hostText::about, {}, [this] { showAbout(); });
}

void FrameWindow::showHelp(std::int32_t topic)
{
    ko::showHelp(texts(), *this, topic);
}

void FrameWindow::showAbout()
{
    Modal<PlainBox>(QMessageBox::NoIcon, withoutMnemonic(text(hostText::about)), text(hostText::aboutText), QString(),
                    QMessageBox::Ok, this)
        .wait();
}

} // namespace ko
