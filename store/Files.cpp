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
constexpr int mostTries = 100;                    // of a call that neither succeeds nor fails for good

bool isTemporaryOf(std::string_view entry, std::string_view fileName)
{
    const std::size_t tail = temporaryMark.size() + randomPart.size();
    return entry.size() > tail && entry.starts_with('.') && entry.substr(1).starts_with(fileName) &&
           entry.substr(entry.size() - tail).starts_with(temporaryMark);
}

/// Repeats the system call `call` while a signal interrupts it.
template <typename Call> ssize_t uninterrupted(Call call)
{
    for (int tries = 1;; ++tries) {
        const ssize_t result = call();
        if (result >= 0 || errno != EINTR || tries == mostTries) {
            return result;
        }
    }
}

/// The content of the file; of a file that is growing, no more than `maximumSize` + 1 bytes, which the caller takes as
/// too many. No memory after an error.
FileContent readAll(const FileDescriptor& file, const FileIdentity& identity, std::size_t maximumSize,
                    std::error_code& error)
{
    // One byte more than expected, so that the end of the file is reached without growing.
    FileContent content{PageMemory(static_cast<std::size_t>(identity.size) + 1), 0, identity};
    while (content.memory.data()) {
        const ssize_t count = uninterrupted([&] {
            return ::read(file.get(), content.memory.data() + content.size, content.memory.size() - content.size);
        });
        if (count < 0) {
            error = lastError();
            return {};
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
    error = std::make_error_code(std::errc::not_enough_memory);
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

std::error_code lastError()
{
    return {errno, std::generic_category()};
}

bool meansAbsent(const std::error_code& error)
{
    return error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
}

FileStatus FileStatus::answer(int result, const struct stat& status)
{
    FileStatus answer;
    if (result == 0) {
        answer.m_mode = status.st_mode;
        answer.m_size = status.st_size;
    } else if (const std::error_code error = lastError(); !meansAbsent(error)) {
        answer.m_error = error;
    }
    return answer;
}

FileStatus FileStatus::of(const std::filesystem::path& file)
{
    struct stat status {};
    const int result = ::lstat(file.c_str(), &status);
    return answer(result, status);
}

FileStatus FileStatus::ofTarget(const std::filesystem::path& file)
{
    struct stat status {};
    const int result = ::stat(file.c_str(), &status);
    return answer(result, status);
}

bool FileStatus::isRegular() const
{
    return S_ISREG(m_mode);
}

bool FileStatus::isLink() const
{
    return S_ISLNK(m_mode);
}

bool FileStatus::isFolder() const
{
    return S_ISDIR(m_mode);
}

std::optional<FileIdentity> identityOf(const FileDescriptor& file)
{
    struct stat status {};
    if (fstat(file.get(), &status) != 0) {
        return std::nullopt;
    }
    if (!S_ISREG(status.st_mode)) {
        errno = EINVAL;
        return std::nullopt;
    }
    return FileIdentity{status.st_dev,          status.st_ino,         status.st_size,        status.st_mtim.tv_sec,
                        status.st_mtim.tv_nsec, status.st_ctim.tv_sec, status.st_ctim.tv_nsec};
}

std::optional<FileContent> readFile(const std::filesystem::path& file, std::size_t maximumSize, std::error_code& error)
{
    // Asked first, because opening some devices has effects.
    if (FileStatus status = FileStatus::ofTarget(file); !status.isRegular()) {
        const std::errc reason = status.isAbsent() ? std::errc::no_such_file_or_directory : std::errc::invalid_argument;
        error = status.error() ? status.error() : std::make_error_code(reason);
        return std::nullopt;
    }
    const FileDescriptor open(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    const std::optional<FileIdentity> identity = open.isOpen() ? identityOf(open) : std::nullopt;
    if (!identity) {
        error = lastError();
        return std::nullopt;
    }
    if (std::cmp_less_equal(identity->size, maximumSize)) {
        FileContent content = readAll(open, *identity, maximumSize, error);
        if (!content.memory.data()) {
            return std::nullopt;
        }
        if (content.size <= maximumSize) {
            return content;
        }
    }
    error = std::make_error_code(std::errc::file_too_large);
    return std::nullopt;
}

std::optional<FileContent> readFile(const std::filesystem::path& file, std::size_t maximumSize)
{
    std::error_code ignored;
    return readFile(file, maximumSize, ignored);
}

TemporaryFile::TemporaryFile(std::filesystem::path target) : m_target(std::move(target)), m_file(-1)
{
    std::string pattern = m_target.parent_path() / ".";
    pattern.append(m_target.filename().native()).append(temporaryMark).append(randomPart);
    for (int tries = 0; tries < mostTries; ++tries) {
        std::string name = pattern;
        FileDescriptor file(::mkostemp(name.data(), O_CLOEXEC)); // readable by the user alone
        if (!file.isOpen()) {
            m_openError = lastError();
            return;
        }
        (void)flock(file.get(), LOCK_EX);
        struct stat status {};
        if (fstat(file.get(), &status) != 0) {
            m_openError = lastError();
            ::unlink(name.c_str());
            return;
        }
        if (status.st_nlink > 0) {
            m_path = std::move(name);
            m_file = std::move(file);
            return;
        }
        // Another process removed it as stale between the two calls; make a new one.
    }
    m_openError = std::make_error_code(std::errc::resource_unavailable_try_again);
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
    m_isSynced = false;
    while (!bytes.empty()) {
        const ssize_t count = uninterrupted([&] { return ::write(m_file.get(), bytes.data(), bytes.size()); });
        if (count < 0) {
            return lastError();
        }
        if (count == 0) {
            return std::make_error_code(std::errc::io_error); // rather than loop forever
        }
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return {};
}

std::error_code TemporaryFile::sync()
{
    if (fsync(m_file.get()) != 0) {
        return lastError();
    }
    m_isSynced = true;
    return {};
}

std::error_code TemporaryFile::replaceTarget()
{
    if (const std::error_code error = m_isSynced ? std::error_code() : sync()) {
        return error;
    }
    if (::rename(m_path.c_str(), m_target.c_str()) != 0) {
        return lastError();
    }
    m_path.clear();
    m_hasReplacedTarget = true;
    return syncFolder(m_target.parent_path());
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
            ::unlink(path.c_str()); // a lock ends with its writer, however that ended
        }
    }
}

std::error_code replaceFile(const std::filesystem::path& target, std::string_view bytes)
{
    removeStaleTemporaries(target.parent_path(), target.filename().native());
    TemporaryFile file(target);
    const std::error_code error = file.write(bytes);
    return error ? error : file.replaceTarget();
}

std::error_code syncFolder(const std::filesystem::path& folder)
{
    const FileDescriptor open(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (open.isOpen() ? fsync(open.get()) == 0 : errno == EACCES) {
        return {};
    }
    const bool isUnable = errno == EINVAL || errno == ENOSYS || errno == EOPNOTSUPP || errno == EROFS;
    return isUnable ? std::error_code() : lastError();
}

std::error_code removeFile(const std::filesystem::path& file)
{
    // A read-only disk refuses even when there is nothing to remove.
    if (!FileStatus::of(file).isAbsent() && ::unlink(file.c_str()) != 0 && !meansAbsent(lastError())) {
        return lastError();
    }
    const std::error_code error = syncFolder(file.parent_path());
    return meansAbsent(error) ? std::error_code() : error; // the folder does not exist, so neither does the file
}

std::error_code makeFolder(const std::filesystem::path& folder)
{
    if (::mkdir(folder.c_str(), S_IRWXU) != 0) {
        const std::error_code error = lastError();
        // A server may check permissions in the parent before it notices that the folder exists.
        return error == std::errc::file_exists || FileStatus::ofTarget(folder).isFolder() ? std::error_code() : error;
    }
    const std::error_code error = syncFolder(folder.parent_path());
    if (error) {
        ::rmdir(folder.c_str()); // its name may not survive a power cut, so the next attempt has to create it again
    }
    return error;
}

std::error_code makePrivateFolder(const std::filesystem::path& folder)
{
    const std::error_code error = makeFolder(folder);
    if (error != std::errc::no_such_file_or_directory || !folder.has_relative_path()) {
        return error;
    }
    const std::error_code above = makePrivateFolder(folder.parent_path());
    return above ? above : makeFolder(folder);
}
