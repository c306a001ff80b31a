#pragma once

#include "camdata/platform/text/ZetString.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

#include <gtest/gtest.h>

/// A folder for one test, with blanks and umlauts in its name; gone with this object.
class TempFolder {
  public:
    TempFolder() {
        const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
        const std::string name = std::string(test->test_suite_name()) + "." + test->name();
        std::string flat = name;
        for (char& c : flat)
            c = c == '/' ? '-' : c;
        m_path = std::filesystem::temp_directory_path() /
                 std::filesystem::path(u8"Träger und Maße") / flat;
        // The same tests may run at the same time from another build.
        m_path += "-";
        m_path += std::to_string(std::random_device()());
        std::filesystem::create_directories(m_path);
    }
    /// For a test part of which runs in another process, which gets the same folder. On Windows
    /// that process comes here by itself, elsewhere it is a copy of this one.
    struct Shared {};
    explicit TempFolder(Shared) : TempFolder() {
#ifdef _WIN32
        constexpr const wchar_t* kVariable = L"CAMDATA_TEST_FOLDER";
        if (const wchar_t* given = _wgetenv(kVariable)) {
            std::filesystem::remove(m_path);
            m_path = given;
        } else {
            _wputenv_s(kVariable, m_path.c_str());
        }
#endif
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    /// Path of a file in the folder; the name is UTF-8.
    std::filesystem::path PathOf(const std::string& file) const {
        return m_path / std::filesystem::path(std::u8string(file.begin(), file.end()));
    }
    ZetString NameOf(const std::string& file) const {
        const std::u8string path = PathOf(file).u8string();
        return ZetString::fromUtf8(std::string(path.begin(), path.end()));
    }
    std::filesystem::path Write(const std::string& file, const std::string& bytes) const {
        std::ofstream(PathOf(file), std::ios::binary) << bytes;
        return PathOf(file);
    }
    std::string Read(const std::string& file) const {
        std::ifstream stream(PathOf(file), std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

  private:
    std::filesystem::path m_path;
};
