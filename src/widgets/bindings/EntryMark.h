#pragma once

#include <QLineEdit>

namespace ko {

/// The mark of an invalid entry: a warning sign at the free end of the line edit, with a word beside it if there is
/// room.
class EntryMark : public QWidget {
public:
    EntryMark(QLineEdit& edit, const QString& word);

    /// The width of a line edit in which a mark with this word fits beside `text`.
    static int widthFor(const QLineEdit& edit, const QString& word, const QString& text);

    /// Places the mark and reserves its room according to the line edit's size and text.
    void place();

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    [[nodiscard]] int signSize() const { return fontMetrics().height(); }
    QLineEdit& edit_;
    QString word_;
};

} // namespace ko
