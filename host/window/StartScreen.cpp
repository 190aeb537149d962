#include "host/window/StartScreen.h"

#include "host/support/HostTexts.h"
#include "widgets/support/Convert.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/PlainText.h"
#include "widgets/support/ShownText.h"

#include <QFileInfo>
#include <QVBoxLayout>

namespace ko {

namespace {

namespace startText = textNumber::start;

QLabel& addTitle(QVBoxLayout& column, const QString& text, double scale)
{
    auto* title = new PlainLabel(text, column.parentWidget());
    QFont font = title->font();
    font.setPointSizeF(font.pointSizeF() * scale);
    font.setWeight(QFont::DemiBold);
    title->setFont(font);
    title->setWordWrap(true);
    column.addWidget(title);
    return *title;
}

} // namespace

StartScreen::StartScreen(Texts texts, QWidget* parent) : QScrollArea(parent), texts_(std::move(texts))
{
    setObjectName(QStringLiteral("start"));
    setFrameShape(NoFrame);
    setWidgetResizable(true);
    auto* content = new QWidget(this);
    setAccessibleName(texts_(startText::title));
    auto* rows = new QVBoxLayout(content);
    addHeading(*rows);
    auto* columns = new QHBoxLayout;
    rows->addLayout(columns);
    rows->addStretch(1);
    columns->setSpacing(2 * fontMetrics().height());
    for (const auto fill : {&StartScreen::addTemplates, &StartScreen::addFiles}) {
        auto* side = new QWidget(content);
        auto* column = new QVBoxLayout(side);
        column->setContentsMargins(0, 0, 0, 0);
        column->setSpacing(0);
        columns->addWidget(side);
        (this->*fill)(*column);
        column->addStretch(1);
    }
    setWidget(content);
    setFocusProxy(content->findChild<StartEntry*>());
    viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
}

void StartScreen::addHeading(QVBoxLayout& rows)
{
    const int margin = fontMetrics().height();
    rows.setContentsMargins(2 * margin, margin, 2 * margin, margin);
    addTitle(rows, texts_(startText::title), 1.5);
    auto* more = new PlainLabel(texts_(startText::more), rows.parentWidget());
    more->setWordWrap(true);
    rows.addWidget(more);
    rows.addSpacing(margin / 2);
}

void StartScreen::addTemplates(QVBoxLayout& column)
{
    namespace newText = textNumber::newSetup;
    addTitle(column, texts_(startText::newGroup), 1.1);
    addTemplate(column, "empty", newText::empty, startText::emptyHint);
    addTemplate(column, "vibration", newText::vibration, startText::vibrationHint);
    addTemplate(column, "temperature-logging", newText::temperatures, startText::temperaturesHint);
    addTemplate(column, "mixed", newText::mixed, startText::mixedHint);
    addTemplate(column, "engine-bench", startText::demo, startText::demoHint);
}

void StartScreen::addTemplate(QVBoxLayout& column, const char* name, int title, int hint)
{
    addEntry(column, QStyle::SP_FileIcon, withoutMnemonic(texts_(title)), texts_(hint), [this, name] { begin(name); });
}

void StartScreen::addFiles(QVBoxLayout& column)
{
    addTitle(column, texts_(startText::files), 1.1);
    addEntry(column, QStyle::SP_DialogOpenButton, withoutMnemonic(texts_(hostText::openSetup)),
             texts_(startText::openHint), [this] { open(); });
    column.addSpacing(fontMetrics().height() / 2);
    addTitle(column, texts_(startText::recent), 1.1);
    noRecent_ = new PlainLabel(texts_(hostText::noRecentFiles), column.parentWidget());
    column.addWidget(noRecent_);
    recent_ = new QVBoxLayout;
    recent_->setSpacing(0);
    column.addLayout(recent_);
}

StartEntry& StartScreen::addEntry(QVBoxLayout& column, QStyle::StandardPixmap sign, const QString& title,
                                  const QString& hint, std::function<void()> act)
{
    auto* entry = new StartEntry(sign, title, hint, widget() ? widget() : column.parentWidget());
    onSignal(entry, &QAbstractButton::clicked, this, std::move(act));
    column.addWidget(entry);
    return *entry;
}

/// An entry may be replaced while its own click is being handled.
void StartScreen::showRecent(const QStringList& files)
{
    while (QLayoutItem* item = recent_->takeAt(0)) {
        item->widget()->hide();
        item->widget()->deleteLater();
        delete item;
    }
    noRecent_->setVisible(files.isEmpty());
    for (const QString& file : files) {
        const QFileInfo info(file);
        StartEntry& entry = addEntry(*recent_, QStyle::SP_FileIcon, toLine(info.fileName()), toLine(info.path()),
                                     [this, file] { openRecent(file); });
        entry.shortenMiddle();
        entry.setToolTip(plainTip(file));
    }
}

} // namespace ko
