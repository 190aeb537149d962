#pragma once

#include "host/instruments/HostInstrument.h"
#include "widgets/support/Convert.h"

#include <QDialog>

class QListWidget;

namespace ko {

/// A list of an instrument's operations with check boxes: which are to fail. OK plans and removes the failures. The
/// instrument must outlive the dialog.
class FaultDialog : public QDialog {
public:
    FaultDialog(const Texts& texts, HostInstrument& driver, QWidget* parent);

    /// Called for each change. An empty operation means all operations.
    std::function<void(const std::string& operation, bool fails)> changed;

    void accept() override;

private:
    void fillList();
    void heal(const std::string& operation);
    void fail(const std::string& operation);

    HostInstrument& driver_;
    QListWidget* list_;
    bool healsAll_ = false;
};

} // namespace ko
