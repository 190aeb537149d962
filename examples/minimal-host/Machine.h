#pragma once

#include "platform/Services.h"
#include <iostream>

struct Reporter final : ko::ErrorReporter {
    void ReportError(std::int32_t, const std::string&, const std::string& description, std::int32_t, const std::string&,
                     bool) override
    {
        std::cerr << description << '\n';
    }
};

/// The platform services for the component, without a window. A host with a window shows message boxes and dialogs
/// here, and provides its clipboard and printers.
class Machine : ko::MessageBox, ko::Clipboard, ko::Printers, ko::Screen, ko::Clock, ko::ModalForms {
public:
    ko::Platform platform()
    {
        return {.messageBox = *this,
                .clipboard = *this,
                .printers = *this,
                .screen = *this,
                .clock = *this,
                .modalForms = *this,
                .locale = {},
                .createErrorReporter = std::make_shared<Reporter>};
    }

private:
    void show(const std::string& text, const std::string&, int) override { std::cerr << text << '\n'; }

    void clear() override { clipboard_.clear(); }
    void setText(const std::string& text) override { clipboard_ = text; }
    std::string text() override { return clipboard_; }

    std::int32_t count() override { return 0; }
    std::string deviceName(std::int32_t) override { return {}; }
    void makeCurrent(std::int32_t) override {}
    void setCopies(std::int32_t) override {}
    void setColorMode(std::int32_t) override {}
    void setDuplex(std::int32_t) override {}
    void setOrientation(std::int32_t) override {}
    void setPaperSize(std::int32_t) override {}
    void setPrintQuality(std::int32_t) override {}
    void printForm(const ko::Form&) override {}
    void endDocument() override {}

    ko::Point cursorPosition() override { return {}; }
    std::optional<ko::Rectangle> workArea() override { return std::nullopt; }
    ko::Point size() override { return {}; }
    double twipsPerPixelX() override { return 15.0; }
    double twipsPerPixelY() override { return 15.0; }
    std::int32_t verticalScrollBarWidth() override { return 17; }
    ko::Font formFont() override { return {}; }

    ko::DateTime now() override { return {}; }

    void showModal(ko::Form&) override {}
    void hide(ko::Form&) override {}

    std::string clipboard_;
};
