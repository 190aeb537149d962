#pragma once

#include "platform/TextBox.h"
#include "widgets/Binding.h"

#include <QLineEdit>

namespace ko {

/// A text box in a line edit.
class TextBoxBinding : public Binding {
public:
    TextBoxBinding(FormView& view, TextBox& control, QLineEdit& edit);

    bool eventFilter(QObject* object, QEvent* event) override;

protected:
    void refresh(Aspect aspect) override;
    void refreshHint() override;

private:
    void edited();
    void selected();
    void showText();
    void showSelection();
    void showMark();

    TextBox& box_;
    QLineEdit& edit_;
    QAction* mark_ = nullptr;
    bool showing_ = false;
};

} // namespace ko
