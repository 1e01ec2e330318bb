// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <cstring>
#include <string>

#include <sys/types.h>

/// Access lists of files, as the kernel takes them (posix_acl_xattr.h).
namespace AccessList {

inline constexpr const char* attribute = "system.posix_acl_access";
inline constexpr const char* attributeOfFolders = "system.posix_acl_default"; ///< what new files in them get

/// The owner may read and write, `reader` may read, the group and the others nothing.
inline std::string forReader(uid_t reader)
{
    struct Entry {
        std::uint16_t tag, permissions;
        std::uint32_t id;
    };
    constexpr std::uint32_t none = 0xFFFFFFFF;
    const std::uint32_t version = 2;
    const Entry entries[] = {{0x01, 6, none}, {0x02, 4, reader}, {0x04, 0, none}, {0x10, 4, none}, {0x20, 0, none}};
    std::string bytes(sizeof version + sizeof entries, '\0');
    std::memcpy(bytes.data(), &version, sizeof version);
    std::memcpy(bytes.data() + sizeof version, entries, sizeof entries);
    return bytes;
}

} // namespace AccessList
