#pragma once

#include "host/instruments/SimulatedDriver.h"
#include "widgets/support/Convert.h"

#include <QDialog>

class QListWidget;

namespace ko {

/// Which operations of an instrument are to fail: a list to tick. OK makes and heals the failures. The
/// instrument outlives the dialog.
class FaultDialog : public QDialog {
public:
    FaultDialog(const Texts& texts, SimulatedDriver& driver, QWidget* parent);

    /// Told of each change; no operation stands for all.
    std::function<void(const std::string& operation, bool fails)> changed;

    void accept() override;

private:
    void fillList();
    void heal(const std::string& operation);
    void fail(const std::string& operation);

    SimulatedDriver& driver_;
    QListWidget* list_;
    bool healsAll_ = false;
};

} // namespace ko
