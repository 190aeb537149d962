#pragma once

#include "host/setup/PlacedChanges.h"
#include "host/sheet/InstrumentRow.h"
#include "platform/Locale.h"

#include <QAbstractItemModel>

namespace ko {

/// A tree of instruments, groups and channels with their values. Values are taken from the simulated instrument when a
/// row is drawn, without a driver call, so that showing them has no side effects.
class InstrumentsModel : public QAbstractItemModel {
public:
    enum Column { Name, Value, columns };

    InstrumentsModel(Texts texts, const Locale& locale, QObject* parent = nullptr);

    void show(const HostInstruments& drivers);
    /// Returns the row of an index; null for an invalid index.
    [[nodiscard]] InstrumentRow* row(const QModelIndex& index) const;

    /// Enables or disables a channel; returns false if it was not changed.
    std::function<bool(HostInstrument& driver, int group, int channel, bool on)> enable;

    /// Called after the user has typed another name for an instrument, a group or a channel.
    std::function<void(const SetupPlace& place, const std::string& name)> rename;
    /// Calls `rename` now, if a name has been typed and `rename` not been called yet.
    void finishRename();

    /// Returns the place of a row in the set-up, that of the instrument or channel for a row of its settings.
    [[nodiscard]] static SetupPlace placeOf(const InstrumentRow& row);
    /// Returns the index of a place; an invalid one if there is none.
    [[nodiscard]] QModelIndex indexOf(const SetupPlace& place) const;

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& child) const override;
    [[nodiscard]] bool hasChildren(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    [[nodiscard]] InstrumentRow& rowOrRoot(const QModelIndex& index) const;
    [[nodiscard]] static bool isNamed(const QModelIndex& index, const InstrumentRow& row);
    [[nodiscard]] static std::string nameAt(const InstrumentRow& row);
    bool setName(const InstrumentRow& row, const std::string& name);
    [[nodiscard]] static bool isCheck(const QModelIndex& index, const InstrumentRow& row);

    Texts texts_;
    const Locale& locale_;
    struct Typed {
        HostInstruments drivers;
        SetupPlace place;
        std::string name;
    };
    std::optional<Typed> typed_; ///< a name before `rename` is called
    HostInstruments drivers_;
    std::unique_ptr<InstrumentRow> root_;
};

} // namespace ko
