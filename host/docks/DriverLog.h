#pragma once

#include "host/docks/DriverLogModel.h"

#include <QDockWidget>

class QTreeView;

namespace ko {

/// A dock with the driver log, a table that can be copied as text and cleared.
class DriverLog : public QDockWidget {
public:
    /// `locale` must outlive this object.
    DriverLog(const Texts& texts, const Locale& locale, QWidget* parent);

    [[nodiscard]] DriverLogModel& model() { return *model_; }
    /// Copies the selected rows, or all rows if none is selected, to the clipboard as text.
    void copy();

private:
    void makeActions(const Texts& texts);

    DriverLogModel* model_;
    QTreeView* view_;
};

} // namespace ko
