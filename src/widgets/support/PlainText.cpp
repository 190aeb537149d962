#include "widgets/support/PlainText.h"

#include <QTextDocument>

namespace ko {

QString plainTip(const QString& text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal) : text;
}

QString plainTitle(QString text)
{
    return text.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
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
    : QMessageBox(icon, title, QString(), buttons, parent)
{
    // The label for the smaller text is created when its first text is set.
    if (!more.isEmpty())
        setInformativeText(QStringLiteral(" "));
    for (QLabel* label : findChildren<QLabel*>())
        label->setTextFormat(Qt::PlainText);
    setText(text);
    setInformativeText(more);
}

} // namespace ko
