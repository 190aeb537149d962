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

template <class Is> QString withBlanks(QString text, const Is& is)
{
    std::replace_if(text.begin(), text.end(), is, QChar(u' '));
    return text;
}

bool isControl(QChar c)
{
    return c.category() == QChar::Other_Control;
}

QString cut(const std::string& text, std::size_t most)
{
    const std::string part(utf8Part(text, 0, most));
    const QString shown = toQt(withoutDirections(part));
    return part.size() < text.size() ? shown + ellipsis : shown;
}

} // namespace

QString toShown(const std::string& text)
{
    const QString shown =
        withBlanks(cut(text, mostCharacters), [](QChar c) { return isControl(c) && c != u'\n' && c != u'\t'; });
    const QString lines = shown.section(u'\n', 0, mostLines - 1);
    return lines.size() < shown.size() ? lines + ellipsis : shown;
}

QString toLine(const std::string& text)
{
    return withBlanks(cut(text, mostInLine), [](QChar c) {
        return isControl(c) || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
    });
}

QString toLine(const QString& text)
{
    return toLine(fromQt(text));
}

} // namespace ko
