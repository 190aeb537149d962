#include "Openings.h"
#include "fakes/Sampled.h"

namespace ko::test {
namespace {

/// An action of the host while it is open.
struct Deed {
    const char* name;
    void (*play)(Desk&);

    friend std::ostream& operator<<(std::ostream& out, const Deed& deed) { return out << deed.name; }
};

const Deed deeds[] = {
    {"DestroysTheWindow",
     [](Desk& desk) {
         // What waits for the next events must not use it.
         desk.window->docks().showRecordingFailures();
         desk.window->space().refreshLater();
         desk.window.reset();
     }},
    {"EndsTheDocument", [](Desk& desk) { desk.window->capture().startFromHere(desk.folder.file("a.scenario")); }},
    {"OpensAnotherSetUp",
     [](Desk& desk) { desk.window->open(desk.folder.file("other.json", R"({"drivers": [{"name": "B"}]})")); }},
    {"HandsOverAnotherList",
     [](Desk& desk) {
         const HostInstruments& drivers = desk.window->session().drivers();
         const DriverList list(drivers.begin(), drivers.empty() ? drivers.end() : drivers.begin() + 1);
         desk.window->document().drivers().setNumberOfDrivers(static_cast<std::int32_t>(list.size()));
         desk.window->document().drivers().setDrivers(list);
     }},
    {"Hides", [](Desk& desk) { desk.window->document().UserDocument_Hide(), desk.window->hide(); }},
    {"LocksThePage", [](Desk& desk) { desk.window->document().mode().setReadOnly(true); }},
};

class Ends : public testing::TestWithParam<Deed> {};

TEST_P(Ends, InTheMiddleOfWhatTheUserDoes)
{
    // The first depends on the deed, so that together they reach every way.
    const auto stride = sampledOneIn<std::size_t>(1);
    for (std::size_t way = static_cast<std::size_t>(GetParam().name[0]) % stride; way < openings().size();
         way += stride) {
        const Opening& opening = openings()[way];
        SCOPED_TRACE(opening.name);
        Desk desk;
        bool isPlayed = false;
        QTimer host;
        QObject::connect(&host, &QTimer::timeout, [&] {
            QWidget* const front =
                opening.isPopup && !isPlayed ? QApplication::activePopupWidget() : QApplication::activeModalWidget();
            if (opening.isQuestion && !isPlayed && !qobject_cast<QMessageBox*>(front))
                return;
            if (front && !std::exchange(isPlayed, true))
                GetParam().play(desk);
            else if (auto* dialog = qobject_cast<QDialog*>(front))
                dialog->reject();
        });
        host.start(0);
        opening.open(desk);
        for (int i = 0; i < 3 || QApplication::activeModalWidget(); ++i)
            QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(isPlayed);
        host.stop();
        if (QWidget* popup = QApplication::activePopupWidget())
            popup->close();
        if (!desk.window)
            continue;
        // The window must still be usable.
        desk.window->document().mode().setReadOnly(false);
        desk.window->open(desk.folder.file("again.json", triggeredBench));
        desk.window->show();
        desk.activate();
        desk.page().moveFocus(&desk.page().txtDuration);
        desk.at<QLineEdit>(desk.page().txtDuration).selectAll();
        QTest::keyClick(&desk.at(desk.page().txtDuration), '7');
        EXPECT_EQ(desk.window->session().drivers().front()->held().timebase->duration, 7.0F);
    }
}

INSTANTIATE_TEST_SUITE_P(AHost, Ends, testing::ValuesIn(deeds),
                         [](const auto& deed) { return std::string(deed.param.name); });

} // namespace
} // namespace ko::test
