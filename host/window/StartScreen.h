#pragma once

#include "host/window/StartEntry.h"
#include "widgets/support/Convert.h"

#include <QScrollArea>
#include <functional>

class QHBoxLayout;
class QLabel;
class QVBoxLayout;

namespace ko {

/// What the window shows in place of the page while no set-up is open: the templates, the demo, Open and the recent
/// files, as buttons. Files can also be dropped on it, as on the whole window.
class StartScreen : public QScrollArea {
public:
    StartScreen(Texts texts, QWidget* parent);

    /// Called when the user chooses a template or the demo, Open, or a recent file.
    std::function<void(const std::string& templateName)> begin;
    std::function<void()> open;
    std::function<void(const QString& file)> openRecent;

    /// Sets the preferred size: that of the page, which will need the room.
    void setSizeHint(const QSize& size) { sizeHint_ = size; }
    [[nodiscard]] QSize sizeHint() const override { return sizeHint_; }

    /// Shows these files, the latest first.
    void showRecent(const QStringList& files);

private:
    void addHeading(QVBoxLayout& rows);
    void addTemplates(QVBoxLayout& column);
    void addFiles(QVBoxLayout& column);
    void addTemplate(QVBoxLayout& column, const char* name, int title, int hint);
    StartEntry& addEntry(QVBoxLayout& column, QStyle::StandardPixmap sign, const QString& title, const QString& hint,
                         std::function<void()> act);

    Texts texts_;
    QVBoxLayout* recent_ = nullptr; ///< the entries of the recent files
    QLabel* noRecent_ = nullptr;
    QSize sizeHint_;
};

} // namespace ko
