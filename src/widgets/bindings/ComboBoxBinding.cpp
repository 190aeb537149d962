#include "widgets/bindings/ComboBoxBinding.h"

#include "widgets/bindings/FormView.h"
#include "widgets/bindings/NumberList.h"
#include "widgets/support/Convert.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/ShownText.h"

#include <QEvent>
#include <QLineEdit>
#include <QListView>
#include <QProxyStyle>

namespace ko {

namespace {

constexpr int shownCharacters = 12;

/// Opens a long list below its box, with a scroll bar; some styles would cover the screen with it.
class DropDownStyle : public QProxyStyle {
public:
    explicit DropDownStyle(QObject* parent) { setParent(parent); }
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override
    {
        return hint == SH_ComboBox_Popup ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

/// Covers a combo box with its text, which can be selected and copied.
class ReadingBox : public QLineEdit {
public:
    ReadingBox(QComboBox& combo, Qt::AlignmentFlag alignment) : QLineEdit(&combo)
    {
        setReadOnly(true);
        setAlignment(alignment | Qt::AlignVCenter);
        setPalette(readPalette());
        setBackgroundRole(QPalette::Window);
        setAutoFillBackground(true);
        setGeometry(combo.rect());
    }
};

} // namespace

ItemsModel::ItemsModel(const ComboBox& control, Qt::Alignment alignment, QObject* parent)
    : QAbstractListModel(parent), control_(control), alignment_(alignment)
{
}

void ItemsModel::reload()
{
    beginResetModel();
    count_ = static_cast<int>(control_.items().size());
    endResetModel();
}

int ItemsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : count_;
}

QVariant ItemsModel::data(const QModelIndex& index, int role) const
{
    const auto row = static_cast<std::size_t>(index.row());
    // The list of the model may be shorter already than the one that is shown.
    if (!index.isValid() || row >= control_.items().size())
        return {};
    switch (role) {
    case Qt::DisplayRole: return toLine(control_.items()[row].text);
    case Qt::TextAlignmentRole: return alignment_.toInt();
    default: return {};
    }
}

ComboBoxBinding::ComboBoxBinding(FormView& view, ComboBox& control, QComboBox& widget)
    : Binding(view, control, widget), list_(control), combo_(widget),
      items_(new ItemsModel(
          control, (dynamic_cast<NumberList*>(&widget) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter, &widget))
{
    widget.setStyle(new DropDownStyle(&widget));
    auto* popup = new QListView(&widget);
    popup->setUniformItemSizes(true);
    widget.setView(popup);
    widget.setModel(items_);
    widget.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    widget.setMinimumContentsLength(shownCharacters);
    widget.setMaxVisibleItems(15);
    widget.installEventFilter(this);
    onSignal(&widget, &QComboBox::activated, this, [this](int index) { chosen(index); });
    refreshAll();
}

void ComboBoxBinding::chosen(int index)
{
    if (view_.act([&] { list_.userChose(index); }))
        combo_.setCurrentIndex(list_.index());
}

void ComboBoxBinding::showItems()
{
    combo_.hidePopup();
    items_->reload();
    combo_.setCurrentIndex(list_.index());
    showReading();
}

void ComboBoxBinding::showReading()
{
    if (!reading_ && !isRead())
        return;
    if (!reading_) {
        reading_ = new ReadingBox(combo_, dynamic_cast<NumberList*>(&combo_) ? Qt::AlignRight : Qt::AlignLeft);
        view_.focus().watch(list_, *reading_, *reading_);
        QWidget::setTabOrder(&combo_, reading_);
    }
    reading_->setAccessibleName(combo_.accessibleName());
    reading_->setText(toQt(list_.text()));
    reading_->setVisible(isRead());
    combo_.setFocusProxy(isRead() ? reading_ : nullptr);
}

void ComboBoxBinding::refreshUsability()
{
    const FocusKeeper::Hold hold(view_.focus());
    Binding::refreshUsability();
    showReading();
}

void ComboBoxBinding::refresh(Aspect aspect)
{
    switch (aspect) {
    case Aspect::Items: showItems(); break;
    case Aspect::Selection:
        combo_.setCurrentIndex(list_.index());
        showReading();
        break;
    default: Binding::refresh(aspect);
    }
}

bool ComboBoxBinding::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::Resize && reading_)
        reading_->setGeometry(combo_.rect());
    // The wheel scrolls the page; it selects entries only in the focused box.
    if (event->type() != QEvent::Wheel || combo_.hasFocus())
        return false;
    event->ignore();
    return true;
}

} // namespace ko
