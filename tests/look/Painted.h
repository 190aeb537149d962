#pragma once

#include <QDebug>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QWidget>
#include <algorithm>
#include <vector>

namespace ko::test {

/// What a widget draws, in the order of drawing and in the coordinates of the whole.
struct Painted {
    struct Part {
        QString text; ///< of a text; the checksum of a picture
        QRectF box;
        QPen pen;
        QFont font;
    };
    std::vector<Part> texts, lines, ellipses, areas, others;
    QStringList notes; ///< each part with its pen, brush, font, opacity and clipping

    [[nodiscard]] QStringList words() const
    {
        QStringList all;
        for (const Part& part : texts)
            all << part.text.trimmed();
        return all;
    }
};

/// A device that only takes notes.
class NotingDevice : public QPaintDevice, private QPaintEngine {
public:
    NotingDevice(QSize size, int dotsPerInch) : QPaintEngine(AllFeatures), size_(size), dotsPerInch_(dotsPerInch) {}

    Painted notes;

    [[nodiscard]] QPaintEngine* paintEngine() const override { return engine_; }

private:
    [[nodiscard]] int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth: return size_.width();
        case PdmHeight: return size_.height();
        case PdmDevicePixelRatio: return 1;
        case PdmDevicePixelRatioScaled: return static_cast<int>(devicePixelRatioFScale());
        default: return dotsPerInch_;
        }
    }
    bool begin(QPaintDevice* /*device*/) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState& /*state*/) override {}
    [[nodiscard]] Type type() const override { return User; }
    void drawTextItem(const QPointF& at, const QTextItem& item) override
    {
        note(notes.texts, {at.x(), at.y() - item.ascent(), item.width(), item.ascent() + item.descent()}, item.text(),
             item.font());
    }
    void drawLines(const QLineF* lines, int count) override
    {
        std::for_each(lines, lines + count, [this](QLineF line) { note(notes.lines, {line.p1(), line.p2()}); });
    }
    void drawEllipse(const QRectF& box) override { note(notes.ellipses, box); }
    void drawPath(const QPainterPath& path) override { note(notes.areas, path.boundingRect()); }
    void drawPolygon(const QPointF* points, int count, PolygonDrawMode /*mode*/) override
    {
        note(notes.others, QPolygonF(QList<QPointF>(points, points + count)).boundingRect());
    }
    void drawPixmap(const QRectF& box, const QPixmap& pixmap, const QRectF& /*part*/) override
    {
        const QImage image = pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
        note(notes.others, box, QString::number(qChecksum(QByteArrayView(image.constBits(), image.sizeInBytes()))));
    }
    void note(std::vector<Painted::Part>& parts, const QRectF& box, const QString& text = {}, const QFont& font = {})
    {
        parts.push_back({text, painter()->deviceTransform().mapRect(box), painter()->pen(), font});
        QDebug(&notes.notes.emplace_back()) << text << parts.back().box << painter()->pen() << painter()->brush()
                                            << font << painter()->opacity() << painter()->clipBoundingRect();
    }

    QPaintEngine* engine_ = this;
    QSize size_;
    int dotsPerInch_;
};

/// What the widget draws, with its children.
inline Painted paintedBy(QWidget& widget)
{
    NotingDevice device(widget.size(), widget.logicalDpiX());
    widget.render(&device, {}, {}, QWidget::DrawChildren);
    return device.notes;
}

} // namespace ko::test
