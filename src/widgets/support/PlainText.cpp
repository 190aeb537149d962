#include "widgets/support/PlainText.h"

#include "widgets/support/Convert.h"
#include "widgets/support/ShownText.h"

#include <QRegularExpression>
#include <QTextDocument>

namespace ko {

QString plainTip(const QString& text)
{
    static const QRegularExpression longLine(QStringLiteral("[^\n]{200}"));
    static const QRegularExpression longWord(QStringLiteral("(\\S{50})(?=\\S)"));
    QString shown = toShown(fromQt(text));
    if (!Qt::mightBeRichText(shown) && !shown.contains(longLine))
        return shown;
    // The toolkit wraps only HTML, and only where it may break a word.
    shown.replace(longWord, QStringLiteral("\\1\u200B"));
    return Qt::convertFromPlainText(shown, Qt::WhiteSpaceNormal);
}

QString plainTitle(const QString& text)
{
    return toLine(text).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

PlainLabel::PlainLabel(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

PlainLabel::PlainLabel(const QString& text, QWidget* parent) : PlainLabel(parent)
{
    setText(text);
}

PlainBox::PlainBox(Icon icon, const QString& title, const QString& text, const QString& more, StandardButtons buttons,
                   QWidget* parent)
    : QMessageBox(icon, toLine(title), QString(), buttons, parent)
{
    // The label for the smaller text is created when its first text is set.
    if (!more.isEmpty())
        setInformativeText(QStringLiteral(" "));
    for (QLabel* label : findChildren<QLabel*>())
        label->setTextFormat(Qt::PlainText);
    setText(toShown(fromQt(text)));
    setInformativeText(toShown(fromQt(more)));
}

} // namespace ko
