#pragma once

#include <QPrinter>
#include <QTemporaryDir>

namespace ko {

/// During its lifetime, a printer that writes a PDF file writes to a temporary file instead, because the toolkit
/// truncates the file at once and does not report a full disk. Paper printers and previews are not affected.
class PdfDetour {
public:
    /// `printer` must not be printing, and must outlive this object.
    explicit PdfDetour(QPrinter& printer);
    ~PdfDetour();
    PdfDetour(const PdfDetour&) = delete;
    PdfDetour& operator=(const PdfDetour&) = delete;

    /// The PDF file that the printer was set to write; empty when not affected.
    [[nodiscard]] const QString& file() const { return file_; }
    /// The bytes written by the end of the job; empty when they are incomplete.
    [[nodiscard]] QByteArray content() const;

private:
    QPrinter& printer_;
    QString file_;
    QTemporaryDir folder_;
};

} // namespace ko
