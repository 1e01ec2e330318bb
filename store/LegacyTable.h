// SPDX-License-Identifier: MIT
#pragma once

#include "plist/Value.h"

#include <filesystem>
#include <optional>

/// The table in a file of the older product, which is only read. Characters that the program's own files cannot carry
/// are left out of its texts. nullopt when the file cannot be read as a property-list array.
std::optional<Table> readLegacyTable(const std::filesystem::path& file);
