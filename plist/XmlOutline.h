// SPDX-License-Identifier: MIT
#pragma once

#include "plist/ListMemory.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace PropertyList {

/// XML's white space.
inline constexpr std::string_view xmlBlanks = " \t\r\n";

/// Where to cut a list whose root is an array, so that it can be parsed piece by piece.
struct XmlParts {
    static constexpr std::string_view rootTag = "<array>";

    bool isInPlist = false; ///< whether a plist element encloses the root
    std::size_t begin = 0;  ///< the first byte inside the root
    std::vector<std::size_t>
        ends;                 ///< of the parts, each after a whole element; the last is where the root's end tag begins
    std::size_t elements = 0; ///< number of elements directly in the root
};

/// What the tags of an XML text tell before anything is built from it.
struct XmlOutline {
    bool isAllowed = false; ///< neither too large in memory nor, as far as that is known, nested too deeply

    /// Set when the form is plain: after the usual head, an array, alone or in a plist, with nothing in it but bare
    /// tags and UTF-8 text.
    std::optional<XmlParts> parts;
};

/// The outline of `xml` with parts of at least `partSize` bytes each, except the last. The memory allowed depends on
/// `fileSize`, the size of the file that the text comes from; `taken` bytes of it are in use already, for a copy in
/// another encoding.
XmlOutline outlineOf(std::string_view xml, std::size_t partSize, std::size_t fileSize, std::size_t taken = 0);

} // namespace PropertyList
