#pragma once

#include "platform/Services.h"

#include <QPrinter>
#include <QString>
#include <memory>
#include <optional>

class QPainter;
class QWidget;

namespace ko {

class PdfDetour;

/// The system's printers and, after them, a printer that writes a PDF file.
class QtPrinters : public Printers {
public:
    static constexpr const char* pdfName = "PDF file";

    /// Returns the widget that shows a form; null when the form is not shown.
    using Surfaces = std::function<QWidget*(const Form&)>;

    /// During its lifetime, every job goes to the caller's printer, with that printer's settings.
    class Lent {
    public:
        Lent(QtPrinters& printers, QPrinter& printer) : printers_(printers) { printers_.lent_ = &printer; }
        ~Lent() { printers_.lent_ = nullptr; }
        Lent(const Lent&) = delete;
        Lent& operator=(const Lent&) = delete;

    private:
        QtPrinters& printers_;
    };

    explicit QtPrinters(Surfaces surfaces);
    ~QtPrinters() override;

    /// Writes a PDF file completely or not at all; `content` is empty when it could not be created. Its failures reach
    /// the caller of `endDocument` as failure 482.
    std::function<void(const QString& file, const QByteArray& content)> savePdf;

    /// What is printed above and below each form. May be empty.
    struct Surroundings {
        QString above, below;
    };
    std::function<Surroundings()> surroundings;

    /// Sets the file that the PDF printer writes.
    void setPdfFile(const QString& path) { pdfFile_ = path; }

    std::int32_t count() override;
    std::string deviceName(std::int32_t index) override;
    void makeCurrent(std::int32_t index) override;

    void setCopies(std::int32_t copies) override { settings_.copies = copies; }
    void setColorMode(std::int32_t color) override { settings_.color = color; }
    void setDuplex(std::int32_t duplex) override { settings_.duplex = duplex; }
    void setOrientation(std::int32_t orientation) override { settings_.orientation = orientation; }
    void setPaperSize(std::int32_t paperSize) override { settings_.paperSize = paperSize; }
    void setPrintQuality(std::int32_t quality) override { settings_.printQuality = quality; }

    /// Failure 482 when the printer accepts no job, failure 5 for a form that is not shown.
    void printForm(const Form& form) override;
    void endDocument() override;

private:
    [[nodiscard]] std::unique_ptr<QPrinter> makePrinter() const;
    void begin();
    /// Saves a PDF file, if one is named; empty content is refused. Failure 482 with the reason.
    void save(const QString& file, const QByteArray& content) const;

    Surfaces surfaces_;
    QString pdfFile_;
    std::optional<QString> current_; ///< none: the system's default
    DeviceMode settings_;
    QPrinter* lent_ = nullptr;
    std::unique_ptr<QPrinter> own_;
    std::unique_ptr<PdfDetour> detour_;
    std::unique_ptr<QPainter> painter_;
};

/// Draws a widget's surface, without its push buttons, as large as fits into the space, from the top left corner.
/// Returns the place that it takes.
QRectF drawScaled(QPainter& painter, QWidget& widget, const QRectF& space);

/// Convert the six settings from and to the toolkit's printer.
DeviceMode settingsOf(const QPrinter& printer);
void applySettings(QPrinter& printer, const DeviceMode& settings);

} // namespace ko
