#pragma once

#include "platform/Form.h"

#include <QSet>
#include <QStringList>

namespace ko {

/// Assigns the letters that focus a form's controls with the Alt key. Captions that mark a letter keep it; the others
/// get a free one: from the caption or, for scripts that cannot be typed directly, in parentheses after it.
class Mnemonics {
public:
    /// Letters marked in `elsewhere`, captions of the same window such as its menus, are not free.
    explicit Mnemonics(const Form& form, const QStringList& elsewhere = {});

    /// The caption with a marked letter: its own, else the first free one, which is then taken. Letters at the start of
    /// a word are preferred. Returns the caption unchanged when no letter that every keyboard has is free.
    QString marked(const QString& caption);

private:
    void take(const QString& caption);
    QString appended(const QString& caption, qsizetype at);
    [[nodiscard]] bool isFree(const QString& caption, qsizetype at, bool atWordStart) const;

    QSet<QChar> taken_;
};

} // namespace ko
