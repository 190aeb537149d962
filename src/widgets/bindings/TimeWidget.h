#pragma once

#include <QTimeEdit>

namespace ko {

/// A time edit in which a time can be typed as it is written, from any section or over the whole selected text:
/// digits, any separators, and AM or PM, or the locale's words for them, also in a 24-hour format. Hours up to 23 are
/// taken in every format. A separator after a completed section is optional.
class TimeWidget : public QTimeEdit {
public:
    using QTimeEdit::QTimeEdit;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    void type(const QString& text);
    void typeCharacter(QChar typed);
    void startTyping();
    void typeDigit(int digit);
    bool typeDesignator(QChar typed);
    void advance();
    void setHour(int hour) { setTime({hour, time().minute(), time().second()}); }
    void setNumber();
    [[nodiscard]] int largest() const { return section_ == HourSection ? 23 : 59; }
    [[nodiscard]] bool hasDesignator() const { return (displayedSections() & AmPmSection) != 0; }

    Section section_ = NoSection; ///< in which the user types
    int number_ = 0;              ///< as typed in the section
    int digits_ = 0;
    bool isPastSection_ = false; ///< the section was entered by completing the one before; a separator may follow
    QString word_;               ///< the start of a designator
};

} // namespace ko
