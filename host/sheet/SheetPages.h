#pragma once

#include "host/sheet/SetupSheet.h"

#include <QLocale>
#include <QPageSize>
#include <QTextDocument>

class QPagedPaintDevice;
class QPainter;

namespace ko {

/// The paper of the user's region: Letter or A4.
QPageSize::PageSizeId paperOf(const QLocale& locale);

/// A sheet laid out in pages, each with a footer. A heading is never left behind by what it heads. Needs a
/// QGuiApplication.
class SheetPages {
public:
    /// For pages of this size on `device`, which outlives them. The source is not needed any more.
    SheetPages(const SheetSource& source, QPaintDevice& device, const QSizeF& size);

    [[nodiscard]] int count() const { return document_.pageCount(); }
    /// Pages count from 0. The painter's origin is the corner of the page.
    void paint(QPainter& painter, int page) const;

private:
    [[nodiscard]] QFont footerFont() const;

    QSizeF size_;
    QString footer_, number_;
    QTextDocument document_;
};

/// Prints a sheet on the paper of the device. False when it takes no drawing.
bool printSheet(const SheetSource& source, QPagedPaintDevice& device);

/// The same as the content of a PDF file.
QByteArray sheetPdf(const SheetSource& source, QPageSize::PageSizeId paper);

} // namespace ko
