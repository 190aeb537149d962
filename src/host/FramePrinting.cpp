#include "host/FrameWindow.h"

#include <QPrintDialog>
#include <QPrintPreviewDialog>

namespace ko {

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

void FrameWindow::previewPrint()
{
    QPrinter printer(QPrinter::HighResolution);
    QPrintPreviewDialog dialog(&printer, this);
    dialog.resize(size().expandedTo(dialog.sizeHint()));
    connect(&dialog, &QPrintPreviewDialog::paintRequested, this, [this](QPrinter* asked) { printOn(*asked); });
    dialog.exec();
}

void FrameWindow::printOn(QPrinter& printer)
{
    const QtPrinters::Lent lent(services_.printers, printer);
    document_->print().DefaultPrint(fromQt(printer.printerName()), settingsOf(printer));
}

} // namespace ko
