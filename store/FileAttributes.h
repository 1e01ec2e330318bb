// SPDX-License-Identifier: MIT
#pragma once

#include "store/Files.h"

#include <filesystem>
#include <system_error>

/// Copies to the open file `to`, which only the user can read so far, what the owner of the file `from` gave that one:
/// owner and group, mode, access list (POSIX 1003.1e, draft 17) and the users' extended attributes ("user."). Does
/// nothing when `from` is absent or not a regular file.
///
/// When the system does not let this user keep the group or the access list, only the owner gets access: others must
/// not see more than before. That is not an error, since the next attempt would end the same way; a failure that may
/// pass is.
std::error_code copyAttributes(const std::filesystem::path& from, const FileDescriptor& to);
