#pragma once

#include "widgets/support/Convert.h"

#include <QWidget>

class QPainter;

namespace ko {

/// The picture of the no-instrument screen: an empty mainframe and instructions, in the palette's colours.
class NoInstrumentPicture : public QWidget {
public:
    /// The resource number of this picture on the page.
    static constexpr int resource = 101;

    explicit NoInstrumentPicture(const Texts& texts, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    /// The place of the "+", for a host that has a button there.
    [[nodiscard]] QRect freeSlot() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QFont titleFont() const;
    [[nodiscard]] int textWidth() const;
    [[nodiscard]] int mainframeHeight() const;
    [[nodiscard]] int stepIndent() const;
    [[nodiscard]] QRect mainframe() const;
    [[nodiscard]] QRectF slotAt(int number) const;
    /// Lays out the texts one below the other from `at`, draws them if `painter` is set, and returns their bottom.
    int layTexts(QPainter* painter, QPoint at) const;
    int layText(QPainter* painter, const QRect& place, const QFont& font, const QString& text) const;
    void drawMainframe(QPainter& painter) const;
    void drawSlot(QPainter& painter, const QRectF& slot, bool wanted) const;

    QString title_, reason_;
    QStringList steps_;
};

} // namespace ko
