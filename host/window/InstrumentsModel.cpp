#include "host/window/InstrumentsModel.h"

#include "host/support/HostTexts.h"
#include "widgets/support/PlainText.h"

#include <QApplication>
#include <QStyle>

namespace ko {

InstrumentsModel::InstrumentsModel(Texts texts, const Locale& locale, QObject* parent)
    : QAbstractItemModel(parent), texts_(std::move(texts)), locale_(locale),
      root_(std::make_unique<InstrumentRow>(drivers_))
{
}

void InstrumentsModel::show(const SimulatedDrivers& drivers)
{
    beginResetModel();
    drivers_ = drivers;
    root_ = std::make_unique<InstrumentRow>(drivers_);
    endResetModel();
}

InstrumentRow* InstrumentsModel::row(const QModelIndex& index) const
{
    return index.isValid() ? static_cast<InstrumentRow*>(index.internalPointer()) : nullptr;
}

InstrumentRow& InstrumentsModel::rowOrRoot(const QModelIndex& index) const
{
    return index.isValid() ? *row(index) : *root_;
}

QModelIndex InstrumentsModel::index(int row, int column, const QModelIndex& parent) const
{
    const auto& rows = rowOrRoot(parent).rows();
    const bool exists = row >= 0 && static_cast<std::size_t>(row) < rows.size() && column >= 0 && column < columns;
    return exists ? createIndex(row, column, rows[static_cast<std::size_t>(row)].get()) : QModelIndex();
}

QModelIndex InstrumentsModel::parent(const QModelIndex& child) const
{
    InstrumentRow* above = child.isValid() ? row(child)->parent() : nullptr;
    return above && above != root_.get() ? createIndex(above->number(), Name, above) : QModelIndex();
}

bool InstrumentsModel::hasChildren(const QModelIndex& parent) const
{
    return parent.column() <= Name && rowOrRoot(parent).hasRows();
}

int InstrumentsModel::rowCount(const QModelIndex& parent) const
{
    return parent.column() <= Name ? static_cast<int>(rowOrRoot(parent).rows().size()) : 0;
}

int InstrumentsModel::columnCount(const QModelIndex&) const
{
    return columns;
}

bool InstrumentsModel::isCheck(const QModelIndex& index, const InstrumentRow& row)
{
    return index.column() == Name && row.kind() == InstrumentRow::Kind::Channel;
}

Qt::ItemFlags InstrumentsModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags plain = QAbstractItemModel::flags(index);
    return index.isValid() && isCheck(index, *row(index)) ? plain | Qt::ItemIsUserCheckable : plain;
}

QVariant InstrumentsModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const InstrumentRow& shown = *row(index);
    if (role == Qt::DisplayRole)
        return index.column() == Name ? nameOf(shown, texts_) : valueOf(shown, texts_, locale_);
    if (role == Qt::CheckStateRole && isCheck(index, shown))
        return shown.channelSettings().isEnabled() ? Qt::Checked : Qt::Unchecked;
    const bool isInstrument = shown.kind() == InstrumentRow::Kind::Instrument;
    if (role == Qt::DecorationRole && index.column() == Value && isInstrument &&
        !shown.driver().calls().failing().empty())
        return QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning);
    if (role == Qt::ToolTipRole)
        return plainTip(data(index, Qt::DisplayRole).toString());
    return {};
}

bool InstrumentsModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid() || role != Qt::CheckStateRole || !isCheck(index, *row(index)) || !enable)
        return false;
    const InstrumentRow& shown = *row(index);
    const bool on = value.toInt() != Qt::Unchecked;
    if (!enable(shown.driver(), shown.group(), shown.channel(), on))
        return false;
    emit dataChanged(index, index, {Qt::CheckStateRole});
    return true;
}

QVariant InstrumentsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return texts_(section == Name ? hostText::instrument : hostText::value);
}

} // namespace ko
