#pragma once

#include "host/window/DriverLogModel.h"

#include <QDockWidget>

class QTreeView;

namespace ko {

/// The driver log in a dock: a table that can be copied as text and cleared.
class DriverLog : public QDockWidget {
public:
    DriverLog(const Texts& texts, QWidget* parent);

    [[nodiscard]] DriverLogModel& model() { return *model_; }
    /// The rows that are selected, or all where none is, go to the clipboard as text.
    void copy();

private:
    void makeActions(const Texts& texts);
    /// The latest row stays in sight where it was.
    void followTheEnd();

    DriverLogModel* model_;
    QTreeView* view_;
};

} // namespace ko
