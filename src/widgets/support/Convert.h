#pragma once

#include "platform/Font.h"
#include "platform/Grid.h"

#include <QFont>
#include <QPalette>
#include <QString>
#include <functional>
#include <string>
#include <utility>

class QLineEdit;
class QWidget;

namespace ko {

/// Returns the text with this number in the component's string table; empty when there is none.
using Texts = std::function<QString(int)>;

QString toQt(const std::string& text);
std::string fromQt(const QString& text);

/// Convert between character counts of control models and UTF-16 units of the toolkit.
int unitsOf(const QString& text, std::size_t characters);
std::size_t charactersOf(const QString& text, qsizetype units);

/// Get and set the selection of a line edit in characters: start and length, 0 for the cursor alone. A selection that
/// is there already keeps its direction.
std::pair<std::size_t, std::size_t> selectedCharacters(const QLineEdit& edit);
void selectCharacters(QLineEdit& edit, std::size_t start, std::size_t length);

/// A caption without the ampersand of its mnemonic, or without a mnemonic appended as "(&S)".
QString withoutMnemonic(const QString& caption);

/// Sets the properties of `font` that differ from `formFont` on top of the font that `widget` inherits.
void applyFont(QWidget& widget, const Font& font, const Font& formFont);

/// Convert between twips, 1/1440 of a logical inch, and pixels.
int toPixels(const QWidget& widget, std::int32_t twips);
std::int32_t toTwips(const QWidget& widget, int pixels);

[[nodiscard]] bool isDark(const QColor& color);

/// The colours of a box that cannot be typed in, which does not look like a field.
QPalette readPalette();

/// The palette role of a system colour.
QPalette::ColorRole roleOf(SystemColor color);

} // namespace ko
