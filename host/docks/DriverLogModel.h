#pragma once

#include "host/instruments/DriverWatch.h"
#include "platform/Locale.h"
#include "widgets/support/Convert.h"
#include "widgets/support/Delay.h"

#include <QAbstractTableModel>
#include <deque>

namespace ko {

/// The latest calls that changed an instrument or failed, the newest at the bottom. New entries are inserted together
/// when the program is idle, so that a change of a thousand instruments updates the view once.
class DriverLogModel : public QAbstractTableModel {
public:
    enum Column { Time, Instrument, OperationName, Arguments, Value, Result, columns };
    static constexpr std::size_t most = 10000; ///< entries

    /// `locale` must outlive this object.
    DriverLogModel(Texts texts, const Locale& locale, QObject* parent = nullptr);

    void add(const HostInstrument& driver, const DriverCall& call);
    void add(const HostInstrument& driver, const FailedCall& call);
    void clear();
    /// Inserts the waiting entries immediately.
    void flush();

    /// Returns rows as lines with tab-separated cells.
    [[nodiscard]] QString lines(const QModelIndexList& rows) const;
    [[nodiscard]] QString allLines() const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Entry {
        qint64 time = 0; ///< milliseconds, local time
        QString instrument;
        Operation operation = Operation::GroupCount;
        std::vector<std::int32_t> arguments;
        QString value;
        QString kept;    ///< if different from `value`
        QString failure; ///< reason; empty if the call succeeded
    };

    [[nodiscard]] QString shown(const std::optional<CallValue>& value) const;
    void put(Entry entry);
    void makeRoom();
    [[nodiscard]] QString text(const Entry& entry, int column) const;
    [[nodiscard]] QString line(const Entry& entry) const;

    Texts texts_;
    const Locale& locale_;
    std::deque<Entry> entries_;
    std::deque<Entry> waiting_;
    Delay idle_{this};
};

} // namespace ko
