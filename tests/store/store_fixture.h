// SPDX-License-Identifier: MIT
#pragma once

#include "store/Record.h"
#include "support/FixedClock.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include <stdlib.h>
#include <sys/stat.h>

/// The time of the store's tests: 2026-11-21 05:32:10.123 UTC, by Python's datetime.
inline constexpr Date storeTime = dateFromUnixSeconds(1795239130.123);

inline const std::string notesName = "TALV VeluMora";
inline const std::string eventsName = "TALV Events";

/// A new folder on the build's file system, removed at the end.
class TestFolder {
public:
    TestFolder()
    {
        std::string name = TEST_FOLDER "/store-test-XXXXXX";
        if (!::mkdtemp(name.data())) {
            throw std::runtime_error("cannot make " + name);
        }
        m_path = name;
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;
    ~TestFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    const std::filesystem::path& path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

inline void put(const std::filesystem::path& file, const std::string& bytes)
{
    std::ofstream(file, std::ios::binary) << bytes;
}

inline std::string bytesOf(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// The permissions.
inline mode_t modeOf(const std::filesystem::path& path)
{
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    return status.st_mode & 07777;
}

/// What lies in `folder`, sorted.
inline std::vector<std::string> namesIn(const std::filesystem::path& folder)
{
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
        names.push_back(entry.path().filename().native());
    }
    std::ranges::sort(names);
    return names;
}

/// `count` notes of successive days, all with the same text.
inline Table notes(int count, const std::string& text)
{
    Table table;
    for (int day = 0; day < count; ++day) {
        table.append(makeNoteRecord(dateFromUnixSeconds(86400.0 * day), text));
    }
    return table;
}
