#pragma once

#include "interfaces/ClientSite.h"
#include "platform/DateTimes.h"
#include "platform/Failure.h"
#include "platform/Form.h"
#include "platform/Services.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace ko::test {

/// A whole platform in memory that notes what is asked of it. What is named in `failing` fails.
class FakePlatform : public MessageBox,
                     public Clipboard,
                     public Printers,
                     public Screen,
                     public Clock,
                     public ModalForms,
                     public ErrorReporter,
                     public StatusSite,
                     public HelpSite,
                     public ClientSite,
                     public PropertyNotifySink {
public:
    std::vector<std::string> messages; ///< "title: text (style)"
    std::vector<std::string> reports;  ///< "source number: description"
    std::vector<std::string> hints;
    std::vector<std::int32_t> topics;
    int changes = 0;
    std::string clipboardText;
    std::vector<std::string> printing;
    bool offersHelp = true, offersStatus = true;
    bool reporterFails = false, clipboardFails = false, printerFails = false;
    Point cursor;
    std::optional<Rectangle> area = Rectangle{0, 0, 1280, 1024};
    DateTime time{46347.0};
    /// What the user does in a modal form; nothing: it is cancelled at once.
    std::function<void(Form&)> inModalForm;
    Platform platform{*this, *this, *this, *this, *this, *this, {}, [this] { return createReporter(); }};

    void show(const std::string& text, const std::string& title, int style) override
    {
        messages.push_back(title + ": " + text + " (" + std::to_string(style) + ")");
    }
    void clear() override { clipboardText.clear(); }
    void setText(const std::string& text) override { clipboardText = text; }
    std::string text() override
    {
        if (clipboardFails)
            fail(failure::invalidCall);
        return clipboardText;
    }
    std::int32_t count() override { return 2; }
    std::string deviceName(std::int32_t index) override { return index == 0 ? "First" : "Second"; }
    void makeCurrent(std::int32_t index) override { printing.push_back("current " + std::to_string(index)); }
    void setCopies(std::int32_t v) override { setting("copies", v); }
    void setColorMode(std::int32_t v) override { setting("color", v); }
    void setDuplex(std::int32_t v) override { setting("duplex", v); }
    void setOrientation(std::int32_t v) override { setting("orientation", v); }
    void setPaperSize(std::int32_t v) override { setting("paper", v); }
    void setPrintQuality(std::int32_t v) override { setting("quality", v); }
    void printForm(const Form& form) override { printing.push_back("print " + form.name()); }
    void endDocument() override { printing.emplace_back("end"); }
    Point cursorPosition() override { return cursor; }
    std::optional<Rectangle> workArea() override { return area; }
    Point size() override { return {1280 * 15, 1024 * 15}; }
    double twipsPerPixelX() override { return 15; }
    double twipsPerPixelY() override { return 15; }
    std::int32_t verticalScrollBarWidth() override { return 17; }
    Font formFont() override { return {.name = "Sans", .size = 9}; }
    DateTime now() override { return time; }
    void showModal(Form& form) override
    {
        if (inModalForm)
            inModalForm(form);
    }
    void hide(Form&) override {}
    void ReportError(std::int32_t number, const std::string& source, const std::string& description, std::int32_t,
                     const std::string&, bool) override
    {
        if (reporterFails)
            fail(failure::invalidCall);
        reports.push_back(source + " " + std::to_string(number) + ": " + description);
    }
    std::string Caption() override { return "caption"; }
    void ShowHint(const std::string& hint, const std::string&) override { hints.push_back(hint); }
    void ShowHelpTopic(std::int32_t topic) override { topics.push_back(topic); }
    std::shared_ptr<StatusSite> queryStatusSite() override { return unowned<StatusSite>(offersStatus); }
    std::shared_ptr<HelpSite> queryHelpSite() override { return unowned<HelpSite>(offersHelp); }
    void OnChanged() override { ++changes; }

    /// The lists' contents so far, which they then forget.
    std::vector<std::string> takeMessages() { return std::exchange(messages, {}); }
    std::vector<std::string> takeReports() { return std::exchange(reports, {}); }
    /// This object as a host's client site.
    std::shared_ptr<ClientSite> site() { return unowned<ClientSite>(true); }

private:
    template <class T> std::shared_ptr<T> unowned(bool offered)
    {
        return offered ? std::shared_ptr<T>(std::shared_ptr<void>(), this) : nullptr;
    }
    std::shared_ptr<ErrorReporter> createReporter() { return unowned<ErrorReporter>(true); }
    void setting(const std::string& name, std::int32_t value)
    {
        if (printerFails)
            fail(failure::invalidCall);
        printing.push_back(name + " " + std::to_string(value));
    }
};

} // namespace ko::test
