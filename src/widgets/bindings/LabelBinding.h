#pragma once

#include "platform/CaptionControls.h"
#include "widgets/bindings/Binding.h"
#include "widgets/support/Delay.h"

#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <vector>

namespace ko {

/// A label that names fields: its buddy is the field that is currently shown, for which it has a mnemonic.
class LabelBinding : public Binding {
public:
    struct Field {
        Control* control = nullptr;
        QPointer<QWidget> widget;
    };

    LabelBinding(FormView& view, Label& control, QLabel& label, std::vector<Field> fields);

    bool eventFilter(QObject* object, QEvent* event) override;

protected:
    void refresh(Aspect aspect) override;
    void refreshHint() override;
    [[nodiscard]] bool showsValue() const override { return true; }

private:
    [[nodiscard]] const Field* shownField() const;
    void showBuddy();

    Label& caption_;
    QLabel& label_;
    std::vector<Field> fields_;
};

/// A label whose caption is a value; screen readers read it together with the caption of the label that names it.
class ValueBinding : public Binding {
public:
    ValueBinding(FormView& view, Label& control, QLabel& label, Label& title);

protected:
    void refresh(Aspect aspect) override;
    void refreshHint() override {}
    [[nodiscard]] bool showsValue() const override { return true; }
    /// Whether the caption is a value, not the text for "not available".
    [[nodiscard]] bool isKnown() const;

private:
    Label& value_;
    QLabel& label_;
    Label& title_;
};

/// A value with a limit, and a bar that shows how much of the limit it uses.
class LimitedValueBinding : public ValueBinding {
public:
    LimitedValueBinding(FormView& view, LimitedLabel& control, QLabel& label, Label& title, QProgressBar& bar);

protected:
    void refresh(Aspect aspect) override;

private:
    void showShare();

    LimitedLabel& limited_;
    QProgressBar& bar_;
};

/// A label whose caption is a sentence that changes while the user types. It is shown at once, but announced to screen
/// readers only after a pause, so that it is not read at every key.
class SentenceBinding : public Binding {
public:
    SentenceBinding(FormView& view, Label& control, QLabel& label);

    bool eventFilter(QObject* object, QEvent* event) override;

protected:
    void refresh(Aspect aspect) override;
    void refreshHint() override {}

private:
    Label& sentence_;
    QLabel& label_;
    Delay pause_;
};

} // namespace ko
