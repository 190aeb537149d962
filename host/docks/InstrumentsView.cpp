#include "host/docks/InstrumentsView.h"

#include "host/docks/FaultDialog.h"
#include "host/docks/InstrumentFilter.h"
#include "host/docks/TreeState.h"
#include "host/support/HostTexts.h"
#include "host/toolkit/DockLayout.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/PlainText.h"

#include <QAction>
#include <QBoxLayout>
#include <QTreeView>

namespace ko {

namespace {

class Tree : public QTreeView {
public:
    using QTreeView::QTreeView;

    [[nodiscard]] QSize sizeHint() const override
    {
        return {fontMetrics().averageCharWidth() * 62, fontMetrics().height() * 16};
    }
};

} // namespace

InstrumentsView::InstrumentsView(const Texts& texts, const Locale& locale, QWidget* parent)
    : QDockWidget(withoutMnemonic(texts(hostText::instruments)), parent), texts_(texts),
      model_(new InstrumentsModel(texts, locale, this)), view_(new Tree(this))
{
    setObjectName(QStringLiteral("instruments"));
    view_->setModel(model_);
    view_->setAccessibleName(windowTitle());
    view_->setUniformRowHeights(true);
    view_->setAllColumnsShowFocus(true);
    view_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    fitColumns(*view_);
    makeProperties(locale);
    makeActions();
    layDock(*this, *view_);
    static_cast<QBoxLayout*>(widget()->layout())
        ->insertWidget(0, new InstrumentFilter(texts, *view_, *model_, widget()));
    hide();
}

void InstrumentsView::makeProperties(const Locale& locale)
{
    properties_ = new PropertiesAction(*view_, *model_, texts_, locale, describing_);
}

void InstrumentsView::makeActions()
{
    edits_ = new InstrumentActions(*view_, *model_, texts_, editing_);
    const auto add = [this](int text, const char* name, const QKeySequence& key) {
        QAction& action = addDockAction(*view_, texts_(text), name);
        action.setShortcut(key);
        action.setShortcutContext(Qt::WidgetWithChildrenShortcut);
        return &action;
    };
    faults_ = add(hostText::faults, "faults", QKeySequence(Qt::CTRL | Qt::Key_F));
    faults_->setToolTip(plainTip(texts_(hostText::faultsHint)));
    faults_->setEnabled(false);
    onSignal(faults_, &QAction::triggered, this, [this] { askForFaults(); });
    handOver_ = add(hostText::handOver, "handOver", QKeySequence(QKeySequence::Refresh));
    handOver_->setToolTip(plainTip(texts_(hostText::handOverHint)));
    onSignal(handOver_, &QAction::triggered, this, [this] { handOver ? handOver() : void(); });
    onSignal(view_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
             [this] { selectionChanged ? selectionChanged() : void(); });
    onSignal(view_->selectionModel(), &QItemSelectionModel::currentChanged, this,
             [this](const QModelIndex& current) { faults_->setEnabled(current.isValid()); });
    onSignal(model_, &QAbstractItemModel::modelReset, this, [this] { faults_->setEnabled(false); });
}

void InstrumentsView::show(const HostInstruments& drivers)
{
    delete faultDialog_;
    properties_->follow(drivers);
    const TreeState state(*view_, *model_);
    model_->show(drivers);
    state.restore(*view_, *model_);
}

bool InstrumentsView::isSelected(std::size_t instrument, int group, int channel) const
{
    for (const QModelIndex& index : view_->selectionModel()->selectedRows()) {
        const InstrumentRow& row = *model_->row(index);
        const InstrumentRow* top = &row;
        while (top->kind() != InstrumentRow::Kind::Instrument)
            top = top->parent();
        if (static_cast<std::size_t>(top->number()) != instrument)
            continue;
        if (row.kind() == InstrumentRow::Kind::Instrument || (row.group() == group && row.channel() == channel) ||
            (row.kind() == InstrumentRow::Kind::Group && row.group() == group))
            return true;
    }
    return false;
}

void InstrumentsView::select(std::size_t instrument)
{
    view_->selectionModel()->setCurrentIndex(model_->index(static_cast<int>(instrument), 0),
                                             QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void InstrumentsView::finishRename()
{
    commitEditor(*view_);
    model_->finishRename();
}

void InstrumentsView::refresh()
{
    view_->viewport()->update();
}

void InstrumentsView::askForFaults()
{
    const InstrumentRow* row = model_->row(view_->currentIndex());
    if (!row)
        return;
    auto* dialog = new FaultDialog(texts_, row->driver(), this);
    faultDialog_ = dialog;
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->changed = [this, &driver = row->driver()](const std::string& operation, bool fails) {
        refresh();
        if (faultChanged)
            faultChanged(driver, operation, fails);
    };
    dialog->open();
}

} // namespace ko
