#include "FrameTest.h"
#include "RandomUser.h"
#include "host/docks/DriverLog.h"
#include "host/docks/DriverLogModel.h"
#include "host/docks/Reports.h"
#include "host/recording/HeldRecording.h"
#include "host/recording_view/RecordingView.h"

#include <QPixmapCache>
#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <malloc.h>
#include <nlohmann/json.hpp>

namespace ko::test {
namespace {

constexpr int instruments = 50;

/// What the program holds at a time.
struct Held {
    std::size_t bytes;
    std::ptrdiff_t handles, threads, widgets;
};

std::ptrdiff_t entriesOf(const char* folder)
{
    return std::distance(std::filesystem::directory_iterator(folder), {});
}

/// After the windows, timers and objects that are about to go.
Held heldNow()
{
    QTest::qWait(20);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    // Limited to 10 MB by the toolkit.
    QPixmapCache::clear();
    return {mallinfo2().uordblks, entriesOf("/proc/self/fd"), entriesOf("/proc/self/task"),
            QApplication::allWidgets().size()};
}

/// A window with fifty instruments, used at random, recorded each hour and left as it was found.
class LongUseTest : public FrameTest {
protected:
    LongUseTest()
    {
        std::ifstream example(KO_DEMO_FOLDER "/engine-bench-demo.json");
        setup_ = nlohmann::json::parse(example, nullptr, true, true);
        const nlohmann::json kinds = std::exchange(setup_["drivers"], nlohmann::json::array());
        for (int i = 0; i < instruments; ++i) {
            nlohmann::json one = kinds.at(static_cast<std::size_t>(i) % kinds.size());
            one["name"] = one["name"].get<std::string>() + " " + std::to_string(i + 1);
            one["timebase"]["duration"] = 1;
            one["timebase"]["startMode"] = 0;
            one["timebase"]["stopMode"] = 0;
            setup_["drivers"].push_back(std::move(one));
        }
        user.unsaved = Unsaved::Discard;
        user.conflict = Conflict::Overwrite;
        user.stops = true;
        user.saveAs = folder.file("saved.json");
        show();
    }

    void useForAnHour(int hour, int actions)
    {
        open(hour);
        user.record = folder.file("used.h5");
        hand_.draw = Draw(static_cast<unsigned>(hour) + 1);
        for (int action = 0; action < actions; ++action) {
            hand_.act();
            if (!window.isVisible())
                show();
        }
        window.recording().stop();
        ASSERT_TRUE(QTest::qWaitFor([this] { return !window.recording().isActive(); })) << hour;
        hand_.done.clear();
        recordPlan(hour);
        hand_.have([this] { window.files().close(); });
        EXPECT_FALSE(window.session().hasSetup()) << hour;
        // They keep a limited number of entries.
        window.docks().log().model().clear();
        window.docks().reports().clear();
        std::filesystem::remove_all(folder.path);
        std::filesystem::create_directories(folder.path);
    }

private:
    void open(int hour)
    {
        const QString time =
            QDateTime(QDate(2026, 11, 21), QTime(9, 30)).addSecs(3600LL * hour).toString("yyyy-MM-dd HH:mm:ss");
        setup_["clock"] = fromQt(time);
        setup_["title"] = "hour " + std::to_string(hour);
        const QString opened = toQt(file("fifty.json", setup_.dump(1)));
        // A refused entry would keep its set-up open.
        hand_.have([this] { QTest::keyClick(window.focusWidget() ? window.focusWidget() : &window, Qt::Key_Escape); });
        hand_.have([&] { window.files().open(opened); });
        ASSERT_EQ(window.session().title(), setup_["title"]) << user.told;
        ASSERT_EQ(window.session().drivers().size(), static_cast<std::size_t>(instruments)) << user.told;
    }
    /// The set-up that is opened again records the same, whatever has been done.
    void recordPlan(int hour)
    {
        open(hour);
        user.record = folder.file("hour.h5");
        hand_.have([this] { window.recording().record(); });
        ASSERT_TRUE(QTest::qWaitFor([this] { return !window.recording().isActive(); }, 60'000)) << hour;
        ASSERT_EQ(fromQt(window.recording().view().stateText()), "The recording is complete.") << hour << user.told;
        std::vector<std::int64_t> samples;
        for (const auto& instrument : heldIn(user.record).instruments)
            samples.push_back(instrument.samples);
        if (samples_.empty())
            samples_ = samples;
        EXPECT_EQ(samples, samples_) << hour;
        EXPECT_EQ(samples.size(), static_cast<std::size_t>(instruments)) << hour;
    }

    nlohmann::json setup_;
    RandomUser hand_{window, 1};
    std::vector<std::int64_t> samples_; ///< of each instrument, in the first hour
};

TEST_F(LongUseTest, AWeekOfUseTakesNoMoreThanItsFirstHours)
{
    const bool isLong = std::getenv("KO_LONG_RUN") != nullptr;
    const int hours = isLong ? 7 * 24 : 6;
    std::vector<Held> held;
    for (int hour = 0; hour < hours && !HasFailure(); ++hour) {
        useForAnHour(hour, isLong ? 60 : 10);
        held.push_back(heldNow());
        std::cout << hour << ": " << held.back().bytes << " bytes, " << held.back().handles << " handles, "
                  << held.back().threads << " threads, " << held.back().widgets << " widgets" << std::endl;
    }
    ASSERT_FALSE(HasFailure());
    // The first hours fill caches. Containers keep their capacity, so only the hours with the least show a leak.
    const auto begin = held.begin() + hours / 6, middle = held.begin() + hours / 2;
    const auto grown = [&](auto member) {
        const auto isLess = [member](const Held& a, const Held& b) { return a.*member < b.*member; };
        return static_cast<std::ptrdiff_t>((*std::min_element(middle, held.end(), isLess)).*member) -
               static_cast<std::ptrdiff_t>((*std::min_element(begin, middle, isLess)).*member);
    };
    EXPECT_LE(grown(&Held::handles), 0);
    EXPECT_LE(grown(&Held::threads), 0);
    EXPECT_LE(grown(&Held::widgets), 0);
    // About 6 KB an hour are texts and glyphs that are new in each; in a short run docks open for the first time.
    EXPECT_LE(grown(&Held::bytes), isLong ? 1'500'000 : 1'000'000);
}

} // namespace
} // namespace ko::test
