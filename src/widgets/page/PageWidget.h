#pragma once

#include "page/Page.h"
#include "widgets/bindings/FormView.h"

#include <QScrollArea>

class QBoxLayout;
class QGridLayout;
class QLabel;

namespace ko {

struct Quantity;

class NoInstrumentPicture;

/// The timebase page as a widget: measurements at the left, start and stop of the recording at the right, or one below
/// the other in a narrow window; scrolls in a small window. Without instruments it shows only the picture of the
/// no-instrument screen. The plan's sentence is below the scrolled area; the answers to a refusal take its place.
///
/// The page must outlive the widget.
class PageWidget : public QScrollArea {
public:
    /// `menus` are the titles of the window's other menus, whose mnemonics no label uses.
    PageWidget(Page& page, const Texts& texts, QWidget* parent = nullptr, const QStringList& menus = {});
    ~PageWidget() override;

    [[nodiscard]] FormView& view() { return *view_; }
    /// The page's own menu, for the host's menu bar.
    [[nodiscard]] QMenu& menu() { return *menu_; }

    [[nodiscard]] QSize sizeHint() const override;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;
    /// The answers are outside of the form's view.
    bool focusNextPrevChild(bool next) override { return view_->focus().step(next); }

private:
    /// Creates a grid in the frame: a label column, a growing field column, and a button column.
    QGridLayout& framed(Frame& frame);
    void addQuantities(QGridLayout& grid, const Frame& frame);
    void addQuantity(QGridLayout& grid, const Quantity& quantity);
    void addValue(QGridLayout& grid, Label& label, Label& value);
    void addLimitedValue(QGridLayout& grid, Label& label, LimitedLabel& value);
    void addTime(QGridLayout& grid, OptionButton& option, TextBox& box, CommandButton& button, int buttonText);
    QWidget& kept(QWidget& widget);

    void layDynamic();
    void layStatic();
    void layStart();
    void layTrigger(QGridLayout& grid);
    void layStop();
    void layColumns();
    void layPlan();
    /// The controls shown after a refusal, in the place of the plan.
    void layAnswers();
    void placePlan();
    [[nodiscard]] int planHeight(int width) const;
    [[nodiscard]] int answersHeight(int width) const;
    void alignLabels(const std::vector<QGridLayout*>& grids);
    void arrange();
    void stretch(bool stacked);
    void applyMetrics();

    Page& page_;
    FormView* view_;
    NoInstrumentPicture* picture_;
    QMenu* menu_;
    QLabel* plan_ = nullptr;
    QWidget* answers_ = nullptr;
    QLabel* whatFits_ = nullptr;
    QWidget* content_ = nullptr;
    QBoxLayout* columns_ = nullptr;
    QBoxLayout* schedules_ = nullptr;
    std::vector<QGridLayout*> measurements_, schedule_;
};

} // namespace ko
