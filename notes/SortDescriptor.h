// SPDX-License-Identifier: MIT
#pragma once

#include <string>

enum class SortOrder { Ascending, Descending };

/// One key to sort records by, and in which direction.
struct SortDescriptor {
    std::string key;
    SortOrder order = SortOrder::Ascending;

    bool operator==(const SortDescriptor&) const = default;
};
