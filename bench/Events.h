#pragma once

#include "bench/BareDriver.h"
#include "document/TimebaseEditor.h"
#include "fakes/FakePlatform.h"

#include <functional>
#include <string>
#include <vector>

namespace ko::bench {

/// A document with drivers of 64 channels, half of them dynamic, that is shown once.
class Setup {
public:
    /// Each driver offers lists of about `entries` choices, no two neighbours the same; 0: ranges.
    Setup(int drivers, int entries);

    Page& page() { return document.page(); }
    /// Hands the drivers over and shows the page.
    void open();
    /// What the user does in the next dialogs.
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

/// Something that the host or the user does, and what has to come before it each time.
struct Event {
    enum class Offers { Boxes, Lists, Both };

    std::string name;
    Offers offers = Offers::Boxes; ///< which set-ups it can happen in
    std::function<void(Setup&)> prepare;
    std::function<void(Setup&)> run;
};

std::vector<Event> events();

} // namespace ko::bench
