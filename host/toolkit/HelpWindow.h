#pragma once

#include "widgets/support/Convert.h"

#include <QDialog>

class QPushButton;
class QTextBrowser;

namespace ko {

// Topics of the window itself, beside `helpTopic`.
inline constexpr std::int32_t contentsTopic = 0;
inline constexpr std::int32_t propertiesTopic = 1;

/// The help: linked pages with back and forward buttons. Shows only files of its folder.
class HelpWindow : public QDialog {
public:
    /// `folder` holds the pages of one language.
    HelpWindow(const Texts& texts, const QString& folder, QWidget* parent);

    /// Shows the page of this topic, one of `helpTopic` or of the window; for unknown numbers the contents.
    void turnTo(std::int32_t topic);

    [[nodiscard]] QTextBrowser& browser() { return *browser_; }

private:
    void showPage(const QString& name);
    void connectButtons(QPushButton& contents, QPushButton& back, QPushButton& forward);

    QString folder_;
    QString missingText_;
    QTextBrowser* browser_;
};

/// Shows the help window of `frame`, created on first use, at this topic. The pages are in the language of `texts` if
/// they exist. The window can be used beside an open modal dialog.
void showHelp(const Texts& texts, QWidget& frame, std::int32_t topic);

} // namespace ko
