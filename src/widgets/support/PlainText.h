#pragma once

#include <QLabel>
#include <QMessageBox>

namespace ko {

/// Texts of files, instruments and drivers are shown letter by letter. The toolkit would take some of them for HTML,
/// and load what they name.

/// A tool tip or a What's This text that shows just `text`.
QString plainTip(const QString& text);

/// Part of a window's title, in which the toolkit puts the mark of a change in place of "[*]".
QString plainTitle(QString text);

/// A label without HTML.
class PlainLabel : public QLabel {
public:
    explicit PlainLabel(QWidget* parent);
    PlainLabel(const QString& text, QWidget* parent);
};

/// A message box without HTML; `more` is the smaller text below.
class PlainBox : public QMessageBox {
public:
    PlainBox(Icon icon, const QString& title, const QString& text, const QString& more, StandardButtons buttons,
             QWidget* parent);
};

} // namespace ko
