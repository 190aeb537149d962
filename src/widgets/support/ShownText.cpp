#include "widgets/support/ShownText.h"

#include "platform/Utf8.h"
#include "widgets/support/Convert.h"

#include <algorithm>

namespace ko {

namespace {

constexpr std::size_t mostCharacters = 4000;
constexpr qsizetype mostLines = 60;
constexpr std::size_t mostInLine = 500;

const QChar ellipsis = u'\u2026';

QString cut(const std::string& text, std::size_t most)
{
    const std::string part(utf8Part(text, 0, most));
    const QString shown = toQt(withoutDirections(part));
    return part.size() < text.size() ? shown + ellipsis : shown;
}

} // namespace

QString toShown(const std::string& text)
{
    const QString shown = cut(text, mostCharacters);
    const QString lines = shown.section(u'\n', 0, mostLines - 1);
    return lines.size() < shown.size() ? lines + ellipsis : shown;
}

QString toLine(const std::string& text)
{
    QString line = cut(text, mostInLine);
    const auto isControl = [](QChar c) {
        return c.category() == QChar::Other_Control || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
    };
    std::replace_if(line.begin(), line.end(), isControl, QChar(u' '));
    return line;
}

QString toLine(const QString& text)
{
    return toLine(fromQt(text));
}

} // namespace ko
