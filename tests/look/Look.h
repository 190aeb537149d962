#pragma once

#include <QWidget>
#include <vector>

namespace ko::test {

/// Makes the look independent of the machine; to be called before there is an application.
void fixEnvironment();
/// The same for sizes, by the Fusion style and DejaVu Sans without hinting.
void fixLook();

/// The place of a part in its window.
inline QRect placeOf(const QWidget& part)
{
    return {part.mapTo(part.window(), QPoint()), part.size()};
}

/// Where the parts of a window are and what they paint, in some states of it, to be compared with the kept file: a line
/// for each part with a name, and in it for each state `x,y wxh` and a checksum of what it and its nameless parts
/// paint.
class Look {
public:
    void take(QWidget& window);
    /// Adds a line for what was painted elsewhere, for example on a page of paper.
    void add(const QString& name, const QRect& place, const QStringList& painted);
    /// Fails for each line that differs from the section of the file. With KO_UPDATE_LOOK=1 writes the section instead.
    void compare(const QString& section) const;

private:
    struct Part {
        QString name, line;
        QStringList painted; ///< and said, in the last state
    };
    std::vector<Part> parts_;
    int states_ = 0;
};

/// Compares the window as it is, and larger and as small as it can be, with the section of this name.
void expectLook(QWidget& window, const QString& section);

} // namespace ko::test
