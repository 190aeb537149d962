#pragma once

#include "bench/BareDriver.h"
#include "document/TimebaseEditor.h"
#include "fakes/FakePlatform.h"

#include <functional>
#include <string>
#include <vector>

namespace ko::bench {

/// A shown document with drivers of 64 channels each, half of them dynamic.
class Setup {
public:
    /// Each driver offers lists of about `entries` choices, different from the next driver's; 0: ranges.
    Setup(int drivers, int entries);

    Page& page() { return document.page(); }
    /// Passes the drivers to the document and shows the page.
    void open();
    /// Sets the user's actions in the next dialogs.
    void inDialog(const std::function<void(Form&)>& user) { host_.inModalForm = user; }

private:
    test::FakePlatform host_;
    Shared shared_{host_.platform, {}};

public:
    TimebaseEditor editor{shared_, host_};
    Document& document = editor;

private:
    DriverList drivers_;
};

/// An action of the host or the user, and its preparation before each run.
struct Event {
    enum class Offers { Boxes, Lists, Both };

    std::string name;
    Offers offers = Offers::Boxes; ///< the set-ups in which it is possible
    std::function<void(Setup&)> prepare;
    std::function<void(Setup&)> run;
};

std::vector<Event> events();

} // namespace ko::bench
