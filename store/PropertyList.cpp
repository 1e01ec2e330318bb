// SPDX-License-Identifier: MIT
#include "store/PropertyList.h"

#include "store/PropertyListParts.h"

#include <malloc.h>

namespace PropertyList {

namespace {

/// Hands the memory of a parsed document, about three times its file, back to the system: the texts that outlive it lie
/// behind it, so it would stay with the process for good.
void giveBackMemory()
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

} // namespace

std::optional<Value> read(std::string bytes)
{
    if (bytes.size() > maximumSize) {
        return std::nullopt;
    }
    if (bytes.starts_with("bplist0")) {
        return readBinary(bytes);
    }
    constexpr std::size_t worthGivingBack = std::size_t{1} << 20;
    const bool large = bytes.size() >= worthGivingBack;
    std::optional<Value> value = readXml(std::move(bytes));
    if (large) {
        giveBackMemory();
    }
    return value;
}

std::optional<Table> readTable(std::string bytes)
{
    const std::optional<Value> root = read(std::move(bytes));
    const Array* array = root ? root->array() : nullptr;
    return array ? std::optional<Table>(*array) : std::nullopt;
}

} // namespace PropertyList
