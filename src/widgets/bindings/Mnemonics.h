#pragma once

#include "platform/Form.h"

#include <QSet>
#include <QStringList>

namespace ko {

/// The letters by which the Alt key leads to a form's controls. Captions that mark a letter keep it; the others get
/// one that is still free: one of their own, or, in scripts that keys do not carry, one in parentheses after the text.
class Mnemonics {
public:
    /// The letters that `elsewhere` marks, captions of the same window such as its menus, are not free.
    explicit Mnemonics(const Form& form, const QStringList& elsewhere = {});

    /// The caption with a marked letter: its own, or else the first free one, which is the caption's from now on.
    /// Letters that begin a word come first. The caption as it is when no letter that every keyboard has is free.
    QString marked(const QString& caption);

private:
    void take(const QString& caption);
    QString appended(const QString& caption, qsizetype at);
    [[nodiscard]] bool isFree(const QString& caption, qsizetype at, bool atWordStart) const;

    QSet<QChar> taken_;
};

} // namespace ko
