// SPDX-License-Identifier: MIT
#include "store/PropertyList.h"

#include "store/PropertyListParts.h"

namespace PropertyList {

std::optional<Table> readTable(std::string bytes)
{
    return readTableInPlace(bytes);
}

std::optional<Table> readTableInPlace(std::span<char> bytes)
{
    if (bytes.size() > maximumSize) {
        return std::nullopt;
    }
    const std::string_view text(bytes.data(), bytes.size());
    const std::optional<Value> root = text.starts_with("bplist0") ? readBinary(text) : readXml(bytes);
    const Array* array = root ? root->array() : nullptr;
    return array ? std::optional(*array) : std::nullopt;
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
