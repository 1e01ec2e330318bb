// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

/// The program's folder in the state folder of the XDG Base Directory Specification 0.8, for what is to outlast a run
/// but is no document: under $XDG_STATE_HOME, by default ~/.local/state. It need not be there.
std::filesystem::path usersStateFolder();
