// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>

/// The folder "velumora" in the first of the two that can hold one that is the user's alone (mode 0700), made when it
/// is not there; nullopt when neither can. A path that is not absolute (an unset variable) is passed over, and so is a
/// link or a folder of somebody else in the place.
std::optional<std::filesystem::path> privateTemporaryFolder(const std::filesystem::path& runtimeDirectory,
                                                            const std::filesystem::path& cacheDirectory);
