#pragma once

#include <QAbstractButton>
#include <QStyle>

namespace ko {

/// A row of the start screen: a sign, a title and a smaller hint, each on one line, shortened where there is no room.
/// Space and Enter press it. Texts are shown verbatim.
class StartEntry : public QAbstractButton {
public:
    StartEntry(QStyle::StandardPixmap sign, const QString& title, const QString& hint, QWidget* parent);

    /// Shortens the hint in its middle, as for paths.
    void shortenMiddle() { elide_ = Qt::ElideMiddle; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    [[nodiscard]] int margin() const { return fontMetrics().height() / 3; }
    [[nodiscard]] int signSize() const { return fontMetrics().height() * 3 / 2; }
    [[nodiscard]] QFont hintFont() const;
    void paintBack(QPainter& painter) const;

    QStyle::StandardPixmap sign_;
    QString title_, hint_;
    Qt::TextElideMode elide_ = Qt::ElideRight;
};

} // namespace ko
