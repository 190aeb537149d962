#include "host/recording_view/RecordingView.h"

#include "host/support/HostTexts.h"
#include "host/toolkit/HintLine.h"
#include "host/toolkit/SizeText.h"
#include "platform/NumberText.h"
#include "widgets/support/Convert.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/PlainText.h"
#include "widgets/support/ShownText.h"

#include <QAccessible>
#include <QBoxLayout>
#include <QDesktopServices>
#include <QFileInfo>
#include <QHeaderView>
#include <QProgressBar>
#include <QPushButton>
#include <QTableWidget>
#include <QUrl>
#include <algorithm>

namespace ko {

namespace {

namespace recordText = textNumber::record;

enum SummaryColumn { Promised, Held, Lost, Size, summaryColumns };

QTableWidgetItem* cell(const QString& text)
{
    auto* const item = new QTableWidgetItem(text);
    item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return item;
}

} // namespace

RecordingView::RecordingView(Texts texts, const Locale& locale, QWidget* parent)
    : QDockWidget(withoutMnemonic(texts(recordText::dock)), parent), texts_(std::move(texts)), locale_(locale),
      state_(new PlainLabel(this)), details_(new PlainLabel(this)), progress_(new QProgressBar(this)),
      file_(new HintLine(this)), folder_(new QPushButton(texts_(recordText::showInFolder), this)),
      summary_(new QTableWidget(0, summaryColumns, this))
{
    setObjectName(QStringLiteral("recordingDock"));
    state_->setObjectName(QStringLiteral("recordingState"));
    details_->setObjectName(QStringLiteral("recordingDetails"));
    for (QLabel* const label : {state_, details_})
        label->setWordWrap(true);
    QFont bold = font();
    bold.setBold(true);
    state_->setFont(bold);
    progress_->setAccessibleName(windowTitle());
    progress_->setRange(0, 1000);
    folder_->setAutoDefault(true);
    QStringList headers;
    for (const int text : {recordText::promised, recordText::held, recordText::lost, recordText::size})
        headers << texts_(text);
    summary_->setHorizontalHeaderLabels(headers);
    summary_->setAccessibleName(windowTitle());
    summary_->setTabKeyNavigation(false);
    summary_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    makeLayout();
    onSignal(folder_, &QPushButton::clicked, this, [this] { showFolder(); });
    showNote(texts_(recordText::none));
}

void RecordingView::makeLayout()
{
    auto* const content = new QWidget(this);
    column_ = new QVBoxLayout(content);
    auto* const line = new QHBoxLayout;
    line->addWidget(state_, 1);
    line->addWidget(progress_, 1);
    column_->addLayout(line);
    column_->addWidget(details_);
    auto* const where = new QHBoxLayout;
    where->addWidget(file_, 1);
    where->addWidget(folder_);
    column_->addLayout(where);
    column_->addWidget(summary_);
    setWidget(content);
}

void RecordingView::add(QWidget& widget)
{
    column_->addWidget(&widget, 1);
    setFocusProxy(&widget);
}

QString RecordingView::stateText() const
{
    return state_->text();
}

void RecordingView::showRun(const RunText& text)
{
    const QString was = state_->text().section(u',', 0, 0);
    state_->setText(text.state);
    details_->setText(text.details);
    details_->setVisible(!text.details.isEmpty());
    progress_->setVisible(text.share >= 0.0);
    progress_->setValue(static_cast<int>(text.share * 1000.0));
    for (QWidget* const widget :
         {static_cast<QWidget*>(file_), static_cast<QWidget*>(folder_), static_cast<QWidget*>(summary_)})
        widget->hide();
    if (text.state.section(u',', 0, 0) != was)
        announce(text.state);
}

void RecordingView::showEnd(const std::string& file, const HeldRecording& held, const QString& reason)
{
    state_->setText(endText(held.state, texts_));
    details_->setText(reason);
    details_->setVisible(!reason.isEmpty());
    progress_->hide();
    path_ = toQt(file);
    file_->setText(toLine(file));
    fillSummary(held);
    for (QWidget* const widget :
         {static_cast<QWidget*>(file_), static_cast<QWidget*>(folder_), static_cast<QWidget*>(summary_)})
        widget->setVisible(true);
    announce(state_->text());
}

void RecordingView::showNote(const QString& text)
{
    showRun({text, {}});
}

void RecordingView::fillSummary(const HeldRecording& held)
{
    const auto count = [this](std::int64_t number) { return toQt(countText(number, locale_)); };
    QStringList names;
    summary_->setRowCount(static_cast<int>(held.instruments.size()));
    for (int row = 0; row < summary_->rowCount(); ++row) {
        const HeldInstrument& it = held.instruments[static_cast<std::size_t>(row)];
        names << toLine(it.name);
        summary_->setItem(row, Promised, cell(it.promised ? count(*it.promised) : QString()));
        summary_->setItem(row, Held, cell(count(it.samples)));
        summary_->setItem(row, Lost, cell(count(it.lost)));
        summary_->setItem(row, Size, cell(sizeText(it.bytes, texts_, locale_)));
    }
    summary_->setVerticalHeaderLabels(names);
    // As high as its rows, up to a limit: the chart gets the rest.
    constexpr int mostRows = 4;
    const int rows = std::min(summary_->rowCount(), mostRows);
    summary_->setFixedHeight(summary_->horizontalHeader()->sizeHint().height() + rows * summary_->rowHeight(0) +
                             2 * summary_->frameWidth());
}

void RecordingView::announce(const QString& text)
{
    setAccessibleDescription(text);
    QAccessibleEvent alert(state_, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void RecordingView::showFolder() const
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(path_).absolutePath()));
}

} // namespace ko
