#include "FrameTest.h"
#include "host/toolkit/RecentFiles.h"
#include "interfaces/Timebase.h"

#include <QDropEvent>
#include <QMimeData>
#include <sys/stat.h>

namespace ko::test {
namespace {

class FrameFilesTest : public FrameTest {
protected:
    const std::string bench = file("bench.json", oneInstrument);
    const std::string other = file("other.json", oneInstrument);

    /// Returns the files in the menu of recent files.
    QStringList recent()
    {
        QStringList names;
        for (const QAction* entry : recentEntries())
            if (entry->text().startsWith('&') && entry->text().contains("  "))
                names << entry->text().section("  ", 1).section(" (", 0, 0);
        return names;
    }
    bool drop(const QList<QUrl>& urls)
    {
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::ShiftModifier);
        QApplication::sendEvent(&window, &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent event(QPointF(5, 5), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::ShiftModifier);
        QApplication::sendEvent(&window, &event);
        QCoreApplication::processEvents();
        return enter.dropAction() == Qt::CopyAction && event.dropAction() == Qt::CopyAction;
    }
    QList<QAction*> recentEntries()
    {
        auto* menu = window.findChild<QMenu*>("recentFiles");
        Q_EMIT menu->aboutToShow();
        return menu->actions();
    }
};

TEST_F(FrameFilesTest, TheTitleCarriesTheNameAndTheMarkThatSavingClears)
{
    EXPECT_TRUE(window.windowTitle().startsWith(window.text(hostText::noSetup)));
    window.open(bench);
    EXPECT_FALSE(window.isWindowModified());
    change(window);
    EXPECT_TRUE(window.isWindowModified());
    action(hostText::fileMenu, hostText::save).trigger();
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_EQ(loadSetup(bench).instruments.at(0).timebase->startMode, startMode::atTime);
    user.saveAs = folder.file("copy.json");
    change(window);
    action(hostText::fileMenu, hostText::saveAs).trigger();
    EXPECT_TRUE(window.windowTitle().startsWith("copy.json[*]"));
    EXPECT_EQ(recent(), QStringList({"copy.json", "bench.json"}));
}

TEST_F(FrameFilesTest, AFileThatIsDroppedIsOpened)
{
    show();
    EXPECT_FALSE(drop({}));
    EXPECT_FALSE(drop({QUrl("mailto:a@b")}));
    EXPECT_FALSE(drop({QUrl::fromLocalFile(toQt(bench)), QUrl::fromLocalFile(toQt(other))}));
    EXPECT_TRUE(drop({QUrl::fromLocalFile(toQt(bench))}));
    EXPECT_EQ(window.session().name(), "bench.json");
}

TEST_F(FrameFilesTest, AFileThatCannotBeReadIsRefusedByItsNameHoweverItIsOpenedAndTheOldSetupStays)
{
    window.open(bench);
    show();
    const auto before = page().drivers.front();
    const std::string top = folder.path.string() + "/";
    std::filesystem::create_symlink(top + "loop.json", top + "loop.json");
    std::filesystem::create_directory(top + "closed");
    std::ofstream(top + "closed/inner.json") << "{}";
    std::filesystem::permissions(top + "closed", std::filesystem::perms::none);
    ASSERT_EQ(mkfifo((top + "pipe.json").c_str(), 0600), 0);
    for (const std::string& bad : {top + "loop.json", top + "closed/inner.json", top + std::string(300, 'n') + ".json",
                                   top + std::string(5000, '/') + "deep.json", top + "pipe.json", top + "closed",
                                   std::string("/dev/zero"), top + "bench.json/below.json", top + "missing.json",
                                   file("broken.json", "{"), file("key.json", R"({"drivers": [{"nme": 1}]})")}) {
        user.open = bad;
        for (const auto& open : {std::function([&] { drop({QUrl::fromLocalFile(toQt(bad))}); }),
                                 std::function([&] { action(hostText::fileMenu, hostText::openSetup).trigger(); })}) {
            user.told.clear();
            open();
            EXPECT_EQ(user.told.find(bad.substr(0, 200)), 0U) << bad << ": " << user.told;
            EXPECT_EQ(window.session().name(), "bench.json");
            EXPECT_EQ(page().drivers.front(), before);
        }
    }
    std::filesystem::permissions(top + "closed", std::filesystem::perms::owner_all);
}

TEST_F(FrameFilesTest, RecentFilesAreOpenedForgottenWhenMissingAndCleared)
{
    EXPECT_EQ(recent(), QStringList());
    EXPECT_FALSE(recentEntries().constFirst()->isEnabled());
    for (const std::string& each : {bench, other, bench})
        window.open(each);
    EXPECT_EQ(recent(), QStringList({"bench.json", "other.json"}));
    recentEntries().at(1)->trigger();
    EXPECT_EQ(window.session().name(), "other.json");
    QFile::remove(toQt(bench));
    recentEntries().at(1)->trigger();
    EXPECT_EQ(user.told, bench);
    EXPECT_EQ(recent(), QStringList({"other.json", "bench.json"})) << "the user keeps it: a drive may come back";
    user.forget = true;
    recentEntries().at(1)->trigger();
    EXPECT_EQ(recent(), QStringList({"other.json"}));
    recentEntries().constLast()->trigger();
    EXPECT_EQ(recent(), QStringList());
}

TEST_F(FrameFilesTest, SettingsKeepEightFilesAndThePlaceOfTheDocks)
{
    const std::string memory = folder.file("new/window.json");
    {
        FrameWindow first("", memory);
        EXPECT_FALSE(first.restorePlace());
        for (int i = 0; i < 10; ++i)
            first.open(file(qPrintable(QString("%1.json").arg(i)), R"({"drivers": []})"));
        first.show();
        first.findChild<QDockWidget*>("driverLog")->show();
        EXPECT_TRUE(first.close());
    }
    FrameMemory content(memory);
    const QStringList kept = RecentFiles(content).files();
    ASSERT_EQ(kept.size(), RecentFiles::most);
    EXPECT_EQ(kept.constFirst(), toQt(folder.file("9.json")));
    FrameWindow second("", memory);
    EXPECT_TRUE(second.restorePlace());
    second.show();
    EXPECT_TRUE(second.findChild<QDockWidget*>("driverLog")->isVisible());
    EXPECT_FALSE(second.findChild<QDockWidget*>("instruments")->isVisible());
    std::filesystem::remove_all(folder.path / "new");
    RecentFiles(content).add("/10.json");
    EXPECT_EQ(RecentFiles(content).files().size(), RecentFiles::most);
    EXPECT_EQ(FrameMemory(memory).content().geometry, content.content().geometry) << "nothing known is lost";
    testing::internal::CaptureStderr();
    FrameMemory(bench + "/in/window.json").change([](FrameMemory::Content&) {});
    const std::string told = testing::internal::GetCapturedStderr();
    EXPECT_NE(told.find(bench + "/in: cannot be created: Not a directory"), std::string::npos) << told;
}

TEST_F(FrameFilesTest, ANewSetUpBeginsWithATemplateAndAsksForItsFileWhenItIsSaved)
{
    window.open(bench);
    show();
    QMenu* const menu = action(hostText::fileMenu, textNumber::newSetup::menu).menu();
    const auto entry = [&](int text) {
        for (QAction* found : menu->actions())
            if (found->text() == window.text(text))
                return found;
        throw std::out_of_range("no such template");
    };
    const auto canRevert = [&] {
        QMenu& files = *window.menuBar()->actions().constFirst()->menu();
        Q_EMIT files.aboutToShow();
        const bool isEnabled = action(hostText::fileMenu, textNumber::history::revert).isEnabled();
        Q_EMIT files.aboutToHide();
        return isEnabled;
    };
    window.session().setChanged(true);
    entry(textNumber::newSetup::vibration)->trigger();
    EXPECT_EQ(window.session().file(), bench) << "the user is asked about the changes and cancels";
    user.unsaved = Unsaved::Discard;
    entry(textNumber::newSetup::vibration)->trigger();
    EXPECT_TRUE(window.windowTitle().startsWith("vibration[*]")) << fromQt(window.windowTitle());
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_EQ(page().cmbSampleRate.text(), "51200");
    EXPECT_EQ(recent(), QStringList({"bench.json"}));
    EXPECT_FALSE(canRevert()) << "it has no file";
    user.saveAs = folder.file("mine.json");
    QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(readFile(user.saveAs), readFile(KO_DEMO_FOLDER "/vibration.json"));
    EXPECT_TRUE(canRevert());
    EXPECT_EQ(recent(), QStringList({"mine.json", "bench.json"}));
    QTest::keyClick(&window, Qt::Key_N, Qt::ControlModifier);
    EXPECT_TRUE(page().drivers.empty() && window.session().name() == "empty");
    for (QAction* each : menu->actions()) {
        each->trigger();
        EXPECT_EQ(user.told, "") << fromQt(each->text());
    }
}

} // namespace
} // namespace ko::test
