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

/// The surface on which a form is shown: makes the widgets of its controls, bound to them, and keeps the focus with
/// the form. Whoever lays the form out puts the widgets where they belong; the surface owns them.
///
/// The form outlives its view, and has one view at a time. The view may be destroyed at any time, also by what the user
/// does in it.
class FormView : public QWidget {
public:
    FormView(Form& form, Texts texts, QWidget* parent = nullptr);
    ~FormView() override;

    [[nodiscard]] Form& form() const { return form_; }
    [[nodiscard]] FocusKeeper& focus() { return focus_; }
    [[nodiscard]] UserActions& actions() { return actions_; }
    [[nodiscard]] QString text(int number) const { return texts_(number); }

    QLineEdit& textBox(TextBox& control);
    /// A text box for numbers, which stand at the right.
    QLineEdit& numberBox(TextBox& control);
    QComboBox& comboBox(ComboBox& control);
    /// A list of numbers, which stand at the right.
    QComboBox& numberList(ComboBox& control);
    QRadioButton& option(OptionButton& control);
    QPushButton& button(CommandButton& control);
    /// `fields` are what the label names, made before it: its mnemonic leads to the one that is shown, and they take
    /// their accessible names from it.
    QLabel& label(Label& control, const std::vector<Control*>& fields = {});
    /// A value that the form shows, named by `title`.
    QLabel& value(Label& control, Label& title);
    /// The same with a bar, of the caller's making, for how much of its limit the value takes.
    QLabel& limitedValue(LimitedLabel& control, Label& title, QProgressBar& bar);
    /// A sentence in as many lines as it needs.
    QLabel& sentence(Label& control);
    /// The caption is the box's title, or stands in `heading`, where it can take several lines.
    QGroupBox& frame(Frame& control, QLabel* heading = nullptr);
    QTableWidget& grid(Grid& control);
    QTableWidget& table(Table& control);
    /// The tabs' frames are made before it.
    QTabWidget& tabs(TabControl& control);
    ChannelBrowser& channelBrowser(ChannelSelector& control);
    QCalendarWidget& calendar(Calendar& control);
    /// Shows the time in the format of `locale`.
    QTimeEdit& timePicker(TimePicker& control);
    QWidget& picture(PictureBox& control);
    /// Shows an image in `picture`, a widget of the caller's making; a click on it clicks the image.
    void image(Image& control, QWidget& picture);
    /// A menu with the items that stand in it.
    QMenu& menu(Menu& control, const std::vector<Menu*>& items);

    /// Letters that these captions mark lead elsewhere. Said before any label is made.
    void reserveMnemonics(const QStringList& captions) { reserved_ = captions; }
    /// A caption with the mnemonic that leads to what it names. The form has its captions by then.
    QString withMnemonic(const QString& caption);

    /// The widget of a control, null when it has none.
    [[nodiscard]] QWidget* widget(const Control& control) const;

    /// The form's caption, its place, the control that has the focus, or a control's mark has changed.
    std::function<void()> formChanged;

    /// Has the form do what the user wants. Whether the view is still there then, and so the binding that has called.
    template <class Act> bool act(Act&& act) { return actions_.run(std::forward<Act>(act)); }

protected:
    bool focusNextPrevChild(bool next) override { return focus_.step(next); }
    /// The form takes the view's size.
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
