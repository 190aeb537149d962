#pragma once

#include "page/Page.h"
#include "widgets/bindings/FormView.h"

#include <QTimer>
#include <QWidget>

class QBoxLayout;
class QComboBox;
class QGridLayout;
class QLabel;
class QScrollArea;

namespace ko {

struct Quantity;

class NoInstrumentPicture;

/// The timebase page as a widget: measurements at the left, start and stop of the recording at the right, or one below
/// the other in a narrow window; scrolls in a small window. Without instruments it shows only the picture of the
/// no-instrument screen. The plan's sentence is below the scrolled area; its text can be selected and copied.
/// The answers to a refusal take its place.
///
/// The page must outlive the widget.
class PageWidget : public QWidget {
public:
    /// `menus` are the titles of the window's other menus, whose mnemonics no label uses.
    PageWidget(Page& page, const Texts& texts, QWidget* parent = nullptr, const QStringList& menus = {});
    ~PageWidget() override;

    [[nodiscard]] FormView& view() { return *view_; }
    [[nodiscard]] NoInstrumentPicture& noInstruments() { return *picture_; }
    /// The page's own menu, for the host's menu bar.
    [[nodiscard]] QMenu& menu() { return *menu_; }

    /// Scrolls a widget of the view into sight.
    void ensureWidgetVisible(QWidget* part);

    [[nodiscard]] QSize sizeHint() const override;
    /// The scrolled area takes any height; the window would otherwise open with the least one.
    [[nodiscard]] bool hasHeightForWidth() const override { return false; }

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    /// The answers are outside of the form's view, but in its tab order.
    bool focusNextPrevChild(bool next) override;

private:
    /// The columns of a frame's grid.
    enum Column { labels, fields, buttons };

    /// Creates a grid in the frame: a label column, a growing field column, and a button column.
    QGridLayout& framed(Frame& frame);
    void addQuantities(QGridLayout& grid, const Frame& frame);
    void addQuantity(QGridLayout& grid, const Quantity& quantity);
    /// Shows the period in engineering units in the tool tip of its field.
    void addPeriodTip(QWidget& field, const Quantity& quantity);
    void addValue(QGridLayout& grid, Label& label, Label& value);
    void addLimitedValue(QGridLayout& grid, Label& label, LimitedLabel& value);
    void addTime(QGridLayout& grid, OptionButton& option, TextBox& box, CommandButton& button, int buttonText);
    /// Adds a line with the day of a time and, if the time can be past, a warning.
    void addDay(QGridLayout& grid, Label& day, Label* past = nullptr);
    QWidget& kept(QWidget& widget);

    void layDynamic();
    void layStatic();
    void layStart();
    void layTrigger(QGridLayout& grid);
    void layStop();
    void nameUnit(QComboBox& unit);
    static QLayout* centred(QWidget& widget);
    void layColumns();
    /// The label of a page that is only read.
    QLabel& badge();
    void layPlan();
    /// Of two lines: the plan is never lower, so that a longer sentence seldom moves the page.
    [[nodiscard]] int planHeight() const;
    /// The controls shown after a refusal, in the place of the plan.
    void layAnswers();
    void showPlanOrAnswers();
    void alignLabels(const std::vector<QGridLayout*>& grids);
    /// The least width at which the columns are beside each other.
    [[nodiscard]] int columnsWidth() const;
    void arrange();
    /// Calls `Page::minutePassed` at the start of each minute, unless a dialog or a message is open.
    void followClock();
    void stretch(bool stacked);
    void applyMetrics();

    Page& page_;
    FormView* view_;
    NoInstrumentPicture* picture_;
    QMenu* menu_;
    QScrollArea* area_;
    QLabel* plan_ = nullptr;
    QWidget* answers_ = nullptr;
    QLabel* whatFits_ = nullptr;
    QWidget* content_ = nullptr;
    QBoxLayout* columns_ = nullptr;
    QBoxLayout* schedules_ = nullptr;
    QTimer minute_{this};
    std::vector<QGridLayout*> measurements_, schedule_;
};

} // namespace ko
