#include "widgets/bindings/Mnemonics.h"

#include "platform/CaptionControls.h"
#include "widgets/support/Convert.h"

namespace ko {

namespace {

constexpr QChar mark = u'&';

/// The place of the letter that the caption marks itself; -1 for none.
qsizetype markedLetter(const QString& caption)
{
    for (qsizetype i = 0; i + 1 < caption.size(); ++i) {
        if (caption[i] != mark)
            continue;
        if (caption[i + 1] != mark)
            return i + 1;
        ++i;
    }
    return -1;
}

} // namespace

Mnemonics::Mnemonics(const Form& form)
{
    for (const Control* control : form.controls()) {
        const auto* captioned = dynamic_cast<const CaptionControl*>(control);
        const QString caption = captioned ? toQt(captioned->caption()) : QString();
        if (const qsizetype at = markedLetter(caption); at >= 0)
            taken_.insert(caption[at].toLower());
    }
}

bool Mnemonics::isFree(const QString& caption, qsizetype at, bool atWordStart) const
{
    const bool startsWord = at == 0 || caption[at - 1].isSpace();
    const bool hasKey = caption[at].isLetter() && caption[at].unicode() < 0x80;
    return hasKey && (startsWord || !atWordStart) && !taken_.contains(caption[at].toLower());
}

QString Mnemonics::marked(const QString& caption)
{
    if (markedLetter(caption) >= 0)
        return caption;
    for (const bool atWordStart : {true, false})
        for (qsizetype i = 0; i < caption.size(); ++i)
            if (isFree(caption, i, atWordStart)) {
                taken_.insert(caption[i].toLower());
                return QString(caption).insert(i, mark);
            }
    return caption;
}

} // namespace ko
