#include "widgets/services/PdfDetour.h"

#include <QFile>
#include <QPaintEngine>

namespace ko {

namespace {

/// The toolkit writes on after a failure. At the end of the file is the place of its table, which parts that are
/// missing before move.
bool isWhole(const QByteArray& pdf)
{
    const QByteArray mark = "startxref\n";
    const qsizetype at = pdf.lastIndexOf(mark);
    const QByteArrayList last = pdf.mid(at + mark.size()).split('\n');
    return at >= 0 && last.size() > 1 && last[1].startsWith("%%EOF") &&
           pdf.mid(last[0].toLongLong()).startsWith("xref");
}

} // namespace

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
    return isWhole(content) ? content : QByteArray();
}

} // namespace ko
