#include "host/docks/InstrumentsModel.h"

#include "host/support/HostTexts.h"
#include "host/toolkit/Later.h"
#include "widgets/support/Convert.h"
#include "widgets/support/PlainText.h"
#include "widgets/support/ShownText.h"

#include <QApplication>
#include <QStyle>

namespace ko {

InstrumentsModel::InstrumentsModel(Texts texts, const Locale& locale, QObject* parent)
    : QAbstractItemModel(parent), texts_(std::move(texts)), locale_(locale),
      root_(std::make_unique<InstrumentRow>(drivers_))
{
}

void InstrumentsModel::show(const HostInstruments& drivers)
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

bool InstrumentsModel::isNamed(const QModelIndex& index, const InstrumentRow& row)
{
    using Kind = InstrumentRow::Kind;
    return index.column() == Name &&
           (row.kind() == Kind::Instrument || row.kind() == Kind::Group || row.kind() == Kind::Channel);
}

SetupPlace InstrumentsModel::placeOf(const InstrumentRow& row)
{
    const InstrumentRow* top = &row;
    while (top->kind() != InstrumentRow::Kind::Instrument)
        top = top->parent();
    return {static_cast<std::size_t>(top->number()), row.group(), row.channel()};
}

QModelIndex InstrumentsModel::indexOf(const SetupPlace& place) const
{
    QModelIndex found = index(static_cast<int>(place.instrument), 0);
    for (const auto& [kind, number] :
         {std::pair(InstrumentRow::Kind::Group, place.group), std::pair(InstrumentRow::Kind::Channel, place.channel)}) {
        for (int i = 0, before = 0; number >= 0 && i < rowCount(found); ++i)
            if (const QModelIndex below = index(i, 0, found); row(below)->kind() == kind && before++ == number) {
                found = below;
                break;
            }
    }
    return found;
}

Qt::ItemFlags InstrumentsModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags = QAbstractItemModel::flags(index);
    flags.setFlag(Qt::ItemIsUserCheckable, index.isValid() && isCheck(index, *row(index)));
    flags.setFlag(Qt::ItemIsEditable, index.isValid() && isNamed(index, *row(index)));
    return flags;
}

std::string InstrumentsModel::nameAt(const InstrumentRow& row)
{
    switch (row.kind()) {
    case InstrumentRow::Kind::Group: return row.groupSettings().name;
    case InstrumentRow::Kind::Channel: return row.channelSettings().name;
    default: return row.driver().name();
    }
}

QVariant InstrumentsModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const InstrumentRow& shown = *row(index);
    if (role == Qt::DisplayRole)
        return toLine(index.column() == Name ? nameOf(shown, texts_) : valueOf(shown, texts_, locale_));
    if (role == Qt::EditRole && isNamed(index, shown))
        return toQt(nameAt(shown));
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
    if (role == Qt::EditRole && index.isValid() && isNamed(index, *row(index)))
        return setName(*row(index), fromQt(value.toString()));
    if (!index.isValid() || role != Qt::CheckStateRole || !isCheck(index, *row(index)) || !enable)
        return false;
    const InstrumentRow& shown = *row(index);
    const bool on = value.toInt() != Qt::Unchecked;
    if (!enable(shown.driver(), shown.group(), shown.channel(), on))
        return false;
    Q_EMIT dataChanged(index, index, {Qt::CheckStateRole});
    return true;
}

/// The rows are made again when a name changes, which the editor of the cell must not see.
bool InstrumentsModel::setName(const InstrumentRow& row, const std::string& name)
{
    if (!rename || name == nameAt(row))
        return false;
    typed_ = {drivers_, placeOf(row), name};
    later(*this, [this] { finishRename(); });
    return true;
}

void InstrumentsModel::finishRename()
{
    const std::optional<Typed> typed = std::exchange(typed_, std::nullopt);
    if (typed && typed->drivers == drivers_)
        rename(typed->place, typed->name);
}

QVariant InstrumentsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return texts_(section == Name ? hostText::instrument : hostText::value);
}

} // namespace ko
