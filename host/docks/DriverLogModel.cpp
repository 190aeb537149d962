#include "host/docks/DriverLogModel.h"

#include "host/docks/CallText.h"
#include "host/support/HostTexts.h"
#include "widgets/support/Convert.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/PlainText.h"
#include "widgets/support/ShownText.h"

#include <QApplication>
#include <QDateTime>
#include <QStyle>
#include <algorithm>
#include <array>

namespace ko {

namespace {

constexpr std::array headers{hostText::logTime,      hostText::logInstrument, hostText::logOperation,
                             hostText::logArguments, hostText::logValue,      hostText::logResult};
static_assert(headers.size() == DriverLogModel::columns);

QString joined(const std::vector<std::int32_t>& arguments)
{
    QStringList texts;
    for (const std::int32_t argument : arguments)
        texts << QString::number(argument);
    return texts.join(QStringLiteral(", "));
}

} // namespace

DriverLogModel::DriverLogModel(Texts texts, const Locale& locale, QObject* parent)
    : QAbstractTableModel(parent), texts_(std::move(texts)), locale_(locale)
{
    onSignal(&idle_, &QTimer::timeout, this, [this] { flush(); });
}

void DriverLogModel::add(const HostInstrument& driver, const DriverCall& call)
{
    put({QDateTime::currentMSecsSinceEpoch(), toLine(driver.name()), call.operation, call.arguments, shown(call.value),
         shown(call.kept), QString()});
}

void DriverLogModel::add(const HostInstrument& driver, const FailedCall& call)
{
    const QString failure =
        QStringLiteral("%1 (%2)").arg(toLine(std::string(call.failure.what())), QString::number(call.failure.number()));
    put({QDateTime::currentMSecsSinceEpoch(), toLine(driver.name()), call.operation, call.arguments, shown(call.value),
         QString(), failure});
}

QString DriverLogModel::shown(const std::optional<CallValue>& value) const
{
    return value ? callText(*value, texts_, locale_) : QString();
}

void DriverLogModel::put(Entry entry)
{
    waiting_.push_back(std::move(entry));
    if (waiting_.size() > most)
        waiting_.pop_front();
    if (!idle_.isActive())
        idle_.start(0);
}

void DriverLogModel::flush()
{
    idle_.stop();
    if (waiting_.empty())
        return;
    makeRoom();
    const auto first = static_cast<int>(entries_.size());
    beginInsertRows({}, first, first + static_cast<int>(waiting_.size()) - 1);
    std::move(waiting_.begin(), waiting_.end(), std::back_inserter(entries_));
    waiting_.clear();
    endInsertRows();
}

/// Removes more rows than necessary, so that a full log does not have to do it on every call.
void DriverLogModel::makeRoom()
{
    if (entries_.size() + waiting_.size() <= most)
        return;
    const std::size_t excess = std::min(entries_.size(), std::max(waiting_.size(), most / 10));
    beginRemoveRows({}, 0, static_cast<int>(excess) - 1);
    entries_.erase(entries_.begin(), entries_.begin() + static_cast<std::ptrdiff_t>(excess));
    endRemoveRows();
}

void DriverLogModel::clear()
{
    beginResetModel();
    entries_.clear();
    waiting_.clear();
    endResetModel();
}

QString DriverLogModel::text(const Entry& entry, int column) const
{
    switch (column) {
    case Time: return QDateTime::fromMSecsSinceEpoch(entry.time).toString(QStringLiteral("HH:mm:ss.zzz"));
    case Instrument: return entry.instrument;
    case OperationName: return toQt(failingName(entry.operation));
    case Arguments: return joined(entry.arguments);
    case Value: return entry.value;
    case Result: break;
    default: return {};
    }
    if (!entry.failure.isEmpty())
        return texts_(hostText::logFailed).arg(entry.failure);
    return entry.kept.isEmpty() ? QString() : texts_(hostText::logKept).arg(entry.kept);
}

QString DriverLogModel::line(const Entry& entry) const
{
    QStringList cells;
    for (int column = 0; column < columns; ++column)
        cells << text(entry, column).simplified();
    return cells.join(u'\t') + u'\n';
}

QString DriverLogModel::lines(const QModelIndexList& rows) const
{
    QModelIndexList ordered = rows;
    std::sort(ordered.begin(), ordered.end());
    QString result;
    for (const QModelIndex& row : ordered)
        result += line(entries_[static_cast<std::size_t>(row.row())]);
    return result;
}

QString DriverLogModel::allLines() const
{
    QString result;
    for (const Entry& entry : entries_)
        result += line(entry);
    return result;
}

int DriverLogModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(entries_.size());
}

int DriverLogModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : columns;
}

QVariant DriverLogModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const Entry& entry = entries_[static_cast<std::size_t>(index.row())];
    if (role == Qt::DisplayRole)
        return text(entry, index.column());
    if (role == Qt::ToolTipRole)
        return plainTip(text(entry, index.column()));
    if (role == Qt::DecorationRole && index.column() == Result && !entry.failure.isEmpty())
        return QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning);
    return {};
}

QVariant DriverLogModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return texts_(headers.at(static_cast<std::size_t>(section)));
}

} // namespace ko
