// SPDX-License-Identifier: MIT
#pragma once

#include <string>

enum class SortOrder { Ascending, Descending };

/// A key to sort records by, and the direction.
struct SortDescriptor {
    std::string key;
    SortOrder order = SortOrder::Ascending;

    bool operator==(const SortDescriptor&) const = default;
};
