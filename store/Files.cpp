// SPDX-License-Identifier: MIT
#include "store/Files.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr std::string_view temporaryMark = ".tmp-";
constexpr std::string_view randomPart = "XXXXXX"; // filled in by mkostemp

std::error_code lastError()
{
    return {errno, std::generic_category()};
}

bool isTemporaryOf(std::string_view entry, std::string_view fileName)
{
    const std::size_t tail = temporaryMark.size() + randomPart.size();
    return entry.size() > tail && entry.starts_with('.') && entry.substr(1).starts_with(fileName) &&
           entry.substr(entry.size() - tail).starts_with(temporaryMark);
}

bool isLinked(const FileDescriptor& file)
{
    struct stat status {};
    return fstat(file.get(), &status) == 0 && status.st_nlink > 0;
}

/// What stands in the file, but of a file that grew no more than `maximumSize` + 1 bytes, so that the caller sees it.
/// No memory after an error.
FileContent readAll(const FileDescriptor& file, const FileIdentity& identity, std::size_t maximumSize)
{
    // One byte more than expected, to meet the end without growing.
    FileContent content{PageMemory(static_cast<std::size_t>(identity.size) + 1), 0, identity};
    while (content.memory.data()) {
        const ssize_t count =
            ::read(file.get(), content.memory.data() + content.size, content.memory.size() - content.size);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0) {
            break;
        }
        content.size += static_cast<std::size_t>(count);
        if (count == 0 || content.size > maximumSize) {
            return content;
        }
        if (content.size == content.memory.size()) {
            PageMemory larger(std::min(2 * content.size, maximumSize + 1));
            if (larger.data()) {
                std::ranges::copy(content.bytes(), larger.data());
            }
            content.memory = std::move(larger);
        }
    }
    return {};
}

} // namespace

FileDescriptor::FileDescriptor(FileDescriptor&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)) {}

FileDescriptor& FileDescriptor::operator=(FileDescriptor&& other) noexcept
{
    std::swap(m_descriptor, other.m_descriptor);
    return *this;
}

FileDescriptor::~FileDescriptor()
{
    if (isOpen()) {
        ::close(m_descriptor);
    }
}

std::optional<FileIdentity> identityOf(const FileDescriptor& file)
{
    struct stat status {};
    if (fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    return FileIdentity{status.st_dev,          status.st_ino,         status.st_size,        status.st_mtim.tv_sec,
                        status.st_mtim.tv_nsec, status.st_ctim.tv_sec, status.st_ctim.tv_nsec};
}

std::optional<FileContent> readFile(const std::filesystem::path& file, std::size_t maximumSize)
{
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(file, ignored)) {
        return std::nullopt; // opening some devices has effects, so they are not even opened
    }
    const FileDescriptor open(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    const std::optional<FileIdentity> identity = identityOf(open);
    if (!identity || std::cmp_greater(identity->size, maximumSize)) {
        return std::nullopt;
    }
    FileContent content = readAll(open, *identity, maximumSize);
    return content.memory.data() && content.size <= maximumSize ? std::optional(std::move(content)) : std::nullopt;
}

TemporaryFile::TemporaryFile(std::filesystem::path target) : m_target(std::move(target)), m_file(-1)
{
    std::string pattern = m_target.parent_path() / ".";
    pattern.append(m_target.filename().native()).append(temporaryMark).append(randomPart);
    for (;;) {
        std::string name = pattern;
        FileDescriptor file(::mkostemp(name.data(), O_CLOEXEC)); // readable by the user alone
        if (!file.isOpen()) {
            m_openError = lastError();
            return;
        }
        // Another process may take it for a stale one between the two calls; then it is gone, and a new one is made.
        (void)flock(file.get(), LOCK_EX);
        if (isLinked(file)) {
            m_path = std::move(name);
            m_file = std::move(file);
            return;
        }
    }
}

TemporaryFile::~TemporaryFile()
{
    if (!m_path.empty()) {
        ::unlink(m_path.c_str());
    }
}

std::error_code TemporaryFile::write(std::string_view bytes)
{
    if (m_openError) {
        return m_openError;
    }
    while (!bytes.empty()) {
        const ssize_t count = ::write(m_file.get(), bytes.data(), bytes.size());
        if (count >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            return lastError();
        }
    }
    return {};
}

std::error_code TemporaryFile::sync()
{
    return fsync(m_file.get()) == 0 ? std::error_code() : lastError();
}

std::error_code TemporaryFile::replaceTarget()
{
    if (::rename(m_path.c_str(), m_target.c_str()) != 0) {
        return lastError();
    }
    m_path.clear();
    syncFolder(m_target.parent_path());
    return {};
}

void removeStaleTemporaries(const std::filesystem::path& folder, std::string_view fileName)
{
    std::error_code error;
    std::vector<std::filesystem::path> candidates;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        if (isTemporaryOf(entry->path().filename().native(), fileName)) {
            candidates.push_back(entry->path());
        }
    }
    for (const std::filesystem::path& path : candidates) {
        const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW));
        if (file.isOpen() && flock(file.get(), LOCK_EX | LOCK_NB) == 0) {
            ::unlink(path.c_str()); // the lock goes with its writer, however that ended
        }
    }
}

void syncFolder(const std::filesystem::path& folder)
{
    const FileDescriptor open(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (open.isOpen()) {
        (void)fsync(open.get());
    }
}
