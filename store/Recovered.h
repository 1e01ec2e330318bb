// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"

#include <filesystem>
#include <string>
#include <system_error>

/// The folder of what was about to be lost: the newest five states of each data file, in files named after it and the
/// moment in UTC, "TALV VeluMora 2026-11-21 05.32.10.123", so that their names sort by time.
namespace Recovered {

inline constexpr int copiesPerFile = 5;

/// Keeps what stands at `file`, the data file called `name`, in `folder`, which is made when it is missing. A file's
/// bytes are copied, unless the newest copy has the same. Where they cannot be (the disk is full, the file cannot be
/// read), the file itself gets its second name there. What is no file, such as a folder, is moved there.
///
/// Copies beyond the newest five are removed. After an error nothing is kept, and `file` is the only one there is.
std::error_code keep(const std::filesystem::path& folder, const std::filesystem::path& file, const std::string& name,
                     Date now);

} // namespace Recovered
