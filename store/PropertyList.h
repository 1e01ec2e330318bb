// SPDX-License-Identifier: MIT
#pragma once

#include "store/Value.h"

#include <optional>
#include <string>

/// Property lists: XML read and written, binary read.
namespace PropertyList {

/// What both readers allow; anything beyond is bad input.
constexpr int maximumDepth = 512;                         ///< nested arrays and dictionaries
constexpr std::size_t maximumSize = std::size_t{1} << 30; ///< bytes of a file

/// The list that `bytes` hold, in XML or binary form, nullopt when they hold none. The XML form is parsed in place:
/// `bytes` are taken, not copied.
std::optional<Value> read(std::string bytes);

/// As `read`, for a root that must be an array: a file of records.
std::optional<Table> readTable(std::string bytes);

/// `table` as an XML property list in UTF-8. Reading it gives back an equal table, but for the fractions of a second of
/// dates (the form has none; they are cut off towards the past) and for characters that XML 1.0 cannot carry,
/// which are written as U+FFFD.
std::string writeXml(const Table& table);

} // namespace PropertyList
