#include "ChangedWindow.h"
#include "FailingCalls.h"
#include "host/support/FileWriter.h"
#include "host/support/InputError.h"

#include <QDir>
#include <iostream>

namespace ko::test {
namespace {

namespace fs = std::filesystem;

TEST(AutosaveFilesTest, WhicheverCallFailsTheCopyIsWrittenAtLastForTheUserAloneAndGoesWithTheWindow)
{
    int reported = 0;
    std::string call = "first";
    for (int number = 0; !call.empty(); ++number) {
        const QTemporaryDir temporary;
        const fs::path folder = fs::path(fromQt(temporary.path())) / "memory";
        ChangedWindow window(folder, "set-up.json", "window.json");
        fs::remove_all(folder);
        failingCalls::plan(number, folder.string());
        const auto copies = [&] { return QDir(toQt(folder.string())).entryList({"*.unsaved"}); };
        EXPECT_TRUE(QTest::qWaitFor([&] { return !copies().empty(); }));
        call = failingCalls::end();
        SCOPED_TRACE(std::to_string(number) + ": " + call + "; " + window.reports());
        const std::string copy = folder / fromQt(copies().value(0));
        EXPECT_EQ(parseCopy(readFile(copy), copy), window->session().unsaved());
        EXPECT_EQ(fs::status(copy).permissions(), fs::perms::owner_read | fs::perms::owner_write);
        reported += window.reports().empty() ? 0 : 1;
        window.user.unsaved = Unsaved::Discard;
        window->close();
        for (const auto& entry : fs::directory_iterator(folder))
            EXPECT_EQ(entry.path().filename(), "window.json");
    }
    EXPECT_GT(reported, 5);
    std::cout << "Autosave: " << reported << " failures\n";
}

TEST(SavedAgainTest, AfterAnyFailureTheNextSaveSucceedsWithoutAQuestion)
{
    std::string call = "first";
    for (int number = 0; !call.empty(); ++number) {
        const QTemporaryDir folder;
        ChangedWindow window(fromQt(folder.path()), fromQt(folder.filePath("bench.json")));
        failingCalls::plan(number, fromQt(folder.path()));
        window->files().save();
        call = failingCalls::end();
        SCOPED_TRACE(call);
        window.user.conflict = Conflict::Cancel;
        window->files().save();
        EXPECT_FALSE(window->isWindowModified());
    }
}

TEST(FileWriterTest, AFailedWriteLeavesTheLinesBeforeAndOnlyFilesOfKilledProgramsAreRemoved)
{
    const QTemporaryDir temporary;
    const fs::path folder = fromQt(temporary.path());
    const std::string file = folder / "x";
    FileWriter log(file);
    log.write("0123456789", 0);
    log.commit();
    failingCalls::plan(0, folder.string());
    EXPECT_THROW(log.write(std::string(9000, 'x'), 5), InputError);
    EXPECT_EQ(failingCalls::end(), "write");
    EXPECT_TRUE(readFile(file) == "0123456789");
    const fs::path abandoned = folder / ".korvell-1-0.new", others = folder / ".korvell-notes";
    for (const fs::path& left : {abandoned, others})
        std::ofstream(left) << "left";
    FileWriter first(folder / "a");
    FileWriter second(folder / "b");
    EXPECT_FALSE(fs::exists(abandoned));
    EXPECT_TRUE(fs::exists(others));
    first.commit();
    second.commit();
    EXPECT_TRUE(fs::exists(folder / "a") && fs::exists(folder / "b"));
}

} // namespace
} // namespace ko::test
