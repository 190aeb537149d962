#include "widgets/bindings/Mnemonics.h"

#include "platform/CaptionControls.h"
#include "widgets/support/Convert.h"

#include <algorithm>

namespace ko {

namespace {

constexpr QChar mark = u'&';

/// The position of the letter that the caption itself marks; 0 for none.
qsizetype markedLetter(const QString& caption)
{
    for (qsizetype i = 0; i + 1 < caption.size(); ++i) {
        if (caption[i] != mark)
            continue;
        if (caption[i + 1] != mark)
            return i + 1;
        ++i;
    }
    return 0;
}

/// Menu items have mnemonics of their own.
bool isInMenu(const Control& control)
{
    return dynamic_cast<const Menu*>(control.container()) != nullptr;
}

bool needsInputMethod(QChar letter)
{
    const auto script = letter.script();
    return script == QChar::Script_Han || script == QChar::Script_Hiragana || script == QChar::Script_Katakana ||
           script == QChar::Script_Hangul;
}

/// For a caption in a script that cannot be typed directly, the end of the text before a unit or a colon; else 0.
qsizetype endOfForeignText(const QString& caption)
{
    if (std::none_of(caption.begin(), caption.end(), needsInputMethod))
        return 0;
    qsizetype end = caption.size();
    while (!caption[end - 1].isLetter() || caption[end - 1].unicode() < 0x80)
        --end;
    return end;
}

} // namespace

Mnemonics::Mnemonics(const Form& form, const QStringList& elsewhere)
{
    for (const QString& caption : elsewhere)
        take(caption);
    for (const Control* control : form.controls())
        if (const auto* captioned = dynamic_cast<const CaptionControl*>(control); captioned && !isInMenu(*control))
            take(toQt(captioned->caption()));
}

void Mnemonics::take(const QString& caption)
{
    if (const qsizetype at = markedLetter(caption))
        taken_.insert(caption[at].toLower());
}

bool Mnemonics::isFree(const QString& caption, qsizetype at, bool atWordStart) const
{
    const bool startsWord = at == 0 || caption[at - 1].isSpace();
    const bool hasKey = caption[at].isLetter() && caption[at].unicode() < 0x80;
    return hasKey && (startsWord || !atWordStart) && !taken_.contains(caption[at].toLower());
}

QString Mnemonics::appended(const QString& caption, qsizetype at)
{
    const QString candidates = caption.toUpper() + QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    for (qsizetype i = 0; i < candidates.size(); ++i)
        if (isFree(candidates, i, false)) {
            taken_.insert(candidates[i].toLower());
            return QString(caption).insert(at, QStringLiteral("(&%1)").arg(candidates[i]));
        }
    return caption;
}

QString Mnemonics::marked(const QString& caption)
{
    if (markedLetter(caption))
        return caption;
    if (const qsizetype end = endOfForeignText(caption); end > 0)
        return appended(caption, end);
    for (const bool atWordStart : {true, false})
        for (qsizetype i = 0; i < caption.size(); ++i)
            if (isFree(caption, i, atWordStart)) {
                taken_.insert(caption[i].toLower());
                return QString(caption).insert(i, mark);
            }
    return caption;
}

} // namespace ko
