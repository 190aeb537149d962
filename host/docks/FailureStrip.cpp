#include "host/docks/FailureStrip.h"

#include "host/docks/FailedSetting.h"
#include "host/support/HostTexts.h"
#include "platform/DateTimes.h"
#include "widgets/support/Convert.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/PlainText.h"
#include "widgets/support/ShownText.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QStyle>
#include <QTime>
#include <algorithm>

namespace ko {

namespace {

QAccessibleInterface* alertOf(const QString& className, QObject* object)
{
    auto* strip = className == QStringLiteral("QFrame") ? dynamic_cast<FailureStrip*>(object) : nullptr;
    return strip ? new QAccessibleWidget(strip, QAccessible::AlertMessage) : nullptr;
}

QString timeText(DateTime time)
{
    const DateParts parts = dateParts(time);
    return QTime(parts.hour, parts.minute, parts.second).toString(QStringLiteral("HH:mm:ss"));
}

} // namespace

FailureStrip::FailureStrip(const Texts& texts, QWidget* parent)
    : QFrame(parent), texts_(texts), sign_(new PlainLabel(this)), heading_(new PlainLabel(this)),
      more_(new PlainLabel(this)), list_(new QListWidget(this)),
      button_(new QPushButton(texts(hostText::tryAgain), this))
{
    QAccessible::installFactory(alertOf);
    setObjectName(QStringLiteral("failures"));
    setFrameShape(QFrame::StyledPanel);
    heading_->setObjectName(QStringLiteral("failingCount"));
    list_->setAccessibleName(texts(hostText::failingInstruments));
    list_->setUniformItemSizes(true); // fast for thousands of instruments
    list_->setTextElideMode(Qt::ElideRight);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    button_->setObjectName(QStringLiteral("tryAgain"));
    button_->setToolTip(plainTip(texts(hostText::tryAgainHint)));
    button_->setStatusTip(texts(hostText::tryAgainHint));
    // Auto-default: Enter presses it, too.
    button_->setAutoDefault(true);
    makeLayout();
    onSignal(&idle_, &QTimer::timeout, this, [this] { refresh(); });
    onSignal(&quiet_, &QTimer::timeout, this, [this] { settle(); });
    onSignal(button_, &QPushButton::clicked, this, [this] { tryAgain ? tryAgain() : void(); });
    hide();
}

void FailureStrip::makeLayout()
{
    auto* title = new QHBoxLayout;
    title->addWidget(sign_);
    title->addWidget(heading_, 1);
    title->addWidget(more_);
    auto* column = new QVBoxLayout;
    column->addLayout(title);
    column->addWidget(list_);
    auto* whole = new QHBoxLayout(this);
    const int gap = fontMetrics().height() / 3;
    whole->setContentsMargins(gap, gap, gap, gap);
    whole->addLayout(column, 1);
    whole->addWidget(button_, 0, Qt::AlignBottom);
}

void FailureStrip::refreshLater()
{
    if (!idle_.isActive())
        idle_.start(0);
}

void FailureStrip::forget()
{
    idle_.stop();
    quiet_.stop();
    list_->clear();
    announced_.clear();
    room_ = 0;
    hide();
}

std::vector<FailureStrip::Line> FailureStrip::lines() const
{
    std::vector<Line> lines;
    if (failing)
        for (const DriverFailure& failure : failing())
            lines.push_back({std::to_string(failure.driver), lineOf(failure)});
    if (recordingFailures)
        for (Line& line : recordingFailures())
            lines.push_back({"recording " + line.key, std::move(line.text)});
    return lines;
}

void FailureStrip::refresh()
{
    const std::vector<Line> failures = lines();
    if (failures.empty() && isHidden())
        return;
    showLines(failures);
    const int shown = std::min(static_cast<int>(failures.size()), mostLines);
    if (shown > room_) {
        makeRoom(shown);
        show();
        if (grown)
            grown();
    }
    announce(failures);
    quiet_.start(quietTime);
}

void FailureStrip::showLines(const std::vector<Line>& lines)
{
    const auto count = static_cast<int>(lines.size());
    while (list_->count() > count)
        delete list_->takeItem(list_->count() - 1);
    while (list_->count() < count)
        list_->addItem(QString());
    for (int line = 0; line < count; ++line) {
        const QString& text = lines[static_cast<std::size_t>(line)].text;
        list_->item(line)->setText(text);
        list_->item(line)->setToolTip(plainTip(text));
    }
    showHeading(count);
}

void FailureStrip::showHeading(int count)
{
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    const auto sign = count > 0 ? QStyle::SP_MessageBoxWarning : QStyle::SP_DialogApplyButton;
    sign_->setPixmap(style()->standardIcon(sign, nullptr, this).pixmap(size, size));
    heading_->setText(count > 0 ? texts_(hostText::failingCount).arg(count) : texts_(hostText::allAnswer));
    more_->setText(count > mostLines ? texts_(hostText::failingMore).arg(count - mostLines) : QString());
}

void FailureStrip::makeRoom(int lines)
{
    room_ = lines;
    list_->setFixedHeight(lines * std::max(list_->sizeHintForRow(0), fontMetrics().height()) + 2 * list_->frameWidth());
}

/// Shrinks or hides the strip after a pause without changes.
void FailureStrip::settle()
{
    if (list_->count() > 0)
        return makeRoom(std::min(list_->count(), mostLines));
    room_ = 0;
    if (isAncestorOf(window()->focusWidget()) && leaving)
        leaving();
    hide();
}

/// Sends an alert to screen readers only for a newly failing driver; one that keeps failing would interrupt every
/// keystroke.
void FailureStrip::announce(const std::vector<Line>& lines)
{
    std::vector<std::string> keys;
    QString news;
    for (const Line& line : lines) {
        keys.push_back(line.key);
        if (news.isEmpty() && std::find(announced_.begin(), announced_.end(), line.key) == announced_.end())
            news = line.text;
    }
    const bool isOver = keys.empty() && !announced_.empty();
    announced_ = std::move(keys);
    if (news.isEmpty() && !isOver)
        return;
    setAccessibleName(isOver ? heading_->text() : heading_->text() + u'\n' + news);
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

QString FailureStrip::lineOf(const DriverFailure& failure) const
{
    const QString reason = QStringLiteral("%1 (%2)").arg(toLine(failure.reason), QString::number(failure.number));
    return texts_(hostText::failingLine)
        .arg(toLine(failure.name), failedSetting(failure.operation, texts_), timeText(failure.time), reason);
}

} // namespace ko
