#pragma once

#include "host/SimulatedDriver.h"
#include "widgets/Convert.h"

#include <QDialog>

class QListWidget;

namespace ko {

/// Which operations of an instrument are to fail: a list to tick. OK makes and heals the failures, and tells
/// `changed`. The instrument outlives the dialog.
class FaultDialog : public QDialog {
public:
    FaultDialog(const Texts& texts, SimulatedDriver& driver, QWidget* parent);

    std::function<void()> changed;

    void accept() override;

private:
    void fillList();

    SimulatedDriver& driver_;
    QListWidget* list_;
    bool healsAll_ = false;
};

} // namespace ko
