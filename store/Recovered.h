// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"

#include <filesystem>
#include <string>
#include <system_error>

/// The folder of rescued files: the newest five states of each data file, named after it and the moment in UTC, "TALV
/// VeluMora 2026-11-21 05.32.10.123", so that names sort by time.
namespace Recovered {

inline constexpr int copiesPerFile = 5;

/// Keeps `file`, the data file called `name`, in `folder`, which is created when it is missing. A file's bytes are
/// copied, unless the newest copy has the same ones. When copying fails (the disk is full, the file cannot be read),
/// the file gets a second name (hard link) there. Anything that is not a regular file, such as a folder, is moved
/// there.
///
/// Copies beyond the newest five are removed. After an error nothing was kept, and `file` is the only one there is.
std::error_code keep(const std::filesystem::path& folder, const std::filesystem::path& file, const std::string& name,
                     Date now);

} // namespace Recovered
