// SPDX-License-Identifier: MIT
#pragma once

#include "plist/ListMemory.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace PropertyList {

/// The white space of XML, between elements and between attributes.
inline constexpr std::string_view xmlBlanks = " \t\r\n";

/// Where to cut a list whose root is an array, so that it can be parsed piece by piece.
struct XmlParts {
    static constexpr std::string_view rootTag = "<array>";

    bool isInPlist = false;        ///< the root stands in a plist, else alone
    std::size_t begin = 0;         ///< the first byte inside the root
    std::vector<std::size_t> ends; ///< of the parts, each behind a whole element; the last is the root's end tag
    std::size_t elements = 0;      ///< directly in the root
};

/// What can be told of an XML text from its tags alone, before anything is built of it.
struct XmlOutline {
    bool isAllowed = false; ///< not too large in memory, and not nested too deeply where that can be told

    /// There where the form is plain: behind what XML documents begin with an array, alone or in a plist, and in it
    /// nothing but bare tags and texts in UTF-8.
    std::optional<XmlParts> parts;
};

/// The outline of `xml`, whose parts have at least `partSize` bytes each, but for the last. What it may take depends on
/// the size of the file that it comes from; what was made of that in another encoding is taken already.
XmlOutline outlineOf(std::string_view xml, std::size_t partSize, std::size_t fileSize, std::size_t taken = 0);

} // namespace PropertyList
