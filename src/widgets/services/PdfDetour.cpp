#include "widgets/services/PdfDetour.h"

#include <QFile>
#include <QPaintEngine>

namespace ko {

PdfDetour::PdfDetour(QPrinter& printer) : printer_(printer)
{
    // A preview draws on its own paint engine, whatever the printer's output.
    if (printer.paintEngine()->type() != QPaintEngine::Pdf || printer.outputFileName().isEmpty())
        return;
    file_ = printer.outputFileName();
    printer.setOutputFileName(folder_.filePath(QStringLiteral("print.pdf")));
}

PdfDetour::~PdfDetour()
{
    if (!file_.isEmpty())
        printer_.setOutputFileName(file_);
}

QByteArray PdfDetour::content() const
{
    QFile file(printer_.outputFileName());
    const QByteArray content = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    return content.trimmed().endsWith("%%EOF") ? content : QByteArray();
}

} // namespace ko
