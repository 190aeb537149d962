#include "host/docks/InstrumentFilter.h"

#include "host/docks/InstrumentsModel.h"
#include "host/support/HostTexts.h"
#include "widgets/support/Guarded.h"

#include <QKeyEvent>
#include <QTreeView>
#include <algorithm>

namespace ko {

namespace {

bool occursIn(const InstrumentSettings& instrument, const QString& text)
{
    const auto has = [&](const std::string& name) { return toQt(name).contains(text, Qt::CaseInsensitive); };
    const auto hasChannel = [&](const GroupSettings& group) {
        return has(group.name) || std::any_of(group.channels.begin(), group.channels.end(),
                                              [&](const auto& one) { return has(one.name) || has(one.address); });
    };
    return has(instrument.name) || std::any_of(instrument.groups.begin(), instrument.groups.end(), hasChannel);
}

} // namespace

InstrumentFilter::InstrumentFilter(const Texts& texts, QTreeView& tree, const InstrumentsModel& model, QWidget* parent)
    : QLineEdit(parent), tree_(tree), model_(model)
{
    setObjectName(QStringLiteral("filter"));
    setPlaceholderText(texts(textNumber::instrumentEdit::filter));
    setAccessibleName(placeholderText());
    setClearButtonEnabled(true);
    onSignal(this, &QLineEdit::textChanged, this, [this] { apply(); });
    onSignal(&model, &QAbstractItemModel::modelReset, this, [this] { apply(); });
    onSignal(tree.selectionModel(), &QItemSelectionModel::currentChanged, this, [this](QModelIndex at) {
        for (; at.parent().isValid(); at = at.parent()) {
        }
        if (at.isValid() && tree_.isRowHidden(at.row(), {}))
            clear();
    });
}

void InstrumentFilter::apply()
{
    if (text().isEmpty() && !isHiding_)
        return;
    isHiding_ = !text().isEmpty();
    for (int i = 0; i < model_.rowCount(); ++i)
        tree_.setRowHidden(i, {}, isHiding_ && !occursIn(model_.row(model_.index(i, 0))->driver().held(), text()));
    deselectHidden();
}

/// What is not seen must not be removed with what is.
void InstrumentFilter::deselectHidden()
{
    for (const QModelIndex& index : tree_.selectionModel()->selectedRows()) {
        QModelIndex top = index;
        while (top.parent().isValid())
            top = top.parent();
        if (tree_.isRowHidden(top.row(), {}))
            tree_.selectionModel()->select(index, QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
    }
}

void InstrumentFilter::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Escape: return clear();
    case Qt::Key_Down: tree_.setFocus(); return;
    default: QLineEdit::keyPressEvent(event);
    }
}

} // namespace ko
