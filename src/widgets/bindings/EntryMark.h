#pragma once

#include <QLineEdit>

namespace ko {

/// The mark of an entry that is not valid: a warning sign in the end of the line edit that its text leaves free, with
/// a word beside it where there is room.
class EntryMark : public QWidget {
public:
    EntryMark(QLineEdit& edit, const QString& word);

    /// Brings the mark and the room that it takes in line with the line edit's size and text.
    void place();

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    [[nodiscard]] int signSize() const { return fontMetrics().height(); }
    [[nodiscard]] int wordSize() const;

    QLineEdit& edit_;
    QString word_;
};

} // namespace ko
