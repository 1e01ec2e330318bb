// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>

/// The folder "velumora" in the first of the two directories that can hold it as the user's alone (mode 0700), created
/// when it is missing; nullopt when neither can. Skips a path that is not absolute (an unset variable), and a directory
/// in which the name is a link or another user's folder.
std::optional<std::filesystem::path> privateTemporaryFolder(const std::filesystem::path& runtimeDirectory,
                                                            const std::filesystem::path& cacheDirectory);
