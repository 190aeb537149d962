#include "widgets/services/QtPrinters.h"

#include "platform/Failure.h"
#include "platform/Form.h"
#include "widgets/services/PdfDetour.h"
#include "widgets/support/Convert.h"

#include <QApplication>
#include <QPainter>
#include <QPicture>
#include <QPrinterInfo>
#include <QPushButton>
#include <QStyle>
#include <QWidget>

namespace ko {

namespace {

constexpr std::int32_t printerError = 482;

enum Duplex { simplex = 1, vertical, horizontal };
constexpr std::int32_t landscape = 2;
constexpr std::int32_t inColor = 2;

/// Dots per inch of a print quality; draft is -1, high is -4.
int resolutionOf(std::int32_t quality)
{
    switch (quality) {
    case -1: return 150;
    case -2: return 300;
    case -3: return 600;
    case -4: return 1200;
    default: return quality > 0 ? quality : 600;
    }
}

QPrinter::DuplexMode duplexOf(std::int32_t duplex)
{
    switch (duplex) {
    case vertical: return QPrinter::DuplexLongSide;
    case horizontal: return QPrinter::DuplexShortSide;
    default: return QPrinter::DuplexNone;
    }
}

std::int32_t duplexCode(QPrinter::DuplexMode mode)
{
    switch (mode) {
    case QPrinter::DuplexLongSide: return vertical;
    case QPrinter::DuplexShortSide: return horizontal;
    default: return simplex;
    }
}

/// For its lifetime, gives the widget a white background and, if its palette is dark, the style's standard palette.
class PaperPalette {
public:
    explicit PaperPalette(QWidget& widget) : widget_(widget), own_(widget.palette())
    {
        QPalette paper = isDark(own_.color(QPalette::Window)) ? QApplication::style()->standardPalette() : own_;
        paper.setColor(QPalette::Window, Qt::white);
        widget_.setPalette(paper);
    }
    ~PaperPalette() { widget_.setPalette(own_); }
    PaperPalette(const PaperPalette&) = delete;
    PaperPalette& operator=(const PaperPalette&) = delete;

private:
    QWidget& widget_;
    QPalette own_;
};

/// For its lifetime, leaves out the widget's push buttons: on paper they can only be in the way.
class WithoutButtons : public QObject {
public:
    explicit WithoutButtons(const QWidget& widget)
    {
        for (QPushButton* const button : widget.findChildren<QPushButton*>())
            button->installEventFilter(this);
    }
    bool eventFilter(QObject* /*button*/, QEvent* event) override { return event->type() == QEvent::Paint; }
};

/// Records the widget's drawing commands; rendered directly to a printer, it would become one huge pixmap.
QPicture drawingOf(QWidget& widget)
{
    const PaperPalette paper(widget);
    const WithoutButtons withoutButtons(widget);
    QPicture drawing;
    widget.render(&drawing, QPoint(), QRegion(), QWidget::DrawChildren);
    return drawing;
}

constexpr double fontSize = 10.0; ///< of the texts around a form, in points

/// Draws a form and its surroundings, one below the other.
void drawSheet(QPainter& painter, QWidget& widget, const QtPrinters::Surroundings& around, const QSizeF& sheet)
{
    constexpr int wrapped = Qt::TextWordWrap | Qt::AlignLeft | Qt::AlignTop;
    QFont font = painter.font();
    font.setPointSizeF(fontSize);
    painter.setFont(font);
    const double gap = painter.fontMetrics().height();
    QRectF room(QPointF(), sheet);
    const auto heightOf = [&](const QString& text) {
        return text.isEmpty() ? 0.0 : painter.boundingRect(room, wrapped, text).height() + gap;
    };
    painter.drawText(room, wrapped, around.above);
    room.adjust(0.0, heightOf(around.above), 0.0, -heightOf(around.below));
    const QRectF drawn = drawScaled(painter, widget, room);
    painter.drawText(QRectF(QPointF(0.0, drawn.bottom() + gap), sheet), wrapped, around.below);
}

} // namespace

QRectF drawScaled(QPainter& painter, QWidget& widget, const QRectF& space)
{
    const QPicture drawing = drawingOf(widget);
    const QSizeF size = QSizeF(widget.size()).scaled(space.size(), Qt::KeepAspectRatio);
    // QPicture scales itself to the resolution of the target device.
    const double itself = double(painter.device()->logicalDpiX()) / drawing.logicalDpiX();
    const double scale = size.width() / widget.width() / itself;
    painter.save();
    painter.translate(space.topLeft());
    painter.scale(scale, scale);
    painter.drawPicture(QPointF(), drawing);
    painter.restore();
    return {space.topLeft(), size};
}

DeviceMode settingsOf(const QPrinter& printer)
{
    const QPageLayout page = printer.pageLayout();
    DeviceMode mode;
    mode.copies = printer.copyCount();
    mode.color = printer.colorMode() == QPrinter::Color ? inColor : 1;
    mode.duplex = duplexCode(printer.duplex());
    mode.orientation = page.orientation() == QPageLayout::Landscape ? landscape : 1;
    mode.paperSize = page.pageSize().windowsId();
    mode.printQuality = printer.resolution();
    return mode;
}

void applySettings(QPrinter& printer, const DeviceMode& settings)
{
    printer.setCopyCount(std::max(1, settings.copies));
    printer.setColorMode(settings.color == inColor ? QPrinter::Color : QPrinter::GrayScale);
    printer.setDuplex(duplexOf(settings.duplex));
    const QPageSize::PageSizeId paper = QPageSize::id(settings.paperSize);
    if (paper != QPageSize::Custom)
        printer.setPageSize(QPageSize(paper));
    printer.setPageOrientation(settings.orientation == landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
    printer.setResolution(resolutionOf(settings.printQuality));
}

QtPrinters::QtPrinters(Surfaces surfaces) : surfaces_(std::move(surfaces)) {}

QtPrinters::~QtPrinters() = default;

std::int32_t QtPrinters::count()
{
    return static_cast<std::int32_t>(QPrinterInfo::availablePrinterNames().size()) + 1;
}

std::string QtPrinters::deviceName(std::int32_t index)
{
    const QStringList names = QPrinterInfo::availablePrinterNames();
    if (index < 0 || index > names.size())
        fail(failure::subscriptOutOfRange);
    return index == names.size() ? pdfName : fromQt(names[index]);
}

void QtPrinters::makeCurrent(std::int32_t index)
{
    current_ = toQt(deviceName(index));
}

std::unique_ptr<QPrinter> QtPrinters::makePrinter() const
{
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    const QString name = current_ ? *current_ : QPrinterInfo::defaultPrinterName();
    if (name.isEmpty() || name == QLatin1String(pdfName)) {
        printer->setOutputFormat(QPrinter::PdfFormat);
        printer->setOutputFileName(pdfFile_);
    } else {
        printer->setPrinterName(name);
    }
    applySettings(*printer, settings_);
    return printer;
}

void QtPrinters::begin()
{
    auto own = lent_ ? nullptr : makePrinter();
    QPrinter* const printer = lent_ ? lent_ : own.get();
    const bool isNowhere = own && own->outputFormat() == QPrinter::PdfFormat && pdfFile_.isEmpty();
    auto painter = std::make_unique<QPainter>();
    auto detour = std::make_unique<PdfDetour>(*printer);
    if (isNowhere || !painter->begin(printer)) {
        save(detour->file(), {});
        throw Failure(printerError, "Printer error");
    }
    own_ = std::move(own);
    detour_ = std::move(detour);
    painter_ = std::move(painter);
}

void QtPrinters::printForm(const Form& form)
{
    QWidget* surface = surfaces_(form);
    if (!surface)
        fail(failure::invalidCall);
    const bool isFirst = !painter_;
    if (isFirst)
        begin();
    auto& printer = static_cast<QPrinter&>(*painter_->device());
    if (!isFirst)
        printer.newPage();
    drawSheet(*painter_, *surface, surroundings ? surroundings() : Surroundings{},
              printer.pageLayout().paintRectPixels(printer.resolution()).size());
}

void QtPrinters::endDocument()
{
    if (!painter_)
        return;
    const bool drawn = painter_->end();
    painter_.reset();
    const QString file = detour_->file();
    const QByteArray content = drawn ? detour_->content() : QByteArray();
    detour_.reset();
    own_.reset();
    save(file, content);
    if (!drawn)
        throw Failure(printerError, "Printer error");
}

void QtPrinters::save(const QString& file, const QByteArray& content) const
{
    try {
        if (!file.isEmpty())
            savePdf(file, content);
    } catch (const std::exception& error) {
        throw Failure(printerError, error.what());
    }
}

} // namespace ko
