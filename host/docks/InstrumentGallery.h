#pragma once

#include "host/instruments/DeviceSource.h"
#include "widgets/support/Convert.h"

#include <QDialog>

class QListWidget;
class QListWidgetItem;

namespace ko {

/// Lets the user choose a kind of simulated instrument, or a device that the driver modules find; each is described in
/// a line. The search for devices goes on in the background.
class InstrumentGallery : public QDialog {
public:
    /// Without `devices` there is no search.
    InstrumentGallery(const Texts& texts, const std::vector<InstrumentSettings>& kinds,
                      const std::shared_ptr<DeviceSource>& devices, QWidget* parent);

    /// Returns the chosen instrument as it is added; a device has no settings yet.
    [[nodiscard]] InstrumentSettings chosen() const;

private:
    void addKinds(const std::vector<InstrumentSettings>& kinds);
    void search(const std::shared_ptr<DeviceSource>& devices);
    void addFound(const std::vector<KnownDevice>& found);
    QListWidgetItem& add(const QString& title, const QString& description);

    Texts texts_;
    QListWidget* list_;
    std::vector<InstrumentSettings> choices_; ///< of the rows
};

} // namespace ko
