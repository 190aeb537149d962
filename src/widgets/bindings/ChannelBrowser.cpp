#include "widgets/bindings/ChannelBrowser.h"

#include "platform/Scoped.h"
#include "widgets/bindings/FormView.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/PageTexts.h"
#include "widgets/support/ShownText.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <algorithm>

namespace ko {

namespace {

/// Shows the item if it or an item above or below it contains the text; returns whether it is shown.
bool filterItem(QTreeWidgetItem& item, const QString& text, bool aboveHas)
{
    const bool has = aboveHas || item.text(0).contains(text, Qt::CaseInsensitive);
    bool shown = has;
    for (int i = 0; i < item.childCount(); ++i)
        shown = filterItem(*item.child(i), text, has) || shown;
    item.setHidden(!shown);
    return shown;
}

} // namespace

ChannelBrowser::ChannelBrowser(QWidget* parent)
    : QWidget(parent), filter(new QLineEdit(this)), tree(new QTreeWidget(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(filter);
    layout->addWidget(tree);
    filter->setClearButtonEnabled(true);
    tree->setHeaderHidden(true);
    tree->setWordWrap(true);
    setFocusProxy(tree);
}

bool ChannelBrowser::focusNextPrevChild(bool next)
{
    QWidget* const from = next ? static_cast<QWidget*>(filter) : tree;
    if (!from->hasFocus())
        return QWidget::focusNextPrevChild(next);
    (next ? static_cast<QWidget*>(tree) : filter)->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

ChannelSelectorBinding::ChannelSelectorBinding(FormView& view, ChannelSelector& control, ChannelBrowser& browser)
    : Binding(view, control, browser), selector_(control), browser_(browser)
{
    const QString name = view.text(pageText::channels);
    browser.tree->setAccessibleName(name);
    browser.setAccessibleName(name);
    const QString prompt = view.text(pageText::filterChannels);
    browser.filter->setPlaceholderText(prompt);
    browser.filter->setAccessibleName(prompt);
    browser.filter->installEventFilter(this);
    browser.tree->installEventFilter(this);
    onSignal(browser.filter, &QLineEdit::textChanged, this, [this] { applyFilter(); });
    onSignal(browser.tree, &QTreeWidget::itemSelectionChanged, this, [this] { picked(); });
    onSignal(browser.tree, &QTreeWidget::itemDoubleClicked, this,
             [this](const QTreeWidgetItem* item) { activated(*item); });
    refreshAll();
}

void ChannelSelectorBinding::refresh(Aspect aspect)
{
    switch (aspect) {
    case Aspect::Items: showEntries(); break;
    case Aspect::Selection: showSelection(); break;
    default: Binding::refresh(aspect);
    }
}

void ChannelSelectorBinding::showEntries()
{
    const Scoped guard(showing_, true);
    browser_.tree->clear();
    items_.clear();
    QTreeWidgetItem* above[3]{};
    for (const ChannelSelector::Entry& entry : selector_.entries()) {
        const int depth = entry.depth();
        auto* item = depth == 0 ? new QTreeWidgetItem(browser_.tree) : new QTreeWidgetItem(above[depth - 1]);
        item->setText(0, toLine(entry.text));
        item->setData(0, Qt::UserRole, static_cast<qulonglong>(items_.size()));
        items_.push_back(item);
        above[depth] = item;
    }
    for (const std::string& note : selector_.notes()) {
        auto* item = new QTreeWidgetItem(browser_.tree);
        item->setText(0, toLine(note));
        item->setFlags(Qt::ItemNeverHasChildren);
    }
    browser_.tree->setSelectionMode(selector_.multipleSelection() ? QAbstractItemView::ExtendedSelection
                                                                  : QAbstractItemView::SingleSelection);
    browser_.tree->expandAll();
    applyFilter();
    showSelection();
}

void ChannelSelectorBinding::showSelection()
{
    const Scoped guard(showing_, true);
    browser_.tree->clearSelection();
    for (const std::size_t line : selector_.selected()) {
        if (selector_.selected().size() == 1)
            browser_.tree->setCurrentItem(items_[line]);
        items_[line]->setSelected(true);
        browser_.tree->scrollToItem(items_[line]);
    }
}

void ChannelSelectorBinding::applyFilter()
{
    for (int i = 0; i < browser_.tree->topLevelItemCount(); ++i)
        filterItem(*browser_.tree->topLevelItem(i), browser_.filter->text().trimmed(), false);
    if (!showing_)
        followFilter();
}

/// A hidden line cannot stay selected: selects the first visible channel instead.
void ChannelSelectorBinding::followFilter()
{
    // The tree's own list of selected items leaves out the hidden ones.
    if (std::none_of(items_.begin(), items_.end(),
                     [](const QTreeWidgetItem* item) { return item->isSelected() && item->isHidden(); }))
        return;
    const auto first = std::find_if(items_.begin(), items_.end(), [](const QTreeWidgetItem* item) {
        return item->childCount() == 0 && !item->isHidden();
    });
    if (first == items_.end())
        browser_.tree->clearSelection();
    else
        browser_.tree->setCurrentItem(*first);
}

std::size_t ChannelSelectorBinding::lineOf(const QTreeWidgetItem* item) const
{
    return static_cast<std::size_t>(item->data(0, Qt::UserRole).toULongLong());
}

void ChannelSelectorBinding::picked()
{
    if (showing_)
        return;
    ChannelSelector::Lines lines;
    for (const QTreeWidgetItem* item : browser_.tree->selectedItems())
        lines.push_back(lineOf(item));
    const bool stays = view_.act([&] { selector_.userPicked(std::move(lines)); });
    if (stays && selector_.selected().size() != static_cast<std::size_t>(browser_.tree->selectedItems().size()))
        showSelection();
}

void ChannelSelectorBinding::activated(const QTreeWidgetItem& item)
{
    // A double click on a driver or a group expands or collapses it.
    if (item.childCount() == 0)
        view_.act([&] { selector_.userActivated(lineOf(&item)); });
}

bool ChannelSelectorBinding::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::FocusIn) {
        browser_.setFocusProxy(static_cast<QWidget*>(object));
        return !view_.focus().request(selector_);
    }
    if (object == browser_.filter && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down) {
        browser_.tree->setFocus(Qt::OtherFocusReason);
        return true;
    }
    return false;
}

} // namespace ko
