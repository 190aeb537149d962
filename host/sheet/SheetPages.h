#pragma once

#include "host/sheet/SetupSheet.h"

#include <QLocale>
#include <QPageSize>
#include <QTextDocument>
#include <functional>

class QPagedPaintDevice;
class QPainter;

namespace ko {

/// Returns the paper of the user's region: Letter or A4.
QPageSize::PageSizeId paperOf(const QLocale& locale);

/// A sheet laid out in pages, each with a footer. A heading is always on the same page as the beginning of its section,
/// and a row of a table is on one page unless it is longer than half a page.
/// Requires a QGuiApplication.
class SheetPages {
public:
    /// Lays out pages of this size for `device`, which must outlive them. Copies what it needs from `source`.
    SheetPages(const SheetSource& source, QPaintDevice& device, const QSizeF& size);

    [[nodiscard]] int count() const { return document_.pageCount(); }
    [[nodiscard]] const QTextDocument& document() const { return document_; }
    /// Paints the pages one after the other, with a call of `nextPage` between two of them. The painter's origin is the
    /// top left corner of each page.
    void paint(QPainter& painter, const std::function<void()>& nextPage) const;
    /// Paints one page, counted from 0.
    void paint(QPainter& painter, int page) const;

private:
    [[nodiscard]] QFont footerFont() const;

    QSizeF size_;
    QString footer_, number_;
    QTextDocument document_;
};

/// Prints a sheet on the paper of the device. Returns false if painting on the device fails.
bool printSheet(const SheetSource& source, QPagedPaintDevice& device);

/// Returns the sheet as the content of a PDF file.
QByteArray sheetPdf(const SheetSource& source, QPageSize::PageSizeId paper);

} // namespace ko
