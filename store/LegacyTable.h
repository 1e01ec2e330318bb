// SPDX-License-Identifier: MIT
#pragma once

#include "plist/Value.h"

#include <filesystem>
#include <optional>

/// The table in a file of the older product, which is only ever read. Characters that the program's own files cannot
/// represent are removed from its texts. nullopt when the file cannot be read or is not a property-list array.
std::optional<Table> readLegacyTable(const std::filesystem::path& file);
