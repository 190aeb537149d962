#include "host/toolkit/SaveDialog.h"

#include <QLineEdit>
#include <QRegularExpression>

namespace ko {

SaveDialog::SaveDialog(QWidget* parent, const QString& title, const QString& folder, const QString& filters,
                       const QString& suffix)
    : QFileDialog(parent, title, folder, filters)
{
    setAcceptMode(AcceptSave);
    setDefaultSuffix(suffix);
}

void SaveDialog::accept()
{
    // The toolkit completes only names without a dot.
    if (auto* const edit = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))) {
        const QString name = edit->text();
        if (name.contains(u'.') && !hasEnding(name) && !QFileInfo(directory(), name).isDir())
            edit->setText(name + u'.' + defaultSuffix());
    }
    QFileDialog::accept();
}

bool hasEnding(const QString& name)
{
    static const QRegularExpression ending(QStringLiteral("\\.[A-Za-z]\\w*$"));
    return ending.match(name).hasMatch();
}

} // namespace ko
