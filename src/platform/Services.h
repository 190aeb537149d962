#pragma once

#include "interfaces/ErrorReporter.h"
#include "interfaces/Values.h"
#include "platform/Font.h"
#include "platform/Locale.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace ko {

class Form;

/// Styles of a message box; every box has only an OK button.
namespace messageStyle {
inline constexpr int plain = 0;
inline constexpr int exclamation = 48;
inline constexpr int information = 64;
} // namespace messageStyle

class MessageBox {
public:
    virtual ~MessageBox() = default;
    /// Shows the box and waits until the user closes it.
    virtual void show(const std::string& text, const std::string& title, int style) = 0;
};

/// A clipboard for text. Every operation may fail.
class Clipboard {
public:
    virtual ~Clipboard() = default;
    virtual void clear() = 0;
    virtual void setText(const std::string& text) = 0;
    virtual std::string text() = 0;
};

/// The system's printers, in its order. Every operation may fail.
class Printers {
public:
    virtual ~Printers() = default;
    virtual std::int32_t count() = 0;
    virtual std::string deviceName(std::int32_t index) = 0;
    virtual void makeCurrent(std::int32_t index) = 0;

    /// Each sets one property of the current printer, with the codes of `DeviceMode`.
    virtual void setCopies(std::int32_t copies) = 0;
    virtual void setColorMode(std::int32_t color) = 0;
    virtual void setDuplex(std::int32_t duplex) = 0;
    virtual void setOrientation(std::int32_t orientation) = 0;
    virtual void setPaperSize(std::int32_t paperSize) = 0;
    virtual void setPrintQuality(std::int32_t quality) = 0;

    /// Draws the form's visible surface onto the current printer.
    virtual void printForm(const Form& form) = 0;
    virtual void endDocument() = 0;
};

struct Point {
    std::int32_t x = 0, y = 0;
};

struct Rectangle {
    std::int32_t left = 0, top = 0, right = 0, bottom = 0;
};

/// The screen. Units are pixels unless stated otherwise.
class Screen {
public:
    virtual ~Screen() = default;
    virtual Point cursorPosition() = 0;
    /// The desktop without its task bars; none when unknown.
    virtual std::optional<Rectangle> workArea() = 0;
    /// Width and height in twips.
    virtual Point size() = 0;
    virtual double twipsPerPixelX() = 0;
    virtual double twipsPerPixelY() = 0;
    virtual std::int32_t verticalScrollBarWidth() = 0;
    /// The default font of forms.
    virtual Font formFont() = 0;
};

class Clock {
public:
    virtual ~Clock() = default;
    /// Local wall-clock time, to the second.
    virtual DateTime now() = 0;
};

class ModalForms {
public:
    virtual ~ModalForms() = default;
    /// Shows the form and returns when `hide` is called for it, from one of its own events.
    virtual void showModal(Form& form) = 0;
    virtual void hide(Form& form) = 0;
};

/// The services that the component needs from its platform. The host provides them; everything referred to must outlive
/// the component.
struct Platform {
    MessageBox& messageBox;
    Clipboard& clipboard;
    Printers& printers;
    Screen& screen;
    Clock& clock;
    ModalForms& modalForms;
    Locale locale;
    /// Creates the host's error reporter; called on first use, may fail.
    std::function<std::shared_ptr<ErrorReporter>()> createErrorReporter;
    /// Reads the current regional settings; a new document takes its time format from them. When not set, `locale`
    /// applies.
    std::function<Locale()> readLocale = {};
};

} // namespace ko
