#pragma once

#include "host/properties/ChannelsTab.h"

#include <QDialog>
#include <functional>

class QTabWidget;

namespace ko {

class WarningLabel;

/// The properties of a device: name and options; and of a simulated instrument: name and kind, offered rates and sizes,
/// trigger lines, and the signals and trigger parameters of its channels. OK checks them as set-up files are checked; a
/// refusal is shown in the dialog, and nothing typed is lost.
class PropertiesDialog : public QDialog {
public:
    /// A locked dialog shows the properties without changing them.
    PropertiesDialog(const Texts& texts, const Locale& locale, const InstrumentSettings& settings, bool isLocked,
                     QWidget* parent);

    /// Called by OK with properties that differ. Returns whether the instrument has taken them; else it has shown the
    /// reason, and the dialog stays open. The dialog may be closed or destroyed meanwhile.
    std::function<bool(const InstrumentSettings& settings)> apply;

    /// Shows the channel of this path.
    void showChannel(const std::string& path) { channels_ ? channels_->showChannel(path) : void(); }

    void accept() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void addHead(QBoxLayout& column);
    void addTabs(QBoxLayout& column);
    void addSimulatedTabs(QTabWidget& tabs);
    void addButtons(QBoxLayout& column);
    void showRefusal(const PropertyRefusal& refusal);
    void showMessage(const QString& text);

    Texts texts_;
    InstrumentSettings original_;
    InstrumentProperties properties_;
    PropertyFields fields_;
    PropertyContext context_;
    QComboBox* kind_ = nullptr;
    ChannelsTab* channels_ = nullptr; ///< null for a device
    WarningLabel* message_ = nullptr;
};

} // namespace ko
