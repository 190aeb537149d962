#include "FrameTest.h"
#include "host/support/InputError.h"
#include "interfaces/Timebase.h"

namespace ko::test {
namespace {

/// The file of the open set-up.
class OpenFileTest : public FrameTest {
protected:
    const std::string bench = file("bench.json", oneInstrument);
};

TEST_F(OpenFileTest, ClosingAndOpeningOfferToSaveWhatHasChanged)
{
    const std::string other = file("other.json", oneInstrument);
    window.open(bench);
    show();
    change(window);
    EXPECT_FALSE(window.close());
    window.files().open(toQt(other));
    EXPECT_EQ(user.asked, 2);
    EXPECT_EQ(window.session().name(), "bench.json");
    user.unsaved = Unsaved::Save;
    window.files().open(toQt(other));
    EXPECT_EQ(window.session().name(), "other.json");
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_EQ(loadSetup(bench).instruments.at(0).timebase->startMode, startMode::atTime);
    EXPECT_TRUE(window.close());
    EXPECT_EQ(user.asked, 3);
}

TEST_F(OpenFileTest, AFileThatAnotherProgramChangesIsReloadedHoweverItIsReplaced)
{
    window.open(bench);
    show();
    user.reload = true;
    const auto content = [](char name) { return R"({"drivers": [{"name": ")" + std::string(1, name) + R"("}]})"; };
    const std::function<void(const std::string&)> ways[]{
        [&](const std::string& text) { file("bench.json", text.c_str()); },
        [&](const std::string& text) { std::filesystem::rename(file("new.json", text.c_str()), bench); },
        [&](const std::string& text) {
            QFile::remove(toQt(bench));
            file("bench.json", text.c_str());
        }};
    char name = 'C';
    for (int round = 0; round < 2; ++round)
        for (const auto& change : ways) {
            change(content(name));
            EXPECT_TRUE(QTest::qWaitFor([&] { return window.session().drivers().front()->name()[0] == name; })) << name;
            EXPECT_FALSE(window.isWindowModified());
            ++name;
        }
    EXPECT_EQ(user.reloads, 6);
    // The reload waits while a message box is open.
    QMessageBox box(&window);
    box.open();
    ways[0](content('X'));
    for (int i = 0; i < 9; ++i)
        QCoreApplication::processEvents();
    EXPECT_EQ(user.reloads, 6);
    box.close();
    activate();
    EXPECT_TRUE(QTest::qWaitFor([&] { return user.reloads == 7; }));
}

TEST_F(OpenFileTest, AFileThatIsOpenIsNotWrittenAsSomethingElse)
{
    window.open(bench);
    const std::string plan = page().lblPlan.caption();
    for (const std::string& refused : {bench, file("run.h5", "\x89HDF\r\n\x1a\n")})
        EXPECT_THROW(window.capture().startFromHere(refused), InputError);
    EXPECT_EQ(page().lblPlan.caption(), plan) << "the instruments are still there";
    const std::string scenario = bench.substr(0, bench.size() - 4) + "scenario";
    std::filesystem::copy(bench, scenario + ".setup.json");
    window.open(scenario + ".setup.json");
    EXPECT_THROW(window.capture().startFromHere(scenario), InputError);
}

TEST_F(OpenFileTest, AValidEntryAndANameThatAreStillTypedAreSavedAndAnInvalidOneKeepsTheFileAndThePage)
{
    window.open(file("range.json", R"({"drivers": [{"name": "A", "samplingMode": 2,
        "timebase": {"scanPeriod": {"value": 1, "range": [0.5, 2]}}}]})"));
    show();
    auto& box = static_cast<QLineEdit&>(at(page().txtScanPeriod));
    QTest::mouseClick(&box, Qt::LeftButton);
    box.selectAll();
    QTest::keyClicks(&box, "1.5");
    QTest::keyClick(&box, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(loadSetup(window.session().file()).instruments.at(0).timebase->scanPeriod.value, 1.5);
    action(hostText::viewMenu, hostText::instruments).trigger();
    auto& tree = *window.instruments().findChild<QTreeView*>();
    tree.setCurrentIndex(tree.model()->index(0, 0));
    press(Qt::Key_F2);
    QTest::keyClicks(window.focusWidget(), "B");
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(loadSetup(window.session().file()).instruments.at(0).name, "B");
    EXPECT_FALSE(window.isWindowModified());
    QTest::mouseClick(&box, Qt::LeftButton);
    QTest::keyClicks(&box, "x");
    QString told;
    answer(told);
    QTest::keyClick(&box, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(std::exchange(told, {}).trimmed(), window.text(1148));
    answer(told);
    window.files().open(toQt(bench));
    EXPECT_NE(window.session().file(), bench);
    answer(told);
    EXPECT_FALSE(window.close());
    EXPECT_EQ(told.trimmed(), window.text(1148));
    EXPECT_EQ(loadSetup(window.session().file()).instruments.at(0).timebase->scanPeriod.value, 1.5);
}

} // namespace
} // namespace ko::test
