#include "host/setup/SetupSaving.h"

#include "fakes/Folder.h"
#include "host/main/SettingsCommand.h"
#include "host/settings/Settings.h"
#include "host/support/FileWriter.h"
#include "host/support/InputError.h"

namespace ko::test {
namespace {

namespace fs = std::filesystem;

class SavingTest : public testing::Test {
protected:
    const Folder folder_;
    const std::string file_ = folder_.file("bench.json");
    const ko::Setup old_ = named("old"), new_ = named("new");

    static ko::Setup named(const std::string& title)
    {
        return parseSetup(R"({"title": ")" + title + R"(", "drivers": []})", "");
    }
};

TEST_F(SavingTest, AFileKeepsItsLinkAndItsPermissionsAndOneThatIsProtectedItsContent)
{
    const fs::path link = folder_.path / "link.json", lost = folder_.path / "lost.json";
    folder_.file("bench.json", "old");
    fs::permissions(file_, fs::perms(0640));
    fs::create_symlink("bench.json", link);
    fs::create_symlink("target.json", lost);
    for (const fs::path& name : {link, lost}) {
        writeWhole(name.string(), "new");
        EXPECT_TRUE(fs::is_symlink(name));
        EXPECT_EQ(readFile(name.string()), "new");
    }
    EXPECT_EQ(fs::status(file_).permissions(), fs::perms(0640));
    EXPECT_TRUE(isSameFile(link.string(), file_));
    EXPECT_TRUE(isSameFile(folder_.file("./none"), folder_.file("none")));
    EXPECT_FALSE(isSameFile(link.string(), lost.string()));
    for (const std::string& name : {folder_.path.string(), std::string("/dev/null"), folder_.file("none/x"),
                                    folder_.file("recording", "\x89HDF\r\n\x1a\n")})
        EXPECT_THROW(writeWhole(name, "new"), InputError) << name;
    if (::geteuid() != 0) {
        fs::permissions(file_, fs::perms(0440));
        EXPECT_THROW(writeWhole(file_, "newer"), InputError);
    }
}

TEST_F(SavingTest, TheCommandLineSavesOverAChangedFileOnlyWhenForced)
{
    SettingsCommand command;
    command.save = file_;
    const SettingsSource source{file_, "what was read", {new_, {}, {}, {}}, {}};
    saveSetup(file_, old_);
    HeadlessPage played(source.options);
    EXPECT_THROW(runSettings(command, source, played), InputError);
    EXPECT_EQ(loadSetup(file_), old_);
    command.force = true;
    runSettings(command, source, played);
    EXPECT_EQ(loadSetup(file_), new_);
}

} // namespace
} // namespace ko::test
