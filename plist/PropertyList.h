// SPDX-License-Identifier: MIT
#pragma once

#include "plist/Value.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>

/// Property lists: XML read and written, binary read.
namespace PropertyList {

// What both readers allow and the writer writes; anything beyond is bad input, and found before values are made of it.
constexpr int maximumDepth = 512;                         ///< nested arrays and dictionaries
constexpr std::size_t maximumSize = std::size_t{1} << 30; ///< bytes of a file

/// Keys and values: those of a note for each day of a hundred lifetimes of a hundred years.
constexpr std::size_t maximumElements = std::size_t{100} * 36'525 * 5;

/// Bytes of memory that what is read may take for each byte of its file, the file's own beside them. A note of one
/// letter, in the shortest form that it has, takes less.
constexpr std::size_t memoryPerByte = 3;

/// Bytes of memory that any list may take, however small its file.
constexpr std::size_t memoryOfSmallLists = std::size_t{64} << 20;

/// The records of the list that `bytes` hold, in XML or binary form; nullopt when they hold none or its root is no
/// array.
std::optional<Table> readTable(std::string bytes);

/// The same without a copy of them: `bytes` are parsed in place and are of no use afterwards.
std::optional<Table> readTableInPlace(std::span<char> bytes);

/// The same; `error` says whether nobody knows what the bytes are, because there was not enough memory, or is cleared.
std::optional<Table> readTableInPlace(std::span<char> bytes, std::error_code& error);

/// Takes the next piece of what is written; an error ends the writing.
using Sink = std::function<std::error_code(std::string_view bytes)>;

/// `table` as an XML property list in UTF-8, handed to `sink` in pieces of a size that suits files, and the error that
/// the sink gave, if it did; an error, too, where a reader would not take what was written. Reading it gives back an
/// equal table, but for the fractions of a second of dates (the form has none; they are cut off towards the past) and
/// for characters that XML 1.0 cannot carry, which are written as U+FFFD.
std::error_code writeXml(const Table& table, const Sink& sink);

/// The same in one text.
std::string writeXml(const Table& table);

} // namespace PropertyList
