#include "host/recording_view/SpaceGauge.h"

#include "host/toolkit/Background.h"
#include "host/toolkit/SizeText.h"
#include "support/TextNumbers.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/PlainText.h"

#include <QAccessible>
#include <QBoxLayout>
#include <cmath>
#include <filesystem>

namespace ko {

namespace {

namespace diskText = textNumber::disk;

/// Returns the bytes of both kinds of measurement; none if neither is known.
std::optional<double> neededBytes(const Figures& figures)
{
    if (!figures.dynamicBytes && !figures.staticBytes)
        return std::nullopt;
    const double bytes = figures.dynamicBytes.value_or(0.0) + figures.staticBytes.value_or(0.0);
    return std::isfinite(bytes) && bytes >= 0.0 ? std::optional(bytes) : std::nullopt;
}

} // namespace

std::optional<double> freeSpaceBeside(const std::string& file)
{
    std::error_code unknown;
    const std::filesystem::path folder = std::filesystem::path(file).parent_path();
    const auto space = std::filesystem::space(folder.empty() ? "." : folder, unknown);
    return unknown ? std::nullopt : std::optional(static_cast<double>(space.available));
}

SpaceGauge::SpaceGauge(const Texts& texts, const Locale& locale, QWidget* parent)
    : QFrame(parent), texts_(texts), locale_(locale), sign_(new PlainLabel(this)), text_(new PlainLabel(this))
{
    setObjectName(QStringLiteral("space"));
    setToolTip(plainTip(texts(diskText::hint)));
    text_->setWordWrap(true);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(row->contentsMargins().left(), 0, row->contentsMargins().right(), 0);
    row->addWidget(sign_);
    row->addWidget(text_, 1);
    sign_->hide();
    hide();
    onSignal(&timer_, &QTimer::timeout, this, [this] { refresh(); });
}

void SpaceGauge::refresh()
{
    timer_.start(period);
    const auto needed = neededBytes(figures());
    if (!needed)
        return hide();
    if (isAsking_)
        return;
    isAsking_ = true;
    inBackground(
        *this, [freeSpace = freeSpace, file = file()] { return freeSpace(file); },
        [this](std::optional<double> free) {
            isAsking_ = false;
            show(free);
        });
}

/// The estimate may have changed since the question.
void SpaceGauge::show(std::optional<double> free)
{
    const auto needed = isStopped_ ? std::nullopt : neededBytes(figures());
    setVisible(needed && free);
    if (needed && free)
        show(sizeText(*needed, texts_, locale_), sizeText(*free, texts_, locale_), *needed <= *free);
}

void SpaceGauge::show(const QString& needed, const QString& free, bool fits)
{
    text_->setText(texts_(fits ? diskText::needed : diskText::tooFull).arg(needed, free));
    const bool isNew = !fits && sign_->isHidden();
    sign_->setVisible(!fits);
    setAccessibleName(text_->text());
    if (!isNew)
        return;
    sign_->setPixmap(warningSign(*this));
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

} // namespace ko
