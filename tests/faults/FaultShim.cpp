// SPDX-License-Identifier: MIT
#include "faults/FaultShim.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <string>
#include <string_view>

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace Faults {

namespace {

std::atomic<bool> isWatching = false;
std::string watched;
Plan plan{Call::Open};
std::atomic<int> calls = 0;
std::atomic<bool> fired = false;

bool isWatched(std::string_view path)
{
    return path.starts_with(watched);
}

bool isWatched(int descriptor)
{
    std::array<char, 64> link{};
    std::array<char, PATH_MAX> path{};
    (void)std::snprintf(link.data(), link.size(), "/proc/self/fd/%d", descriptor);
    const long size = ::syscall(SYS_readlink, link.data(), path.data(), path.size());
    return size > 0 && isWatched(std::string_view(path.data(), static_cast<std::size_t>(size)));
}

bool isDue()
{
    const int number = ++calls;
    const bool due = number == plan.number || (plan.forGood && number > plan.number);
    if (due) {
        fired = true;
    }
    return due;
}

} // namespace

/// Whether this call is to fail; errno is set then.
template <typename Where> bool fails(Call call, const Where& where)
{
    if (!isWatching || plan.call != call || !isWatched(where) || !isDue()) {
        return false;
    }
    errno = plan.error;
    return true;
}

bool mappingFails()
{
    if (!isWatching || plan.call != Call::Map || !isDue()) {
        return false;
    }
    errno = plan.error;
    return true;
}

const std::vector<int>& errorsOf(Call call)
{
    static const std::vector<int> opening{EACCES, EIO, EMFILE, ENFILE, ENOMEM, ENOSPC, EDQUOT, EROFS, EINTR, ELOOP};
    static const std::vector<int> reading{EIO, EINTR, EISDIR};
    static const std::vector<int> writing{EIO, ENOSPC, EDQUOT, EFBIG, EINTR, EPERM};
    static const std::vector<int> syncing{EIO, ENOSPC, EDQUOT, EINTR};
    static const std::vector<int> naming{EIO, EACCES, EPERM, ENOSPC, EDQUOT, EROFS, EXDEV, EMLINK, EBUSY, ENOMEM};
    static const std::vector<int> asking{EIO, EACCES, ENOMEM, ELOOP, EOVERFLOW, EINTR};
    static const std::vector<int> changing{EIO, EPERM, EROFS, EACCES, ENOMEM};
    static const std::vector<int> attributes{EIO, ENOTSUP, ENOSPC, EDQUOT, EPERM, E2BIG, ERANGE, ENOMEM};
    static const std::vector<int> locking{ENOLCK, EINTR, EWOULDBLOCK};
    static const std::vector<int> mapping{ENOMEM};
    static const std::vector<int> silent{0};
    switch (call) {
    case Call::Open:
    case Call::ListFolder:
        return opening;
    case Call::Read:
        return reading;
    case Call::Write:
        return writing;
    case Call::ShortWrite:
    case Call::NoWrite:
        return silent;
    case Call::Sync:
        return syncing;
    case Call::Rename:
    case Call::Link:
    case Call::Unlink:
    case Call::MakeFolder:
        return naming;
    case Call::Status:
    case Call::ReadLink:
        return asking;
    case Call::ChangeMode:
    case Call::ChangeOwner:
        return changing;
    case Call::Attribute:
        return attributes;
    case Call::Lock:
        return locking;
    case Call::Map:
        return mapping;
    }
    return silent;
}

const std::vector<Call>& allCalls()
{
    static const std::vector<Call> all{
        Call::Open,       Call::Read,       Call::Write,       Call::ShortWrite, Call::NoWrite,  Call::Sync,
        Call::Rename,     Call::Link,       Call::Unlink,      Call::Status,     Call::ReadLink, Call::MakeFolder,
        Call::ListFolder, Call::ChangeMode, Call::ChangeOwner, Call::Attribute,  Call::Lock,     Call::Map};
    return all;
}

const char* nameOf(Call call)
{
    static constexpr std::array names{"open",    "read",  "write",  "short write", "empty write", "sync",
                                      "rename",  "link",  "unlink", "stat",        "readlink",    "mkdir",
                                      "opendir", "chmod", "chown",  "xattr",       "flock",       "mmap"};
    return names.at(static_cast<std::size_t>(call));
}

Watch::Watch(const std::filesystem::path& folder, const Plan& wanted)
{
    watched = folder.native();
    plan = wanted;
    calls = 0;
    fired = false;
    isWatching = true;
}

Watch::~Watch()
{
    isWatching = false;
}

bool Watch::hasFired() const
{
    return fired;
}

} // namespace Faults

