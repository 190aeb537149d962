#pragma once

#include "widgets/support/Convert.h"

#include <QDialog>

class QPushButton;
class QTextBrowser;

namespace ko {

inline constexpr std::int32_t contentsTopic = 0;

/// The host's help: pages that lead to each other, with the way back. It shows files of its folder and nothing else.
class HelpWindow : public QDialog {
public:
    /// `folder` holds the pages of one language.
    HelpWindow(const Texts& texts, const QString& folder, QWidget* parent);

    /// Turns to the page of this topic, one of `helpTopic`, or to the contents for `contentsTopic` and other numbers.
    void turnTo(std::int32_t topic);

    [[nodiscard]] QTextBrowser& browser() { return *browser_; }

private:
    void showPage(const QString& name);
    void connectButtons(QPushButton& contents, QPushButton& back, QPushButton& forward);

    QString folder_;
    QString missingText_;
    QTextBrowser* browser_;
};

/// Shows the one help window of `frame` at this topic, in the texts' language where there are pages in it. It can be
/// used beside a modal dialog that is open.
void showHelp(const Texts& texts, QWidget& frame, std::int32_t topic);

} // namespace ko
