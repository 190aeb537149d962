#pragma once

#include "platform/CaptionControls.h"
#include "platform/ComboBox.h"
#include "platform/Grid.h"
#include "platform/TextBox.h"
#include "widgets/bindings/Binding.h"
#include "widgets/bindings/FocusKeeper.h"
#include "widgets/bindings/Mnemonics.h"
#include "widgets/support/UserActions.h"

#include <QWidget>
#include <map>
#include <memory>
#include <optional>

class QCalendarWidget;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QMenu;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QTabWidget;
class QTableWidget;
class QTimeEdit;

namespace ko {

class Calendar;
class ChannelBrowser;
class ChannelSelector;
class PictureBox;
class TabControl;
class Table;
class TimePicker;
class Timeline;

/// The surface that shows a form: creates the widgets of its controls, bound to them, and keeps the focus in line with
/// the form. The caller lays out the widgets; the surface owns them.
///
/// The form must outlive its view, and has one view at a time. The view may be destroyed at any time, also during a
/// user's action in it.
class FormView : public QWidget {
public:
    FormView(Form& form, Texts texts, QWidget* parent = nullptr);
    ~FormView() override;

    [[nodiscard]] Form& form() const { return form_; }
    [[nodiscard]] FocusKeeper& focus() { return focus_; }
    [[nodiscard]] UserActions& actions() { return actions_; }
    [[nodiscard]] QString text(int number) const { return texts_(number); }

    QLineEdit& textBox(TextBox& control);
    /// A text box for numbers, which are right-aligned.
    QLineEdit& numberBox(TextBox& control);
    QComboBox& comboBox(ComboBox& control);
    /// A list of numbers, which are right-aligned.
    QComboBox& numberList(ComboBox& control);
    QRadioButton& option(OptionButton& control);
    QPushButton& button(CommandButton& control);
    /// `fields` are the controls that the label names, created before it: its mnemonic focuses the visible one, and
    /// they take their accessible names from the label.
    QLabel& label(Label& control, const std::vector<Control*>& fields = {});
    /// A label with a warning sign.
    QLabel& warning(Label& control);
    /// A displayed value, named by `title`.
    QLabel& value(Label& control, Label& title);
    /// As `value`, with a bar created by the caller that shows how much of its limit the value uses.
    QLabel& limitedValue(LimitedLabel& control, Label& title, QProgressBar& bar);
    /// A sentence, wrapped to as many lines as needed.
    QLabel& sentence(Label& control);
    /// The caption is the box's title or, if given, the text of `heading`, which can have several lines.
    QGroupBox& frame(Frame& control, QLabel* heading = nullptr);
    QTableWidget& grid(Grid& control);
    QTableWidget& table(Table& control);
    /// The tabs' frames must be created before.
    QTabWidget& tabs(TabControl& control);
    ChannelBrowser& channelBrowser(ChannelSelector& control);
    QCalendarWidget& calendar(Calendar& control);
    /// Shows the time in the control's format.
    QTimeEdit& timePicker(TimePicker& control);
    QWidget& picture(PictureBox& control);
    QWidget& timeline(Timeline& control);
    /// Shows an image in `picture`, a widget created by the caller; a click on it clicks the image.
    void image(Image& control, QWidget& picture);
    /// A menu with its items.
    QMenu& menu(Menu& control, const std::vector<Menu*>& items);

    /// Reserves the mnemonics of these captions for other widgets. Must be called before any label is created.
    void reserveMnemonics(const QStringList& captions) { reserved_ = captions; }
    /// A caption with a mnemonic. The form's captions must be loaded before.
    QString withMnemonic(const QString& caption);

    /// The widget of a control; null when it has none.
    [[nodiscard]] QWidget* widget(const Control& control) const;

    /// Called when the form's caption, its position, its focused control or a control's mark has changed.
    std::function<void()> formChanged;

    /// Runs a user's action. Returns whether the view, and so the binding that called, still exists afterwards.
    template <class Act> bool act(Act&& act) { return actions_.run(std::forward<Act>(act)); }

protected:
    bool focusNextPrevChild(bool next) override { return focus_.step(next); }
    /// Sets the form's size to the view's.
    void tellSize();

private:
    template <class B, class C, class W, class... More> W& bind(C& control, W* widget, More&&... more);

    Form& form_;
    Texts texts_;
    UserActions actions_;
    FocusKeeper focus_;
    QStringList reserved_;
    std::optional<Mnemonics> mnemonics_;
    std::map<const Control*, std::unique_ptr<QObject>> bindings_;
    std::map<const Control*, QWidget*> widgets_;
};

} // namespace ko
