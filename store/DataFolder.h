// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Clock.h"
#include "plist/Value.h"
#include "store/Files.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

/// What a save may replace without keeping a copy.
enum class Replacing : std::uint8_t {
    OwnFile, ///< the file exactly as this program last read or wrote it
    Nothing, ///< for an import or a cleanup: even that file is kept
};

/// The folder "TALV" in the user's application-support folder, with the files of notes and events.
///
/// Nothing that a person wrote is ever lost: what a save removes, or replaces without having read it, is kept in
/// "Recovered" inside the folder. When that fails, the save fails and leaves the file in place.
///
/// A data file that is a symbolic link stands for its target, which is read, replaced and removed; the link stays, so
/// that a user who keeps the file in another folder still finds it there.
///
/// Every function may be called from any thread.
class DataFolder {
public:
    /// Without an application-support folder there is no data folder: nothing is found and nothing can be saved.
    /// `clock` must outlive the data folder.
    DataFolder(std::optional<std::filesystem::path> applicationSupport, const Clock& clock);

    std::optional<std::filesystem::path> url() const;
    std::optional<std::filesystem::path> fileUrl(std::string_view name) const;

    /// Creates the folder, accessible to the user alone, if its parent exists. Returns its path in any case; nullopt
    /// without an application-support folder.
    std::optional<std::filesystem::path> ensure() const;

    /// The table in the file called `name`: empty when there is no such file, nullopt when it cannot be read or is not
    /// a property-list array.
    std::optional<Table> loadTable(const std::string& name);

    /// Writes `table` to the file called `name`, with its type and creator codes, and returns once it is on the disk.
    /// An empty table, or none, removes the file. After an error the file is as it was.
    std::error_code saveTable(const std::optional<Table>& table, const std::string& name, Replacing replacing);

private:
    std::error_code write(const Table& table, const std::filesystem::path& file, const std::string& name,
                          Replacing replacing);
    std::error_code remove(const std::filesystem::path& file, const std::string& name);
    std::error_code keepWhatWouldBeLost(const std::filesystem::path& file, const std::string& name,
                                        Replacing replacing);

    void setKnown(const std::string& name, std::optional<FileIdentity> identity);
    bool isKnown(const std::string& name, const std::filesystem::path& file);

    const std::optional<std::filesystem::path> m_applicationSupport;
    const Clock& m_clock;

    std::mutex m_mutex;
    std::map<std::string, FileIdentity> m_known; ///< the files as last read or written, by name; guarded by m_mutex
};
