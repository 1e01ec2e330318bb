// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

/// The program's folder in the state folder of the XDG Base Directory Specification 0.8, for what is to outlast a run
/// but is no document: under `stateHome`, the value of $XDG_STATE_HOME, or in `home` where that is no absolute path, as
/// an empty one. It need not be there.
std::filesystem::path stateFolder(const std::string& stateHome, const std::filesystem::path& home);

/// The file in the program's state folder that holds the user's reminders; it is there only while the agent has
/// something to do.
std::filesystem::path reminderFile(const std::filesystem::path& stateFolder);
