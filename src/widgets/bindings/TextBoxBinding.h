#pragma once

#include "platform/TextBox.h"
#include "widgets/bindings/Binding.h"

#include <QLineEdit>

namespace ko {

class EntryMark;

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
    bool reverts(const QKeyEvent& key);
    bool takesDrop(QDropEvent& drop);
    void followFocus(bool came);

    TextBox& box_;
    QLineEdit& edit_;
    EntryMark* mark_ = nullptr; ///< created for the first invalid entry
    bool showing_ = false;
    bool isAway_ = false; ///< the box had the focus and has lost it
};

} // namespace ko
