#include "host/recording_view/RecordQuestions.h"

#include "host/recording_view/RecordDialog.h"
#include "host/support/HostTexts.h"
#include "widgets/support/Modal.h"
#include "widgets/support/PlainText.h"

#include <QPushButton>

namespace ko {

namespace recordText = textNumber::record;

PastStart askPastStart(QWidget& window, const Texts& texts, const QString& time, const QString& tomorrow)
{
    Modal<PlainBox> box(QMessageBox::Question, texts(recordText::title), texts(recordText::startIsPast).arg(time),
                        texts(recordText::startHint), QMessageBox::Cancel, &window);
    auto* const now = box->addButton(texts(recordText::startNow), QMessageBox::AcceptRole);
    const auto* const nextDay = box->addButton(texts(recordText::startTomorrow).arg(tomorrow), QMessageBox::AcceptRole);
    box->setDefaultButton(now);
    const auto* const answer = box.answer();
    if (!answer)
        return PastStart::Cancel;
    if (answer == now)
        return PastStart::Now;
    return answer == nextDay ? PastStart::Tomorrow : PastStart::Cancel;
}

std::string askFileToRecord(QWidget& window, const Texts& texts, const Locale& locale, const RecordOffer& offer)
{
    Modal<RecordDialog> dialog(&window, texts, locale, offer);
    return dialog.isAccepted() ? dialog->file() : std::string();
}

bool askToStop(QWidget& window, const Texts& texts)
{
    Modal<PlainBox> box(QMessageBox::Question, texts(recordText::title), texts(recordText::isRecording),
                        texts(recordText::stopQuestion), QMessageBox::Cancel, &window);
    const auto* const stop = box->addButton(withoutMnemonic(texts(recordText::stop)), QMessageBox::DestructiveRole);
    box->setDefaultButton(QMessageBox::Cancel);
    const auto* const answer = box.answer();
    return answer && answer == stop;
}

} // namespace ko
