#pragma once

#include "platform/Form.h"

#include <QSet>
#include <QString>

namespace ko {

/// The letters by which the Alt key leads to a form's controls. Captions that mark a letter keep it; the others get
/// one that is still free.
class Mnemonics {
public:
    explicit Mnemonics(const Form& form);

    /// The caption with a marked letter: its own, or else the first free one, which is the caption's from now on.
    /// Letters that begin a word come first. The caption as it stands when no letter that every keyboard has is free.
    QString marked(const QString& caption);

private:
    [[nodiscard]] bool isFree(const QString& caption, qsizetype at, bool atWordStart) const;

    QSet<QChar> taken_;
};

} // namespace ko
