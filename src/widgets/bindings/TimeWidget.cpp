#include "widgets/bindings/TimeWidget.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <utility>

namespace ko {

namespace {

constexpr int halfDay = 12;

bool isTyped(const QKeyEvent& key)
{
    const bool isCommand = key.modifiers().testAnyFlags(Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return !isCommand && !key.text().isEmpty() && key.text().front().isPrint();
}

bool isModifier(int key)
{
    return key == Qt::Key_Shift || key == Qt::Key_AltGr;
}

} // namespace

void TimeWidget::keyPressEvent(QKeyEvent* event)
{
    if (isTyped(*event)) {
        type(event->text());
    } else if (event->matches(QKeySequence::Paste)) {
        section_ = NoSection;
        type(QGuiApplication::clipboard()->text().trimmed());
    } else {
        if (!isModifier(event->key()))
            section_ = NoSection;
        QTimeEdit::keyPressEvent(event);
    }
}

void TimeWidget::inputMethodEvent(QInputMethodEvent* event)
{
    type(event->commitString());
}

void TimeWidget::focusInEvent(QFocusEvent* event)
{
    QTimeEdit::focusInEvent(event);
    section_ = NoSection;
    if (event->reason() == Qt::OtherFocusReason)
        setSelectedSection(sectionAt(0));
}

void TimeWidget::type(const QString& text)
{
    for (const QChar typed : text)
        typeCharacter(typed);
}

void TimeWidget::typeCharacter(QChar typed)
{
    if (currentSection() != section_ || lineEdit()->selectedText() != sectionText(section_))
        startTyping();
    if (typed.isDigit())
        typeDigit(typed.digitValue());
    else if (!typeDesignator(typed) && (!typed.isLetter() || text().contains(typed)) &&
             !std::exchange(isPastSection_, true))
        advance();
    setSelectedSection(section_);
}

void TimeWidget::startTyping()
{
    const bool isAll = lineEdit()->selectedText() == text();
    section_ = isAll || currentSection() == NoSection ? sectionAt(0) : currentSection();
    number_ = digits_ = 0;
    isPastSection_ = false;
    word_.clear();
}

void TimeWidget::typeDigit(int digit)
{
    const bool isFull = digits_ == 2 || number_ * 10 + digit > largest();
    if (section_ == AmPmSection && section_ == sectionAt(sectionCount() - 1))
        section_ = sectionAt(0);
    else if (section_ == AmPmSection || isFull)
        advance();
    word_.clear();
    isPastSection_ = false;
    number_ = number_ * 10 + digit;
    ++digits_;
    setNumber();
    if (digits_ == 2 || number_ * 10 > largest()) {
        advance();
        isPastSection_ = true;
    }
}

void TimeWidget::setNumber()
{
    const QTime now = time();
    switch (section_) {
    case MinuteSection: setTime({now.hour(), number_, now.second()}); break;
    case SecondSection: setTime({now.hour(), now.minute(), number_}); break;
    case HourSection: {
        // An hour without AM or PM leaves it as it was; "00" is midnight.
        const bool isOfTwelve = hasDesignator() && number_ <= halfDay && (number_ > 0 || digits_ < 2);
        setHour(isOfTwelve ? number_ % halfDay + now.hour() / halfDay * halfDay : number_);
        break;
    }
    default: break;
    }
}

/// Returns whether the character is part of a designator, which takes effect once it differs from the other one.
bool TimeWidget::typeDesignator(QChar typed)
{
    const auto starts = [](const QString& word, const QString& local, const char* english) {
        return local.startsWith(word, Qt::CaseInsensitive) ||
               QString::fromLatin1(english).startsWith(word, Qt::CaseInsensitive);
    };
    for (const QString& word : {word_ + typed, QString(typed)}) {
        const bool isMorning = starts(word, locale().amText(), "AM");
        const bool isEvening = starts(word, locale().pmText(), "PM");
        if (!isMorning && !isEvening)
            continue;
        word_ = word;
        if (isMorning != isEvening)
            setHour(time().hour() % halfDay + (isEvening ? halfDay : 0));
        if (hasDesignator())
            section_ = AmPmSection;
        isPastSection_ = false;
        return true;
    }
    return false;
}

/// Moves to the next section, if there is one.
void TimeWidget::advance()
{
    for (int i = 0; i + 1 < sectionCount(); ++i)
        if (sectionAt(i) == section_) {
            section_ = sectionAt(i + 1);
            break;
        }
    number_ = digits_ = 0;
}

} // namespace ko
