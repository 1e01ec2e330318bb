// SPDX-License-Identifier: MIT
#include "store/FileAttributes.h"

#include <cerrno>
#include <string>
#include <string_view>
#include <vector>

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr const char* accessList = "system.posix_acl_access";
constexpr std::string_view ofUsers = "user.";

/// Whether the last call failed for good: this file system does not support it or this user may not do it.
bool isImpossible()
{
    return errno == EPERM || errno == EACCES || errno == EOPNOTSUPP || errno == ENOSYS || errno == EINVAL;
}

/// Sets `value` to what `read`, which is called with a buffer and its size like the extended-attribute calls, gives;
/// empty when there is nothing. `isKnown` tells whether the system let this user look.
template <typename Read> std::error_code readWhole(std::string& value, bool& isKnown, Read read)
{
    value.clear();
    isKnown = true;
    const ssize_t size = read(nullptr, 0);
    if (size > 0) {
        value.resize(static_cast<std::size_t>(size));
        const ssize_t count = read(value.data(), value.size());
        value.resize(count < 0 ? 0 : static_cast<std::size_t>(count));
        return count < 0 ? lastError() : std::error_code();
    }
    isKnown = size == 0 || errno == ENODATA || errno == EOPNOTSUPP || errno == ENOSYS;
    return isKnown || isImpossible() ? std::error_code() : lastError();
}

std::error_code readAttribute(const fs::path& file, const char* name, std::string& value, bool& isKnown)
{
    return readWhole(value, isKnown,
                     [&](char* buffer, std::size_t size) { return getxattr(file.c_str(), name, buffer, size); });
}

/// `isGiven` tells whether the system let this user set the group.
std::error_code giveOwner(const FileDescriptor& to, uid_t owner, gid_t group, bool& isGiven)
{
    isGiven = true;
    if (fchown(to.get(), owner, group) == 0) {
        return {};
    }
    if (!isImpossible()) {
        return lastError();
    }
    if (fchown(to.get(), static_cast<uid_t>(-1), group) != 0) { // another user's file becomes this user's
        isGiven = false;
        return isImpossible() ? std::error_code() : lastError();
    }
    return {};
}

std::error_code giveAccessList(const fs::path& from, const FileDescriptor& to, bool& isGiven)
{
    isGiven = true;
    std::string list;
    if (const std::error_code error = readAttribute(from, accessList, list, isGiven)) {
        return error;
    }
    if (!isGiven) { // there may be one, whose mask the group bits would then wrongly replace
        return {};
    }
    if (list.empty()) { // the new file may have inherited one from its folder
        const bool isDone = fremovexattr(to.get(), accessList) == 0 || errno == ENODATA || isImpossible();
        return isDone ? std::error_code() : lastError();
    }
    if (fsetxattr(to.get(), accessList, list.data(), list.size(), 0) != 0) {
        isGiven = false;
        return isImpossible() ? std::error_code() : lastError();
    }
    return {};
}

std::error_code giveAttributesOfUsers(const fs::path& from, const FileDescriptor& to)
{
    std::string names; // each ends with a null byte
    const auto list = [&from](char* buffer, std::size_t size) { return listxattr(from.c_str(), buffer, size); };
    bool isKnown = false;
    if (const std::error_code error = readWhole(names, isKnown, list)) {
        return error;
    }
    for (std::size_t at = 0; at < names.size(); at = names.find('\0', at) + 1) {
        const char* name = names.c_str() + at;
        std::string value;
        if (!std::string_view(name).starts_with(ofUsers)) {
            continue;
        }
        if (const std::error_code error = readAttribute(from, name, value, isKnown)) {
            return error;
        }
        if (!isKnown) {
            continue;
        }
        if (fsetxattr(to.get(), name, value.data(), value.size(), 0) != 0 && !isImpossible()) {
            return lastError();
        }
    }
    return {};
}

} // namespace

std::error_code copyAttributes(const fs::path& from, const FileDescriptor& to)
{
    struct stat status {};
    if (::lstat(from.c_str(), &status) != 0) {
        return meansAbsent(lastError()) ? std::error_code() : lastError();
    }
    if (!S_ISREG(status.st_mode)) {
        return {};
    }
    bool keepsGroup = false;
    bool keepsAccessList = false;
    if (const std::error_code error = giveOwner(to, status.st_uid, status.st_gid, keepsGroup)) {
        return error;
    }
    if (const std::error_code error = giveAttributesOfUsers(from, to)) {
        return error;
    }
    if (const std::error_code error = giveAccessList(from, to, keepsAccessList)) {
        return error;
    }
    // Last, because only this and the access list open the file to others. With a list, the group bits are its mask.
    const mode_t permissions = S_IRWXU | (keepsGroup && keepsAccessList ? S_IRWXG | S_IRWXO : 0U);
    return fchmod(to.get(), status.st_mode & permissions) == 0 || isImpossible() ? std::error_code() : lastError();
}
