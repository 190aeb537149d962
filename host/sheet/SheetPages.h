#pragma once

#include "host/sheet/SetupSheet.h"

#include <QLocale>
#include <QPageSize>
#include <QTextDocument>
#include <functional>
#include <vector>

class QPagedPaintDevice;
class QPainter;

namespace ko {

/// Returns the paper of the user's region: Letter or A4.
QPageSize::PageSizeId paperOf(const QLocale& locale);

/// A sheet laid out in pages, each with a footer. A heading is always on the same page as the beginning of its section,
/// and a row of a table is on one page unless it is longer than half a page; then it is cut between lines.
/// Requires a QGuiApplication.
class SheetPages {
public:
    /// A part of the document, from top to bottom.
    struct Extent {
        double top = 0.0;
        double bottom = 0.0;
        [[nodiscard]] double height() const { return bottom - top; }
    };
    struct Page {
        Extent shown;
        Extent header; ///< of the table that goes on from the page before, painted again; empty: none
    };

    /// Lays out pages of this size for `device`, which must outlive them. Copies what it needs from `source`.
    SheetPages(const SheetSource& source, QPaintDevice& device, const QSizeF& size);

    [[nodiscard]] int count() const { return static_cast<int>(pages_.size()); }
    [[nodiscard]] const std::vector<Page>& pages() const { return pages_; }
    [[nodiscard]] const QTextDocument& document() const { return document_; }
    /// Paints the pages one after the other, with a call of `nextPage` between two of them. The painter's origin is the
    /// top left corner of each page.
    void paint(QPainter& painter, const std::function<void()>& nextPage) const;
    /// Paints one page, counted from 0.
    void paint(QPainter& painter, int page) const;

private:
    [[nodiscard]] QFont footerFont() const;
    void paint(QPainter& painter, const Extent& part, double top) const;

    QSizeF size_;
    QString footer_, number_;
    QTextDocument document_; ///< laid out as one long page, because each change of one in pages lays out all of it
    std::vector<Page> pages_;
    double border_;
};

/// Prints a sheet on the paper of the device. Returns false if painting on the device fails.
bool printSheet(const SheetSource& source, QPagedPaintDevice& device);

/// Returns the sheet as the content of a PDF file.
QByteArray sheetPdf(const SheetSource& source, QPageSize::PageSizeId paper);

} // namespace ko
