#include "host/FrameWindow.h"
#include "host/HelpWindow.h"
#include "host/HostTexts.h"
#include "host/Reports.h"
#include "widgets/Guarded.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenuBar>
#include <QMessageBox>
#include <QPrintDialog>

namespace ko {

void FrameWindow::makeMenus()
{
    makeFileMenu();
    makeEditMenu();
    makeViewMenu();
    menuBar()->addMenu(&page_->menu());
    makeHelpMenu();
}

void FrameWindow::makeFileMenu()
{
    QMenu* menu = menuBar()->addMenu(text(hostText::fileMenu));
    QAction* openSetup = menu->addAction(text(hostText::openSetup));
    openSetup->setShortcut(QKeySequence::Open);
    connect(openSetup, &QAction::triggered, this, [this] { guarded([this] { chooseSetup(); }); });
    menu->addSeparator();
    QAction* printPage = menu->addAction(text(hostText::print));
    printPage->setShortcut(QKeySequence::Print);
    connect(printPage, &QAction::triggered, this, [this] { guarded([this] { print(); }); });
    menu->addSeparator();
    menu->addAction(&recording_->action());
    menu->addSeparator();
    QAction* quit = menu->addAction(text(hostText::quit));
    quit->setShortcut(QKeySequence::Quit);
    connect(quit, &QAction::triggered, this, &QWidget::close);
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
        connect(action, &QAction::triggered, this, [this, id = command] { runCommand(id); });
        connect(menu, &QMenu::aboutToShow, action,
                [this, action, id = command] { action->setEnabled(isAvailable(id)); });
        // A disabled action would not hear its key.
        connect(menu, &QMenu::aboutToHide, action, [action] { action->setEnabled(true); });
    }
}

void FrameWindow::makeViewMenu()
{
    QMenu* menu = menuBar()->addMenu(text(hostText::viewMenu));
    QAction* readOnly = menu->addAction(text(hostText::readOnly));
    readOnly->setCheckable(true);
    connect(readOnly, &QAction::toggled, this, [this](bool on) {
        recording_->host({"read-only", on ? "on" : "off"});
        document_->mode().setReadOnly(on);
    });
    menu->addAction(reports_->toggleViewAction());
}

void FrameWindow::makeHelpMenu()
{
    QMenu* menu = menuBar()->addMenu(text(hostText::helpMenu));
    // F1 is the page's key first; the text behind the tabulator only shows it.
    QAction* contents = menu->addAction(text(hostText::contents) + QStringLiteral("\tF1"));
    connect(contents, &QAction::triggered, this, [this] { runCommand(command::help); });
    QAction* about = menu->addAction(text(hostText::about));
    connect(about, &QAction::triggered, this, [this] { guarded([this] { showAbout(); }); });
}

void FrameWindow::chooseSetup()
{
    if (!okToLeave())
        return;
    const QString filter =
        QStringLiteral("%1 (*.json);;%2 (*)").arg(text(hostText::setupFiles), text(hostText::allFiles));
    const QString file = QFileDialog::getOpenFileName(this, text(hostText::openTitle), QFileInfo(file_).path(), filter);
    if (!file.isEmpty())
        openAsking(file);
}

void FrameWindow::print()
{
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const bool toFile = printer.outputFormat() == QPrinter::PdfFormat;
    if (toFile)
        services_.printers.setPdfFile(printer.outputFileName());
    const std::string name = toFile ? QtPrinters::pdfName : fromQt(printer.printerName());
    document_->print().DefaultPrint(name, settingsOf(printer));
}

void FrameWindow::showHelp(std::int32_t topic)
{
    ko::showHelp([this](int number) { return text(number); }, *this, topic);
}

void FrameWindow::showAbout()
{
    QMessageBox::about(this, withoutMnemonic(text(hostText::about)), text(hostText::aboutText));
}

} // namespace ko
