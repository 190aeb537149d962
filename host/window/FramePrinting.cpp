#include "host/sheet/SheetPages.h"
#include "host/sheet/SheetTexts.h"
#include "host/support/FileWriter.h"
#include "host/support/HostTexts.h"
#include "host/support/InputError.h"
#include "host/window/FrameWindow.h"
#include "widgets/services/PdfDetour.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/Modal.h"
#include "widgets/support/PlainText.h"

#include <QPrintDialog>
#include <QPrintPreviewDialog>

namespace ko {

void FrameWindow::print()
{
    QPrinter printer(QPrinter::HighResolution);
    if (!Modal<QPrintDialog>(&printer, this).isAccepted())
        return;
    const bool toFile = printer.outputFormat() == QPrinter::PdfFormat;
    if (toFile)
        services_.printers.setPdfFile(printer.outputFileName());
    const std::string name = toFile ? QtPrinters::pdfName : fromQt(printer.printerName());
    document_->print().DefaultPrint(name, settingsOf(printer));
}

void FrameWindow::previewPrint()
{
    QPrinter printer(QPrinter::HighResolution);
    Modal<QPrintPreviewDialog> dialog(&printer, this);
    dialog->resize(size().expandedTo(dialog->sizeHint()));
    onSignal(dialog.get(), &QPrintPreviewDialog::paintRequested, this, [this](QPrinter* asked) { printOn(*asked); });
    dialog.wait();
}

void FrameWindow::printOn(QPrinter& printer)
{
    const QtPrinters::Lent lent(services_.printers, printer);
    document_->print().DefaultPrint(fromQt(printer.printerName()), settingsOf(printer));
}

void FrameWindow::printSheet()
{
    if (!okToLeave())
        return;
    QPrinter printer(QPrinter::HighResolution);
    if (Modal<QPrintDialog>(&printer, this).isAccepted())
        printSheetOn(printer);
}

SheetSource FrameWindow::sheet()
{
    return {.page = document_->page(),
            .drivers = session_.drivers(),
            .title = session_.title(),
            .file = session_.name(),
            .isChanged = session_.isChanged(),
            .made = services_.clock.now(),
            .texts = texts(),
            .locale = platform_.locale};
}

void FrameWindow::printSheetOn(QPrinter& printer)
{
    const UserActions::Action action(actions_);
    const PdfDetour detour(printer);
    QString reason;
    bool isPrinted = ko::printSheet(sheet(), printer);
    try {
        if (isPrinted && !detour.file().isEmpty())
            savePdf(detour.file(), detour.content());
    } catch (const InputError& error) {
        isPrinted = false;
        reason = toQt(error.what());
    }
    if (!isPrinted)
        Modal<PlainBox>(QMessageBox::Warning, text(hostText::product), text(sheetText::notPrinted), reason,
                        QMessageBox::Ok, this)
            .wait();
}

void FrameWindow::savePdf(const QString& file, const QByteArray& content)
{
    const std::string name = fromQt(file);
    session_.refuseOwn(name);
    capture_->refuseOwn(name);
    if (content.isEmpty())
        throw InputError(name + ": cannot be saved: there is no room for a temporary file");
    writeWhole(name, content.toStdString());
}

} // namespace ko
