/// @file
/// Directories for tests.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <initializer_list>
#include <string>
#include <system_error>
#include <vector>

#include "util/wide.h"

namespace galdren_test {

/// Removes a directory with all that is in it, once no other program reads it any more.
inline void Remove_Directory(const std::filesystem::path& path) {
    std::error_code fault;
    for (int tries = 0; tries < 200; ++tries) {
        std::filesystem::remove_all(path, fault);
        if (!fault) return;
        Sleep(20);
    }
    ADD_FAILURE() << path << ": " << fault.message();
}

/// Directories in the temporary directory, gone at the end with all that the test has put there. Their names
/// are given below the sample and end with a backslash, as the paths of nodes do.
class Sample_Directories {
  public:
    explicit Sample_Directories(std::initializer_list<const char*> names = {}) {
        root_ = std::filesystem::temp_directory_path().string() + Name() + "\\";
        Add("");
        for (const char* name : names)
            Add(name);
    }
    ~Sample_Directories() {
        while (!added_.empty())
            Remove(std::string(added_.back()));
    }
    Sample_Directories(const Sample_Directories&) = delete;
    Sample_Directories& operator=(const Sample_Directories&) = delete;

    void Add(const std::string& name) {
        EXPECT_TRUE(CreateDirectoryW(Wide(name).c_str(), nullptr)) << name.substr(0, 80);
        added_.push_back(name);
    }
    void Remove(const std::string& name) {
        RemoveDirectoryW(Wide(name).c_str());
        std::erase(added_, name);
    }
    std::string Name() const { return "galdren_tree_" + std::to_string(GetCurrentProcessId()); }
    std::string Plain(const std::string& name = "") const { return root_ + name; }

  private:
    /// The form that may be longer than MAX_PATH.
    std::wstring Wide(const std::string& name) const { return galdren::To_Wide("\\\\?\\" + root_ + name); }

    std::string root_;
    std::vector<std::string> added_;
};

}  // namespace galdren_test
