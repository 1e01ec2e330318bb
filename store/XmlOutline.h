// SPDX-License-Identifier: MIT
#pragma once

#include "store/ListMemory.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace PropertyList {

/// Where to cut a list whose root is an array, so that it can be parsed piece by piece.
struct XmlParts {
    std::size_t begin = 0;         ///< the first byte inside the root
    std::vector<std::size_t> ends; ///< of the parts, each behind a whole element; the last is the root's end tag
    std::size_t elements = 0;      ///< directly in the root
};

/// What can be told of an XML text from its tags alone, before anything is built of it.
struct XmlOutline {
    bool isAllowed = false; ///< not nested too deeply, and not too large in memory
    std::optional<XmlParts>
        parts; ///< in the plain form that programs write: `xmlHead`, an array, and nothing but bare tags
};

/// The outline of `xml`, which is in UTF-8 where it has parts; they have at least `partSize` bytes each.
XmlOutline outlineOf(std::string_view xml, std::size_t partSize);

} // namespace PropertyList
