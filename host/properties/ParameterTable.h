#pragma once

#include "host/setup/InstrumentProperties.h"
#include "widgets/support/Convert.h"

#include <QTableWidget>

namespace ko {

/// The trigger parameters of a channel: a row for each, a column for each member, as in set-up files. A cell is taken
/// when its editor is closed.
class ParameterTable : public QTableWidget {
public:
    /// `properties` must outlive the table.
    ParameterTable(const Texts& texts, InstrumentProperties& properties, bool isLocked, QWidget* parent);

    /// Shows the parameters of the channel with this path.
    void show(const std::string& channel);
    /// Adds a parameter and begins to edit its name.
    void addParameter(const QString& name);
    void removeParameter();

    /// Moves the focus to the cell of a refused member. Returns the column's title; an empty text if the table does not
    /// show the member.
    QString focusOn(const PropertyRefusal& refusal);

private:
    [[nodiscard]] std::string parameterAt(int row) const;
    [[nodiscard]] std::string memberAt(int row, int column) const;
    void fill();
    void fillRow(int row);
    void take(const QTableWidgetItem& item);

    InstrumentProperties& properties_;
    bool isFilling_ = false;
    std::string channel_;
};

} // namespace ko
