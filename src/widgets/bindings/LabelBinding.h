#pragma once

#include "platform/CaptionControls.h"
#include "widgets/bindings/Binding.h"

#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QTimer>
#include <vector>

namespace ko {

/// A label that names fields: it is the buddy of the field that is shown at the time, and has a mnemonic for it.
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

private:
    [[nodiscard]] const Field* shownField() const;
    void showBuddy();

    Label& caption_;
    QLabel& label_;
    std::vector<Field> fields_;
};

/// A label whose caption is a value: it is read out together with the caption of the label that names it.
class ValueBinding : public Binding {
public:
    ValueBinding(FormView& view, Label& control, QLabel& label, Label& title);

protected:
    void refresh(Aspect aspect) override;
    void refreshHint() override {}
    /// The caption is a value, not the text that stands for none.
    [[nodiscard]] bool isKnown() const;

private:
    Label& value_;
    QLabel& label_;
    Label& title_;
};

/// A value with a limit, and a bar for how much of the limit it takes.
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

/// A label whose caption is a sentence that follows what the user does. It is shown at once, and read out when it has
/// stayed for a moment, so that it is not read at every key.
class SentenceBinding : public Binding {
public:
    SentenceBinding(FormView& view, Label& control, QLabel& label);

protected:
    void refresh(Aspect aspect) override;
    void refreshHint() override {}

private:
    Label& sentence_;
    QLabel& label_;
    QTimer pause_;
};

} // namespace ko
