#pragma once

#include "host/instruments/InstrumentSettings.h"
#include "widgets/support/Convert.h"

#include <QLineEdit>

class QTreeView;

namespace ko {

class InstrumentsModel;

/// A line that hides the instruments in whose names, channels and addresses its text does not occur, regardless of
/// case. Down leads to the tree; Escape clears the line, and so does a hidden row that becomes the current one.
class InstrumentFilter : public QLineEdit {
public:
    /// `tree` shows `model`; both must outlive this object.
    InstrumentFilter(const Texts& texts, QTreeView& tree, const InstrumentsModel& model, QWidget* parent);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void apply();
    void deselectHidden();

    QTreeView& tree_;
    const InstrumentsModel& model_;
    bool isHiding_ = false;
};

} // namespace ko
