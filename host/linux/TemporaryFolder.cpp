// SPDX-License-Identifier: MIT
#include "host/linux/TemporaryFolder.h"

#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Makes the folder inaccessible to others; true when the user owns it and that worked.
bool isPrivate(const std::filesystem::path& folder)
{
    constexpr mode_t allPermissions = 07777;
    struct stat status {};
    return lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == geteuid() &&
           ((status.st_mode & allPermissions) == S_IRWXU || chmod(folder.c_str(), S_IRWXU) == 0);
}

} // namespace

std::optional<std::filesystem::path> privateTemporaryFolder(const std::filesystem::path& runtimeDirectory,
                                                            const std::filesystem::path& cacheDirectory)
{
    for (const std::filesystem::path& place : {runtimeDirectory, cacheDirectory}) {
        if (!place.is_absolute()) {
            continue;
        }
        const std::filesystem::path folder = place / "velumora";
        mkdir(folder.c_str(), S_IRWXU);
        if (isPrivate(folder)) {
            return folder;
        }
    }
    return std::nullopt;
}
