#pragma once

#include <QPrinter>
#include <QTemporaryDir>

namespace ko {

/// While it lives, a printer that writes a PDF file writes a temporary one: the toolkit empties the file at once and
/// says nothing of a full disk. Printers of paper, and previews, are left alone.
class PdfDetour {
public:
    /// `printer` is not printing, and outlives the detour.
    explicit PdfDetour(QPrinter& printer);
    ~PdfDetour();
    PdfDetour(const PdfDetour&) = delete;
    PdfDetour& operator=(const PdfDetour&) = delete;

    /// The file that the printer is to write; empty: none.
    [[nodiscard]] const QString& file() const { return file_; }
    /// What it has written by the end of the job; empty when that is not whole.
    [[nodiscard]] QByteArray content() const;

private:
    QPrinter& printer_;
    QString file_;
    QTemporaryDir folder_;
};

} // namespace ko
