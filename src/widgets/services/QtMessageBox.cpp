#include "widgets/services/QtMessageBox.h"

#include "widgets/support/Convert.h"
#include "widgets/support/Modal.h"
#include "widgets/support/PlainText.h"
#include "widgets/support/ShownText.h"

#include <QApplication>

namespace ko {

namespace {

QMessageBox::Icon iconOf(int style)
{
    switch (style) {
    case messageStyle::exclamation: return QMessageBox::Warning;
    case messageStyle::information: return QMessageBox::Information;
    default: return QMessageBox::NoIcon;
    }
}

} // namespace

void QtMessageBox::show(const std::string& text, const std::string& title, int style)
{
    if (standIn)
        return standIn->show(text, title, style);
    QWidget* top = QApplication::activeModalWidget();
    Modal<PlainBox>(iconOf(style), toShown(title), toShown(text), QString(), QMessageBox::Ok, top ? top : owner_.data())
        .wait();
}

} // namespace ko
