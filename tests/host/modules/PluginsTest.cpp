#include "fakes/Folder.h"
#include "fakes/Thrown.h"
#include "host/modules/InstrumentModule.h"
#include "host/modules/Modules.h"

#include <cstdlib>

namespace ko {
namespace {

namespace fs = std::filesystem;

/// A folder with copies of plug-ins, and with files that are none.
class PluginsTest : public testing::Test {
protected:
    void TearDown() override { ::unsetenv("KO_TEST_THROWS"); }

    void copy(const char* plugin, const std::string& name) const { fs::copy_file(plugin, folder_.path / name); }

    /// What is listed of each file.
    [[nodiscard]] std::string listed() const
    {
        Modules modules({folder_.path, folder_.path / "there is no such folder"});
        std::string all;
        for (const Modules::Listed& it : modules.list()) {
            all += it.file.filename().string() + ": " + it.name + "|" + it.about + "|";
            for (const FoundDevice& device : it.devices)
                all += device.device;
            all += "|" + it.trouble + "\n";
        }
        return all;
    }

    const test::Folder folder_;
};

TEST_F(PluginsTest, FilesThatAreNoModulesAreNamedAndTheOthersLoaded)
{
    copy(KO_TEST_PLUGIN, "b-good.so");
    copy(KO_TEST_PLUGIN, "c-same-name.so");
    copy(KO_TEST_OLD_PLUGIN, "d-old.so");
    copy(KO_TEST_LIBRARY, "e-library.so");
    folder_.file("a-text.so", "no library\n");
    folder_.file("f-empty.so", "");
    folder_.file("readme.txt", "no library\n");
    fs::create_directory(folder_.path / "g-folder.so");
    EXPECT_EQ(listed(), "a-text.so: |||is no driver module\n"
                        "b-good.so: scripted|a test|ab|\n"
                        "c-same-name.so: |||is called scripted, as " +
                            folder_.file("b-good.so") +
                            " is\n"
                            "d-old.so: |||is made for org.korvell.InstrumentModule/0, not for "
                            "org.korvell.InstrumentModule/1\n"
                            "e-library.so: |||is no driver module\n"
                            "f-empty.so: |||is no driver module\n");
}

TEST_F(PluginsTest, AModuleThatThrowsIsNamed)
{
    copy(KO_TEST_PLUGIN, "it.so");
    for (const auto& [call, wanted] :
         {std::pair("name", "it.so: |||name throws\n"), std::pair("about", "it.so: scripted|||about throws\n"),
          std::pair("devices", "it.so: scripted|a test||devices throws\n")}) {
        ::setenv("KO_TEST_THROWS", call, 1);
        EXPECT_EQ(listed(), wanted);
    }
    ::setenv("KO_TEST_THROWS", "open", 1);
    Modules modules({folder_.path});
    EXPECT_EQ(test::thrownBy([&] { modules.open("scripted", "a", {}); }), "open throws");
}

} // namespace
} // namespace ko
