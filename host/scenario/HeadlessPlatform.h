#pragma once

#include "host/scenario/EventLog.h"
#include "interfaces/ClientSite.h"
#include "platform/Services.h"

#include <deque>
#include <functional>
#include <vector>

namespace ko {

// The component's services without a window: calls are logged as events, and scripts set the state of the machine.

/// Logs message boxes, which are confirmed with OK at once.
class LoggedMessageBox final : public MessageBox {
public:
    explicit LoggedMessageBox(EventLog& log) : log_(log) {}
    void show(const std::string& text, const std::string& title, int style) override;

    /// Runs `act` while the next box is open. Several acts queue up.
    void during(std::function<void()> act) { during_.push_back(std::move(act)); }

private:
    EventLog& log_;
    std::deque<std::function<void()>> during_;
};

class PlainClipboard final : public Clipboard {
public:
    void clear() override { text_.clear(); }
    void setText(const std::string& text) override { text_ = text; }
    std::string text() override { return text_; }

private:
    std::string text_;
};

/// Two printers, "Office Laser" (initially current) and "Lab Plotter". The end of a job that contains a form is logged.
class SimulatedPrinters final : public Printers {
public:
    explicit SimulatedPrinters(EventLog& log) : log_(log) {}

    std::int32_t count() override;
    std::string deviceName(std::int32_t index) override;
    void makeCurrent(std::int32_t index) override;
    void setCopies(std::int32_t copies) override { settings().copies = copies; }
    void setColorMode(std::int32_t color) override { settings().color = color; }
    void setDuplex(std::int32_t duplex) override { settings().duplex = duplex; }
    void setOrientation(std::int32_t orientation) override { settings().orientation = orientation; }
    void setPaperSize(std::int32_t paperSize) override { settings().paperSize = paperSize; }
    void setPrintQuality(std::int32_t quality) override { settings().printQuality = quality; }
    void printForm(const Form& form) override;
    void endDocument() override;

private:
    struct Printer {
        std::string name;
        DeviceMode settings;
    };

    DeviceMode& settings() { return printers_[current_].settings; }
    Printer& at(std::int32_t index);

    EventLog& log_;
    std::vector<Printer> printers_{{"Office Laser", {}}, {"Lab Plotter", {}}};
    std::size_t current_ = 0;
    bool hasJob_ = false;
};

/// A screen of 1280 by 1024 pixels, 15 twips per pixel.
class SimulatedScreen final : public Screen {
public:
    Point cursorPosition() override { return cursor; }
    std::optional<Rectangle> workArea() override { return area; }
    Point size() override { return {1280 * 15, 1024 * 15}; }
    double twipsPerPixelX() override { return 15.0; }
    double twipsPerPixelY() override { return 15.0; }
    std::int32_t verticalScrollBarWidth() override { return 17; }
    Font formFont() override { return {}; }

    Point cursor;
    Rectangle area{0, 0, 1280, 1024};
};

/// A clock that returns `time` if set, and the machine's time otherwise.
class StandingClock final : public Clock {
public:
    DateTime now() override;

    std::optional<DateTime> time;
};

class LoggedErrors final : public ErrorReporter {
public:
    explicit LoggedErrors(EventLog& log) : log_(log) {}
    void ReportError(std::int32_t number, const std::string& source, const std::string& description,
                     std::int32_t helpContext, const std::string& helpFile, bool log) override;

private:
    EventLog& log_;
};

class LoggedStatusSite final : public StatusSite {
public:
    LoggedStatusSite(EventLog& log, std::string caption) : log_(log), caption_(std::move(caption)) {}
    std::string Caption() override { return caption_; }
    void ShowHint(const std::string& hint, const std::string& caption) override;

private:
    EventLog& log_;
    std::string caption_;
};

class LoggedHelpSite final : public HelpSite {
public:
    explicit LoggedHelpSite(EventLog& log) : log_(log) {}
    void ShowHelpTopic(std::int32_t topic) override;

private:
    EventLog& log_;
};

/// A site with the services that are set.
class PartialSite final : public ClientSite {
public:
    std::shared_ptr<StatusSite> queryStatusSite() override { return status; }
    std::shared_ptr<HelpSite> queryHelpSite() override { return help; }

    std::shared_ptr<StatusSite> status;
    std::shared_ptr<HelpSite> help;
};

class LoggedChanges final : public PropertyNotifySink {
public:
    explicit LoggedChanges(EventLog& log) : log_(log) {}
    void OnChanged() override;

private:
    EventLog& log_;
};

} // namespace ko
