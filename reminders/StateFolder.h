// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

/// The program's folder in the state folder of the XDG Base Directory Specification 0.8, for what should survive a run
/// but is not a document. `stateHome` is the value of $XDG_STATE_HOME; unless that is an absolute path, the folder lies
/// in `home`. It need not exist.
std::filesystem::path stateFolder(const std::string& stateHome, const std::filesystem::path& home);

/// The file in `stateFolder` that has the user's reminders. It exists only while the agent has something to do.
std::filesystem::path reminderFile(const std::filesystem::path& stateFolder);
