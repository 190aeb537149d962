#pragma once

#include "fakes/Sampled.h"
#include "widgets/support/Convert.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QStyledItemDelegate>
#include <gtest/gtest.h>
#include <set>

namespace ko::test {

/// A text that a file or a driver gives. Each has the same begin.
struct Hostile {
    const char* name;
    QString text;
    bool isVerbatim; ///< it is shown letter by letter

    friend std::ostream& operator<<(std::ostream& out, const Hostile& of) { return out << of.name; }
};

inline const QString hostileBegin = QStringLiteral("A word");

/// Blocks a view that treats it as HTML, and shows place holders that are filled in twice.
inline const Hostile hostiles[]{
    {"Html", hostileBegin + "[*]<img src=\"file:///dev/zero\">%1%2%3%4 & <b>x</b>", true},
    {"Lines", hostileBegin + "\nof\r\na\tfew\u2028lines\u2029" + QString("and more\n").repeated(50), false},
    {"Directions", hostileBegin + QStringLiteral("\u202E\u2066 drow A\u2069"), false},
    {"Endless", hostileBegin + QString("x").repeated((1 << 20) / sampledOneIn(1)), false}};

/// Checks that what is shown of a hostile text is plain and bounded.
class HostileViews {
public:
    /// What a text is shown in.
    enum class Place { Line, Cell, Lines };

    explicit HostileViews(const Hostile& hostile) : hostile_(hostile) {}

    /// Checks all texts that are not edited and returns how many contain the hostile text.
    int walk() const
    {
        int shown = 0;
        for (const QWidget* widget : QApplication::allWidgets()) {
            for (const QString& tip : {widget->toolTip(), widget->whatsThis()})
                expectPlainTip(tip, *widget);
            for (const QString& text : {widget->statusTip(), widget->accessibleName(), widget->accessibleDescription()})
                expectShown(text, Place::Lines, *widget);
            for (const QAction* action : widget->actions()) {
                expectPlainTip(action->toolTip(), *action);
                expectShown(action->text(), Place::Line, *action);
            }
            expectShown(widget->windowTitle(), Place::Line, *widget);
            shown += widget->isVisible() && widget->windowTitle().contains(hostileBegin) ? 1 : 0;
            if (widget->isVisible() && std::min(widget->minimumSizeHint().width(), widget->width()) > 1500 &&
                widget->minimumWidth() == 0)
                complain("too wide", *widget);
            if (const auto* label = qobject_cast<const QLabel*>(widget)) {
                const bool isTip = label->objectName() == "qtooltip_label"; // checked where it is set
                EXPECT_TRUE(isTip || label->textFormat() == Qt::PlainText || !Qt::mightBeRichText(label->text()))
                    << label->text().left(300).toStdString();
                shown += shownIn(label->text(), Place::Lines, *widget);
            }
            if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
                shown += shownIn(button->text(), Place::Line, *widget);
            const auto* view = qobject_cast<const QAbstractItemView*>(widget);
            const bool isHeader = qobject_cast<const QHeaderView*>(widget) != nullptr;
            shown += view && view->model() && !isHeader ? shownIn(*view) : 0;
        }
        return shown;
    }
    static void expectShown(const QString& text, Place place, const QObject& of)
    {
        const auto isTurning = [](QChar c) {
            return (c >= u'\u202A' && c <= u'\u202E') || (c >= u'\u2066' && c <= u'\u2069');
        };
        const auto isBreak = [](QChar c) { return c == u'\n' || c == u'\r' || c == u'\u2028' || c == u'\u2029'; };
        const bool isBroken = place == Place::Line && std::any_of(text.begin(), text.end(), isBreak);
        const bool isLong = text.size() > (text.startsWith("<p>") ? 50'000 : 5'000) ||
                            text.count('\n') > (place == Place::Cell ? 1 : 70);
        if (isBroken || isLong || std::any_of(text.begin(), text.end(), isTurning))
            complain(fromQt(text.left(100)), of);
    }
    static void expectPlainTip(const QString& tip, const QObject& of)
    {
        if (tip.contains("<img") || tip.contains("<i>"))
            complain(fromQt(tip), of);
        expectShown(tip, Place::Lines, of);
    }
    /// Checks the text and returns 1 if it contains the hostile one.
    int shownIn(const QString& text, Place place, const QObject& of) const
    {
        expectShown(text, place, of);
        return text.contains(hostile_.isVerbatim ? hostile_.text : hostileBegin) ? 1 : 0;
    }

private:
    /// Once for each object.
    static void complain(const std::string& what, const QObject& of)
    {
        static std::set<const QObject*> known;
        if (known.insert(&of).second)
            ADD_FAILURE() << of.metaObject()->className() << " " << fromQt(of.objectName()) << ": " << what;
    }
    int shownInHeader(const QAbstractItemModel& model, Qt::Orientation side, int count) const
    {
        int shown = 0;
        for (int i = 0; i < count; ++i) {
            shown += shownIn(model.headerData(i, side).toString(), Place::Cell, model);
            for (const int role : {Qt::ToolTipRole, Qt::WhatsThisRole})
                expectPlainTip(model.headerData(i, side, role).toString(), model);
        }
        return shown;
    }
    /// Counts the cells that show the hostile text.
    int shownIn(const QAbstractItemView& view, const QModelIndex& parent = {}) const
    {
        const QAbstractItemModel& model = *view.model();
        int shown = shownInHeader(model, Qt::Horizontal, model.columnCount(parent)) +
                    shownInHeader(model, Qt::Vertical, model.rowCount(parent));
        for (int row = 0; row < model.rowCount(parent); ++row)
            for (int column = 0; column < model.columnCount(parent); ++column) {
                const QModelIndex cell = model.index(row, column, parent);
                const auto* delegate = qobject_cast<QStyledItemDelegate*>(view.itemDelegateForIndex(cell));
                const QString text = delegate ? delegate->displayText(cell.data(), QLocale()) : cell.data().toString();
                shown += shownIn(text, Place::Cell, model);
                for (const int role : {Qt::ToolTipRole, Qt::WhatsThisRole})
                    expectPlainTip(cell.data(role).toString(), model);
                shown += model.hasChildren(cell) ? shownIn(view, cell) : 0;
            }
        return shown;
    }

    const Hostile& hostile_;
};

} // namespace ko::test
