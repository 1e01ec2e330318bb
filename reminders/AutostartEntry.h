// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <system_error>

/// The desktop entry in the user's autostart folder that starts the agent at login. It exists only while the agent has
/// something to do.
class AutostartEntry {
public:
    /// `folder` need not exist. `program` is an absolute path.
    AutostartEntry(const std::filesystem::path& folder, std::filesystem::path program);

    /// Writes the entry unless it is there already. After an error the former one, or none, is there.
    std::error_code enable() const;

    /// Removes the entry. No error when there is none.
    std::error_code disable() const;

private:
    std::filesystem::path m_file;
    std::filesystem::path m_program;
};

/// The text of an entry that starts `program`, by the Desktop Entry Specification 1.5, quoted and escaped so that any
/// path works.
std::string autostartText(const std::filesystem::path& program);
