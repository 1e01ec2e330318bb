// SPDX-License-Identifier: MIT
#pragma once

#include "store/Files.h"

#include <filesystem>
#include <system_error>

/// Gives the open file `to`, which the user alone can read so far, what the owner of the file `from` gave that one:
/// owner and group, mode, access list (that of POSIX 1003.1e, draft 17) and the attributes of users (extended
/// attributes named "user."). Nothing when there is no such file or it is no regular one.
///
/// Where the system lets this user keep the group or the access list not, nobody but the owner gets anything: others
/// must not see more than before. That is no error, for the next attempt would end so too; a failure that may pass is.
std::error_code copyAttributes(const std::filesystem::path& from, const FileDescriptor& to);
