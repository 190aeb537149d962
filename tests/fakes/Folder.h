#pragma once

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

namespace ko::test {

/// A folder of this program and test that is empty at first and removed at the end.
class Folder {
public:
    Folder()
        : path(std::filesystem::path(testing::TempDir()) /
               (testing::UnitTest::GetInstance()->current_test_info()->name() + std::to_string(getpid())))
    {
        std::filesystem::remove_all(path);
        std::filesystem::create_directories(path);
    }
    ~Folder() { std::filesystem::remove_all(path); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    [[nodiscard]] std::string file(const std::string& name) const { return (path / name).string(); }
    /// Writes a file and returns its path.
    std::string file(const std::string& name, std::string_view content) const
    {
        std::ofstream(path / name, std::ios::binary) << content;
        return file(name);
    }

    const std::filesystem::path path;
};

} // namespace ko::test
