#include "widgets/support/Convert.h"

#include <QLineEdit>
#include <algorithm>

namespace ko {

QString toQt(const std::string& text)
{
    return QString::fromStdString(text);
}

std::string fromQt(const QString& text)
{
    return text.toStdString();
}

int unitsOf(const QString& text, std::size_t characters)
{
    qsizetype units = 0;
    for (; characters > 0 && units < text.size(); --characters)
        units += text[units].isHighSurrogate() && units + 1 < text.size() ? 2 : 1;
    return static_cast<int>(units);
}

std::size_t charactersOf(const QString& text, qsizetype units)
{
    const QStringView part = QStringView(text).left(units);
    const auto pairs = std::count_if(part.begin(), part.end(), [](QChar c) { return c.isLowSurrogate(); });
    return static_cast<std::size_t>(part.size() - pairs);
}

std::pair<std::size_t, std::size_t> selectedCharacters(const QLineEdit& edit)
{
    const qsizetype start = edit.hasSelectedText() ? edit.selectionStart() : edit.cursorPosition();
    return {charactersOf(edit.text(), start), charactersOf(edit.selectedText(), edit.selectedText().size())};
}

void selectCharacters(QLineEdit& edit, std::size_t start, std::size_t length)
{
    if (selectedCharacters(edit) == std::pair(start, length))
        return;
    const int from = unitsOf(edit.text(), start);
    edit.setSelection(from, unitsOf(edit.text(), start + length) - from);
}

namespace {

constexpr qsizetype appendedMnemonic = 4; // "(&S)"

/// As in captions of East Asian languages.
bool isAppendedMnemonic(const QString& caption, qsizetype at)
{
    return at + appendedMnemonic <= caption.size() && caption[at] == u'(' && caption[at + 1] == u'&' &&
           caption[at + 2].isLetter() && caption[at + 3] == u')';
}

} // namespace

QString withoutMnemonic(const QString& caption)
{
    QString plain;
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (isAppendedMnemonic(caption, i)) {
            i += appendedMnemonic - 1;
            continue;
        }
        if (caption[i] == u'&' && i + 1 < caption.size())
            ++i;
        plain += caption[i];
    }
    return plain;
}

void applyFont(QWidget& widget, const Font& font, const Font& formFont)
{
    QFont own;
    if (!font.name.empty() && font.name != formFont.name)
        own.setFamily(toQt(font.name));
    if (font.size > 0.0 && font.size != formFont.size)
        own.setPointSizeF(font.size);
    if (font.weight != formFont.weight && font.weight >= 1 && font.weight <= 1000)
        own.setWeight(static_cast<QFont::Weight>(font.weight));
    if (font.bold != formFont.bold)
        own.setBold(font.bold);
    if (font.italic != formFont.italic)
        own.setItalic(font.italic);
    if (font.underline != formFont.underline)
        own.setUnderline(font.underline);
    if (font.strikethrough != formFont.strikethrough)
        own.setStrikeOut(font.strikethrough);
    widget.setFont(own);
}

int toPixels(const QWidget& widget, std::int32_t twips)
{
    return static_cast<int>(qint64{twips} * widget.logicalDpiX() / 1440);
}

std::int32_t toTwips(const QWidget& widget, int pixels)
{
    return static_cast<std::int32_t>(qint64{pixels} * 1440 / widget.logicalDpiX());
}

bool isDark(const QColor& color)
{
    return color.lightness() < 128;
}

QPalette readPalette()
{
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::transparent);
    return palette;
}

QPalette::ColorRole roleOf(SystemColor color)
{
    switch (color) {
    case SystemColor::windowBackground: return QPalette::Base;
    case SystemColor::inactiveBorder: return QPalette::Window;
    case SystemColor::buttonFace: return QPalette::Button;
    }
    return QPalette::Base;
}

} // namespace ko
