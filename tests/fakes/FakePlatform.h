#pragma once

#include "fakes/FaultGate.h"
#include "interfaces/ClientSite.h"
#include "platform/DateTimes.h"
#include "platform/Form.h"
#include "platform/Services.h"

#include <vector>

namespace ko::test {

/// All platform services in memory. Calls are recorded, and every call passes `gate`.
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
    FaultGate gate;
    Point cursor;
    std::optional<Rectangle> area = Rectangle{0, 0, 1280, 1024};
    DateTime time{46347.0};
    /// The user's input to a modal form; unset: the form is cancelled at once.
    std::function<void(Form&)> inModalForm;
    std::function<void()> inMessage;
    std::function<void()> onChanged;
    const Form* hiddenForm = nullptr; ///< the form hidden last
    Platform platform{*this, *this, *this, *this, *this, *this, {}, [this] { return createReporter(); }};

    void show(const std::string& text, const std::string& title, int style) override
    {
        if (inMessage)
            inMessage();
        add("show", messages, title + ": " + text + " (" + std::to_string(style) + ")");
    }
    void clear() override { note("clear", clipboardText, ""); }
    void setText(const std::string& text) override { note("setText", clipboardText, text); }
    std::string text() override
    {
        if (clipboardFails)
            fail(failure::invalidCall);
        return answer("text", clipboardText);
    }
    std::int32_t count() override { return answer("count", 2); }
    std::string deviceName(std::int32_t index) override
    {
        return answer("deviceName", index == 0 ? "First" : "Second");
    }
    void makeCurrent(std::int32_t index) override { add("makeCurrent", printing, "current " + std::to_string(index)); }
    void setCopies(std::int32_t v) override { setting("copies", v); }
    void setColorMode(std::int32_t v) override { setting("color", v); }
    void setDuplex(std::int32_t v) override { setting("duplex", v); }
    void setOrientation(std::int32_t v) override { setting("orientation", v); }
    void setPaperSize(std::int32_t v) override { setting("paper", v); }
    void setPrintQuality(std::int32_t v) override { setting("quality", v); }
    void printForm(const Form& form) override { add("printForm", printing, "print " + form.name()); }
    void endDocument() override { add("endDocument", printing, "end"); }
    Point cursorPosition() override { return answer("cursorPosition", cursor); }
    std::optional<Rectangle> workArea() override { return answer("workArea", area); }
    Point size() override { return answer("size", Point{1280 * 15, 1024 * 15}); }
    double twipsPerPixelX() override { return answer("twipsPerPixelX", 15); }
    double twipsPerPixelY() override { return answer("twipsPerPixelY", 15); }
    std::int32_t verticalScrollBarWidth() override { return answer("verticalScrollBarWidth", 17); }
    Font formFont() override { return answer("formFont", Font{.name = "DejaVu Sans", .size = 9}); }
    DateTime now() override { return answer("now", time); }
    void showModal(Form& form) override
    {
        gate.pass("showModal");
        if (inModalForm)
            inModalForm(form);
    }
    void hide(Form& form) override { hiddenForm = &form; }
    void ReportError(std::int32_t number, const std::string& source, const std::string& description,
                     std::int32_t helpContext, const std::string& helpFile, bool log) override
    {
        if (reporterFails)
            fail(failure::invalidCall);
        const bool isPlain = helpContext == 0 && helpFile.empty() && log;
        add("ReportError", reports,
            source + " " + std::to_string(number) + ": " + description + (isPlain ? "" : " (with help or unlogged)"));
    }
    std::string Caption() override { return answer("Caption", "caption"); }
    void ShowHint(const std::string& hint, const std::string&) override { add("ShowHint", hints, hint); }
    void ShowHelpTopic(std::int32_t topic) override { add("ShowHelpTopic", topics, topic); }
    std::shared_ptr<StatusSite> queryStatusSite() override
    {
        return answer("queryStatusSite", unowned<StatusSite>(offersStatus));
    }
    std::shared_ptr<HelpSite> queryHelpSite() override
    {
        return answer("queryHelpSite", unowned<HelpSite>(offersHelp));
    }
    void OnChanged() override
    {
        note("OnChanged", changes, changes + 1);
        if (onChanged)
            onChanged();
    }

    /// Return and clear the lists.
    std::vector<std::string> takeMessages() { return std::exchange(messages, {}); }
    std::vector<std::string> takeReports() { return std::exchange(reports, {}); }
    /// Returns this object as a host's client site.
    std::shared_ptr<ClientSite> site() { return unowned<ClientSite>(true); }

private:
    template <class T> std::shared_ptr<T> unowned(bool offered)
    {
        return offered ? std::shared_ptr<T>(std::shared_ptr<void>(), this) : nullptr;
    }
    template <class T> T answer(const char* call, T value)
    {
        gate.pass(call);
        return value;
    }
    template <class T, class Given> void note(const char* call, T& noted, const Given& value)
    {
        gate.pass(call);
        noted = value;
    }
    template <class List, class Given> void add(const char* call, List& list, const Given& value)
    {
        gate.pass(call);
        list.push_back(value);
    }
    std::shared_ptr<ErrorReporter> createReporter() { return answer("createReporter", unowned<ErrorReporter>(true)); }
    void setting(const char* name, std::int32_t value)
    {
        if (printerFails)
            fail(failure::invalidCall);
        add(name, printing, std::string(name) + " " + std::to_string(value));
    }
};

} // namespace ko::test
