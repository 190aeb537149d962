#include "widgets/services/QtClipboard.h"

#include "widgets/support/Convert.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace ko {

void QtClipboard::clear()
{
    if (standIn)
        return standIn->clear();
    QGuiApplication::clipboard()->clear();
}

void QtClipboard::setText(const std::string& text)
{
    if (standIn)
        return standIn->setText(text);
    QGuiApplication::clipboard()->setText(toQt(text));
}

std::string QtClipboard::text()
{
    if (standIn)
        return standIn->text();
    const QMimeData* content = QGuiApplication::clipboard()->mimeData();
    return content && content->hasText() ? fromQt(content->text()) : std::string();
}

} // namespace ko
