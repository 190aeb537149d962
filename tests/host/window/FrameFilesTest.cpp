#include "FrameTest.h"
#include "host/sheet/SheetTexts.h"
#include "host/support/InputError.h"
#include "host/toolkit/RecentFiles.h"
#include "interfaces/Timebase.h"

#include <QAbstractButton>
#include <QDropEvent>
#include <QMessageBox>
#include <QMimeData>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>

namespace ko::test {
namespace {

class FrameFilesTest : public FrameTest {
protected:
    const std::string bench = file("bench.json", R"({"drivers": [{"name": "A", "timebase": {}}]})");
    const std::string other = file("other.json", R"({"drivers": [{"name": "B", "timebase": {}}]})");

    void change() { (page().optImmediate.value() ? page().optStartTime : page().optImmediate).userClicked(); }
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
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&window, &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&window, &event);
        QCoreApplication::processEvents();
        return true;
    }
    QList<QAction*> recentEntries()
    {
        auto* menu = window.findChild<QMenu*>("recentFiles");
        emit menu->aboutToShow();
        return menu->actions();
    }
};

TEST_F(FrameFilesTest, TheTitleCarriesTheNameAndTheMarkThatSavingClears)
{
    EXPECT_TRUE(window.windowTitle().startsWith(window.text(hostText::noSetup)));
    window.open(bench);
    EXPECT_FALSE(window.isWindowModified());
    change();
    EXPECT_TRUE(window.isWindowModified());
    action(hostText::fileMenu, hostText::save).trigger();
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_EQ(loadSetup(bench).instruments.at(0).timebase->startMode, startMode::atTime);
    user.saveAs = folder.filePath("copy.json").toStdString();
    change();
    action(hostText::fileMenu, hostText::saveAs).trigger();
    EXPECT_TRUE(window.windowTitle().startsWith("copy.json[*]"));
    EXPECT_EQ(recent(), QStringList({"copy.json", "bench.json"}));
    user.saveAs = folder.filePath("nowhere/copy.json").toStdString();
    action(hostText::fileMenu, hostText::saveAs).trigger();
    EXPECT_NE(user.told.find("nowhere"), std::string::npos);
    EXPECT_TRUE(window.windowTitle().startsWith("copy.json[*]"));
}

TEST_F(FrameFilesTest, ClosingAndOpeningOfferToSaveWhatHasChanged)
{
    window.open(bench);
    show();
    change();
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

TEST_F(FrameFilesTest, AFileThatAnotherProgramChangesIsReloadedHoweverItIsReplaced)
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

TEST_F(FrameFilesTest, AFileThatIsOpenIsNotWrittenAsSomethingElse)
{
    window.open(bench);
    EXPECT_THROW(window.capture().startFromHere(bench), InputError);
    const std::string scenario = bench.substr(0, bench.size() - 4) + "scenario";
    std::filesystem::copy(bench, scenario + ".setup.json");
    window.open(scenario + ".setup.json");
    EXPECT_THROW(window.capture().startFromHere(scenario), InputError);
    window.open(bench);
    window.capture().startFromHere(scenario);
    const std::string captured = readFile(scenario);
    user.saveAs = scenario;
    action(hostText::fileMenu, hostText::saveAs).trigger();
    EXPECT_NE(user.told.find("is the scenario that is captured"), std::string::npos);
    EXPECT_EQ(readFile(scenario).find(captured), 0U);
}

TEST_F(FrameFilesTest, AValidEntryThatIsStillTypedIsSavedAndAnInvalidOneKeepsTheFileAndThePage)
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
    const std::string top = folder.path().toStdString() + "/";
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
    window.open(bench);
    window.open(other);
    window.open(bench);
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
    const std::string memory = folder.filePath("new/window.json").toStdString();
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
    EXPECT_EQ(kept.constFirst(), folder.filePath("9.json"));
    FrameWindow second("", memory);
    EXPECT_TRUE(second.restorePlace());
    second.show();
    EXPECT_TRUE(second.findChild<QDockWidget*>("driverLog")->isVisible());
    EXPECT_FALSE(second.findChild<QDockWidget*>("instruments")->isVisible());
}

TEST_F(FrameFilesTest, TheUserIsAskedInBoxesThatNameTheFile)
{
    window.open(bench);
    show();
    BoxQuestions boxes(window, window.session(), texts, locale);
    /// Presses the standard button or the one with the text; rejects the box that has neither.
    const auto press = [&](int text, QMessageBox::StandardButton standard = QMessageBox::Help) {
        return [this, text, standard] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            EXPECT_TRUE(box->text().contains("bench.json"));
            for (QAbstractButton* button : box->buttons())
                if (button->text() == window.text(text) || box->standardButton(button) == standard)
                    return button->click();
            box->reject();
        };
    };
    for (const auto& [button, result] : {std::pair{QMessageBox::Save, Unsaved::Save},
                                         {QMessageBox::Discard, Unsaved::Discard},
                                         {QMessageBox::Cancel, Unsaved::Cancel}}) {
        const Soon soon(press(hostText::product, button));
        EXPECT_EQ(boxes.keepChanges(), result);
    }
    for (const auto& [text, result] : {std::pair{hostText::overwrite, Conflict::Overwrite},
                                       {hostText::saveAs, Conflict::SaveElsewhere},
                                       {hostText::reload, Conflict::Reload},
                                       {hostText::product, Conflict::Cancel}}) {
        const Soon soon(press(text));
        EXPECT_EQ(boxes.settleConflict(), result);
    }
    for (const auto& [text, result] : {std::pair{hostText::reload, true}, {hostText::product, false}}) {
        const Soon soon(press(text));
        EXPECT_EQ(boxes.reload(), result);
    }
    for (const auto& [text, result] : {std::pair{textNumber::recent::remove, true}, {hostText::product, false}}) {
        const Soon soon(press(text));
        EXPECT_EQ(boxes.forget("bench.json"), result);
    }
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
    window.session().setChanged(true);
    entry(textNumber::newSetup::vibration)->trigger();
    EXPECT_EQ(window.session().file(), bench) << "the user is asked about the changes and cancels";
    user.unsaved = Unsaved::Discard;
    entry(textNumber::newSetup::vibration)->trigger();
    EXPECT_TRUE(window.windowTitle().startsWith("vibration[*]")) << fromQt(window.windowTitle());
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_EQ(page().cmbSampleRate.text(), "51200");
    EXPECT_EQ(recent(), QStringList({"bench.json"}));
    user.saveAs = folder.filePath("mine.json").toStdString();
    QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(readFile(user.saveAs), readFile(KO_DEMO_FOLDER "/vibration.json"));
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
