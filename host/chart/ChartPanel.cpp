#include "host/chart/ChartPanel.h"

#include "widgets/support/Guarded.h"
#include "widgets/support/PlainText.h"

#include <QAccessible>
#include <QAction>
#include <QBoxLayout>
#include <QLineEdit>
#include <QToolBar>

namespace ko {

ChartPanel::ChartPanel(const Texts& texts, const Locale& locale, QWidget* parent)
    : QWidget(parent), texts_(texts), chart_(new StripChart(texts, locale, this)), bar_(new QToolBar(this)),
      text_(new QLineEdit(this)), mark_(new QAction(texts(chartText::mark), this))
{
    bar_->setToolButtonStyle(Qt::ToolButtonTextOnly);
    addButton(texts(chartText::zoomIn), QStringLiteral("zoomIn"), [this] { chart_->zoom(true); });
    addButton(texts(chartText::zoomOut), QStringLiteral("zoomOut"), [this] { chart_->zoom(false); });
    addButton(texts(chartText::whole), QStringLiteral("whole"), [this] { chart_->showAll(); });
    addButton(texts(chartText::follow), QStringLiteral("follow"), [this] { chart_->followEnd(); });
    text_->setObjectName(QStringLiteral("markerText"));
    text_->setPlaceholderText(texts(chartText::markerText));
    text_->setAccessibleName(text_->placeholderText());
    text_->setMaxLength(static_cast<int>(Marker::textSize));
    mark_->setShortcut(Qt::Key_M);
    mark_->setAutoRepeat(false);
    mark_->setToolTip(plainTip(texts(chartText::markHint)));
    mark_->setObjectName(QStringLiteral("mark"));
    bar_->addSeparator();
    bar_->addWidget(text_);
    bar_->addAction(mark_);
    onSignal(mark_, &QAction::triggered, this, [this] { mark(); });
    onSignal(text_, &QLineEdit::returnPressed, this, [this] { mark(); });
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(bar_);
    column->addWidget(chart_, 1);
    setFocusProxy(chart_);
    setMarking(false);
}

void ChartPanel::addButton(const QString& text, const QString& name, std::function<void()> act)
{
    auto* const action = bar_->addAction(text);
    action->setObjectName(name);
    onSignal(action, &QAction::triggered, this, [act = std::move(act)] { act(); });
}

void ChartPanel::setMarking(bool isOn)
{
    mark_->setEnabled(isOn);
    text_->setEnabled(isOn);
}

void ChartPanel::mark()
{
    if (!mark_->isEnabled() || !addMarker || !addMarker(fromQt(text_->text())))
        return;
    text_->clear();
    chart_->setAccessibleDescription(texts_(chartText::marked));
    QAccessibleEvent alert(chart_, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

} // namespace ko
