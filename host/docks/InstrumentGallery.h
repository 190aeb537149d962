#pragma once

#include "host/instruments/InstrumentSettings.h"
#include "widgets/support/Convert.h"

#include <QDialog>

class QListWidget;

namespace ko {

/// Lets the user choose a kind of simulated instrument; each is described in a line.
class InstrumentGallery : public QDialog {
public:
    InstrumentGallery(const Texts& texts, const std::vector<InstrumentSettings>& kinds, QWidget* parent);

    /// Returns the word of the chosen kind; see `kindWord`.
    [[nodiscard]] std::string kind() const;

private:
    QListWidget* list_;
};

} // namespace ko