namespace {

using Faults::Call;
using Faults::fails;

/// The C library's own function of that name.
template <typename Function> Function* next(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

} // namespace

#define NEXT(function) static auto* const real = next<decltype(function)>(#function)

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): the system's headers have reserved names
extern "C" {

int open(const char* path, int flags, ...)
{
    NEXT(open);
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return fails(Call::Open, path) ? -1 : real(path, flags, mode);
}

int mkostemp(char* pattern, int flags)
{
    NEXT(mkostemp);
    return fails(Call::Open, pattern) ? -1 : real(pattern, flags);
}

DIR* fdopendir(int descriptor)
{
    NEXT(fdopendir);
    return fails(Call::ListFolder, descriptor) ? nullptr : real(descriptor);
}

dirent* readdir(DIR* folder)
{
    NEXT(readdir);
    return fails(Call::ListFolder, dirfd(folder)) ? nullptr : real(folder);
}

ssize_t read(int descriptor, void* buffer, std::size_t size)
{
    NEXT(read);
    return fails(Call::Read, descriptor) ? -1 : real(descriptor, buffer, size);
}

ssize_t write(int descriptor, const void* bytes, std::size_t size)
{
    NEXT(write);
    if (fails(Call::Write, descriptor)) {
        return -1;
    }
    if (fails(Call::NoWrite, descriptor)) {
        return 0;
    }
    return real(descriptor, bytes, fails(Call::ShortWrite, descriptor) && size > 0 ? 1 : size);
}

/// Nothing is waited for: no power fails in these tests.
int fsync(int descriptor)
{
    return fails(Call::Sync, descriptor) ? -1 : 0;
}

int rename(const char* from, const char* to) noexcept
{
    NEXT(rename);
    return fails(Call::Rename, from) ? -1 : real(from, to);
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) noexcept
{
    NEXT(renameat2);
    return fails(Call::Rename, from) ? -1 : real(fromFolder, from, toFolder, to, flags);
}

int link(const char* from, const char* to) noexcept
{
    NEXT(link);
    return fails(Call::Link, from) ? -1 : real(from, to);
}

int unlink(const char* path) noexcept
{
    NEXT(unlink);
    return fails(Call::Unlink, path) ? -1 : real(path);
}

int remove(const char* path) noexcept
{
    NEXT(remove);
    return fails(Call::Unlink, path) ? -1 : real(path);
}

int stat(const char* path, struct stat* status) noexcept
{
    NEXT(stat);
    return fails(Call::Status, path) ? -1 : real(path, status);
}

int lstat(const char* path, struct stat* status) noexcept
{
    NEXT(lstat);
    return fails(Call::Status, path) ? -1 : real(path, status);
}

int fstat(int descriptor, struct stat* status) noexcept
{
    NEXT(fstat);
    return fails(Call::Status, descriptor) ? -1 : real(descriptor, status);
}

ssize_t readlink(const char* path, char* buffer, std::size_t size) noexcept
{
    NEXT(readlink);
    return fails(Call::ReadLink, path) ? -1 : real(path, buffer, size);
}

int mkdir(const char* path, mode_t mode) noexcept
{
    NEXT(mkdir);
    return fails(Call::MakeFolder, path) ? -1 : real(path, mode);
}

int fchmod(int descriptor, mode_t mode) noexcept
{
    NEXT(fchmod);
    return fails(Call::ChangeMode, descriptor) ? -1 : real(descriptor, mode);
}

int fchown(int descriptor, uid_t owner, gid_t group) noexcept
{
    NEXT(fchown);
    return fails(Call::ChangeOwner, descriptor) ? -1 : real(descriptor, owner, group);
}

ssize_t getxattr(const char* path, const char* name, void* value, std::size_t size) noexcept
{
    NEXT(getxattr);
    return fails(Call::Attribute, path) ? -1 : real(path, name, value, size);
}

ssize_t listxattr(const char* path, char* names, std::size_t size) noexcept
{
    NEXT(listxattr);
    return fails(Call::Attribute, path) ? -1 : real(path, names, size);
}

int setxattr(const char* path, const char* name, const void* value, std::size_t size, int flags) noexcept
{
    NEXT(setxattr);
    return fails(Call::Attribute, path) ? -1 : real(path, name, value, size, flags);
}

int fsetxattr(int descriptor, const char* name, const void* value, std::size_t size, int flags) noexcept
{
    NEXT(fsetxattr);
    return fails(Call::Attribute, descriptor) ? -1 : real(descriptor, name, value, size, flags);
}

int fremovexattr(int descriptor, const char* name) noexcept
{
    NEXT(fremovexattr);
    return fails(Call::Attribute, descriptor) ? -1 : real(descriptor, name);
}

int flock(int descriptor, int operation) noexcept
{
    NEXT(flock);
    return fails(Call::Lock, descriptor) ? -1 : real(descriptor, operation);
}

void* mmap(void* address, std::size_t size, int protection, int flags, int descriptor, off_t offset) noexcept
{
    if (Faults::mappingFails()) {
        return MAP_FAILED;
    }
    // Not by way of dlsym, which maps memory itself.
    const long result = ::syscall(SYS_mmap, address, size, protection, flags, descriptor, offset);
    return reinterpret_cast<void*>(result); // MAP_FAILED is -1
}

} // extern "C"
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
