#pragma once

#include <QFontMetricsF>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QWidget>
#include <algorithm>
#include <vector>

namespace ko::test {

/// What a widget or a function draws, in the order of drawing and in the coordinates of the whole.
struct Painted {
    struct Part {
        QString text; ///< of a text
        QRectF box;
        QPen pen;
        QBrush brush;
        QFont font;
    };
    std::vector<Part> texts, lines, ellipses, areas, pictures;

    /// The text that begins so; an empty part when there is none.
    [[nodiscard]] Part text(const QString& beginning) const
    {
        const auto found =
            std::find_if(texts.begin(), texts.end(), [&](const Part& part) { return part.text.startsWith(beginning); });
        return found == texts.end() ? Part() : *found;
    }
    /// All texts, one after the other.
    [[nodiscard]] QStringList words() const
    {
        QStringList all;
        for (const Part& part : texts)
            all << part.text.trimmed();
        return all;
    }
};

/// A device that only takes notes.
class NotingDevice : public QPaintDevice {
public:
    NotingDevice(QSize size, int dotsPerInch) : engine_(notes), size_(size), dotsPerInch_(dotsPerInch) {}

    Painted notes;

    [[nodiscard]] QPaintEngine* paintEngine() const override { return &engine_; }

protected:
    [[nodiscard]] int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth: return size_.width();
        case PdmHeight: return size_.height();
        case PdmWidthMM: return size_.width() * 254 / dotsPerInch_ / 10;
        case PdmHeightMM: return size_.height() * 254 / dotsPerInch_ / 10;
        case PdmDepth: return 32;
        case PdmNumColors: return INT_MAX;
        case PdmDevicePixelRatio: return 1;
        case PdmDevicePixelRatioScaled: return static_cast<int>(devicePixelRatioFScale());
        default: return dotsPerInch_;
        }
    }

private:
    class Engine : public QPaintEngine {
    public:
        explicit Engine(Painted& notes) : QPaintEngine(AllFeatures), notes_(notes) {}

        bool begin(QPaintDevice* /*device*/) override { return true; }
        bool end() override { return true; }
        void updateState(const QPaintEngineState& /*state*/) override {}
        [[nodiscard]] Type type() const override { return User; }
        void drawTextItem(const QPointF& at, const QTextItem& item) override
        {
            note(notes_.texts, QRectF(at.x(), at.y() - item.ascent(), item.width(), item.ascent() + item.descent()),
                 item.text(), item.font());
        }
        void drawLines(const QLineF* lines, int count) override
        {
            for (int i = 0; i < count; ++i)
                note(notes_.lines, QRectF(lines[i].p1(), lines[i].p2()));
        }
        void drawEllipse(const QRectF& box) override { note(notes_.ellipses, box); }
        void drawRects(const QRectF* boxes, int count) override
        {
            std::for_each(boxes, boxes + count, [this](const QRectF& box) { note(notes_.areas, box); });
        }
        void drawPath(const QPainterPath& path) override { note(notes_.areas, path.boundingRect()); }
        void drawPolygon(const QPointF* points, int count, PolygonDrawMode /*mode*/) override
        {
            note(notes_.areas, QPolygonF(QList<QPointF>(points, points + count)).boundingRect());
        }
        void drawPixmap(const QRectF& box, const QPixmap& /*pixmap*/, const QRectF& /*part*/) override
        {
            note(notes_.pictures, box);
        }

    private:
        void note(std::vector<Painted::Part>& parts, const QRectF& box, const QString& text = {},
                  const QFont& font = {})
        {
            parts.push_back(
                {text, painter()->deviceTransform().mapRect(box), painter()->pen(), painter()->brush(), font});
        }

        Painted& notes_;
    };

    mutable Engine engine_;
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
