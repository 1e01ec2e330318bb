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

// The limits of both readers and of the writer. Input beyond them is rejected before any values are built from it.
constexpr int maximumDepth = 512;                         ///< nested arrays and dictionaries
constexpr std::size_t maximumSize = std::size_t{1} << 30; ///< bytes of a file

/// Keys and values in a list: enough for a note on each day of a hundred lifetimes of a hundred years.
constexpr std::size_t maximumElements = std::size_t{100} * 36'525 * 5;

/// Bytes of memory that a list may take for each byte of its file, not counting the file's own bytes. A one-letter
/// note, written as briefly as possible, takes less.
constexpr std::size_t memoryPerByte = 3;

/// Bytes of memory that any list may take in addition, however small its file.
constexpr std::size_t memoryOfSmallLists = std::size_t{64} << 20;

/// The records of the list in `bytes`, XML or binary; nullopt when they are not a property list whose root is an array.
std::optional<Table> readTable(std::string bytes);

/// The same without a copy: parses `bytes` in place and leaves them useless.
std::optional<Table> readTableInPlace(std::span<char> bytes);

/// The same; `error` is set when there was not enough memory to tell what `bytes` are, else cleared.
std::optional<Table> readTableInPlace(std::span<char> bytes, std::error_code& error);

/// Receives the next piece of the output; returning an error ends the writing.
using Sink = std::function<std::error_code(std::string_view bytes)>;

/// Writes `table` as an XML property list in UTF-8 to `sink`, in pieces of a size that suits files. Returns the sink's
/// error, or an error of its own when the readers would reject the output. Reading the output gives an equal table,
/// except that fractions of a second are cut off dates (towards the past) and characters that XML 1.0 cannot represent
/// become U+FFFD.
std::error_code writeXml(const Table& table, const Sink& sink);

/// The same as one text, cut short where the writing failed.
std::string writeXml(const Table& table);

} // namespace PropertyList
