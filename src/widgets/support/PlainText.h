#pragma once

#include <QLabel>
#include <QMessageBox>

namespace ko {

/// Texts of files, instruments and drivers are shown verbatim. The toolkit would otherwise interpret some of them as
/// HTML and load the resources that they name.

/// A tool tip or What's This text that shows `text` verbatim, as `toShown` does, with long lines wrapped.
QString plainTip(const QString& text);

/// A part of a window's title, as by `toLine`, with "[*]" escaped, which the toolkit would replace by the mark of a
/// change.
QString plainTitle(const QString& text);

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
