// SPDX-License-Identifier: MIT
#include "plist/PropertyList.h"

#include "plist/PropertyListParts.h"

#include <new>

namespace PropertyList {

namespace {

/// A binary list can share values, which XML repeats, so that a list of a few kilobytes can be too large for XML.
bool canBeWritten(const Table& table)
{
    return !writeXml(table, [](std::string_view) { return std::error_code(); });
}

} // namespace

std::optional<Table> readTable(std::string bytes)
{
    return readTableInPlace(bytes);
}

std::optional<Table> readTableInPlace(std::span<char> bytes)
{
    std::error_code ignored;
    return readTableInPlace(bytes, ignored);
}

std::optional<Table> readTableInPlace(std::span<char> bytes, std::error_code& error)
try {
    error.clear();
    if (bytes.size() > maximumSize) {
        return std::nullopt;
    }
    const std::string_view text(bytes.data(), bytes.size());
    const bool isBinary = text.starts_with("bplist0");
    const std::optional<Value> root = isBinary ? readBinary(text) : readXml(bytes);
    const Array* array = root ? root->array() : nullptr;
    if (!array || (isBinary && !canBeWritten(*array))) {
        return std::nullopt;
    }
    return *array;
} catch (const std::bad_alloc&) {
    error = std::make_error_code(std::errc::not_enough_memory);
    return std::nullopt;
}

std::string writeXml(const Table& table)
{
    std::string xml;
    (void)writeXml(table, [&xml](std::string_view bytes) {
        xml.append(bytes);
        return std::error_code();
    });
    return xml;
}

} // namespace PropertyList
