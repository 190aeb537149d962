#pragma once

#include "platform/Font.h"
#include "platform/Grid.h"

#include <QFont>
#include <QPalette>
#include <QString>
#include <functional>
#include <string>

class QWidget;

namespace ko {

/// Text by its number in the component's string table; empty when there is none.
using Texts = std::function<QString(int)>;

QString toQt(const std::string& text);
std::string fromQt(const QString& text);

/// Control models count a text's characters, the toolkit its UTF-16 units.
int unitsOf(const QString& text, std::size_t characters);
std::size_t charactersOf(const QString& text, qsizetype units);

/// A caption as it reads: without the ampersand of its mnemonic, or without a mnemonic appended as "(&S)".
QString withoutMnemonic(const QString& caption);

/// `font`, where it differs from its form's font, put on top of what `widget` inherits.
void applyFont(QWidget& widget, const Font& font, const Font& formFont);

/// Twips are a 1440th of a logical inch.
int toPixels(const QWidget& widget, std::int32_t twips);
std::int32_t toTwips(const QWidget& widget, int pixels);

/// The palette's entry for a system colour.
QPalette::ColorRole roleOf(SystemColor color);

} // namespace ko
