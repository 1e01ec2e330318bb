// SPDX-License-Identifier: MIT
#pragma once

#include "plist/PageMemory.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string_view>
#include <system_error>

struct stat;

/// An open file, closed when it goes. Holds -1 when the opening failed.
class FileDescriptor {
public:
    explicit FileDescriptor(int descriptor) : m_descriptor(descriptor) {}
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    FileDescriptor(FileDescriptor&& other) noexcept;
    FileDescriptor& operator=(FileDescriptor&& other) noexcept;
    ~FileDescriptor();

    bool isOpen() const { return m_descriptor >= 0; }
    int get() const { return m_descriptor; }

private:
    int m_descriptor;
};

/// What the system says of a name. Only "no such name" (ENOENT) and "a part of the path is no folder" (ENOTDIR) mean
/// that nothing is there; whoever takes another answer for that loses what stands there.
class FileStatus {
public:
    /// Of the name itself: a symbolic link is a link.
    static FileStatus of(const std::filesystem::path& file);

    /// Of what the name's symbolic links lead to.
    static FileStatus ofTarget(const std::filesystem::path& file);

    /// Why the system cannot tell; none when it does, and then one of the following is true.
    const std::error_code& error() const { return m_error; }
    bool isAbsent() const { return !m_error && m_mode == 0; }
    bool isRegular() const;
    bool isLink() const;
    bool isFolder() const; ///< and something else than the others
    bool isSomethingElse() const { return !m_error && !isAbsent() && !isRegular() && !isLink(); }

    std::int64_t size() const { return m_size; }

private:
    static FileStatus answer(int result, const struct stat& status);

    std::error_code m_error;
    unsigned m_mode = 0;     ///< kind and permissions, 0 when nothing is there
    std::int64_t m_size = 0; ///< bytes
};

/// Why the last call of the system failed.
std::error_code lastError();

/// Whether the error of a system call says that nothing is there.
bool meansAbsent(const std::error_code& error);

/// Tells one state of one file from every other: it changes when the file is replaced, written to or touched.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t size = 0;             ///< bytes
    std::int64_t modifiedSeconds = 0;  ///< since 1970
    std::int64_t modifiedFraction = 0; ///< nanoseconds
    std::int64_t changedSeconds = 0;
    std::int64_t changedFraction = 0;

    bool operator==(const FileIdentity&) const = default;
};

/// The identity of the open file; nullopt, and the reason in errno, when it cannot be told or is no regular file.
std::optional<FileIdentity> identityOf(const FileDescriptor& file);

struct FileContent {
    PageMemory memory;
    std::size_t size = 0;  ///< bytes of the memory that are the file's
    FileIdentity identity; ///< of before the reading, so a change meanwhile shows later

    std::span<char> bytes() { return {memory.data(), size}; }
    std::string_view text() const { return {memory.data(), size}; }
};

/// The whole regular file at `file`, through symbolic links. nullopt and the reason in `error` when it cannot be read,
/// holds more than `maximumSize` bytes or is something else: a folder, pipe, socket or device is neither waited for nor
/// woken.
std::optional<FileContent> readFile(const std::filesystem::path& file, std::size_t maximumSize, std::error_code& error);

/// The same for whoever does not ask for the reason.
std::optional<FileContent> readFile(const std::filesystem::path& file, std::size_t maximumSize);

/// A new file beside `target` that takes the target's place once it is whole and on the disk. Until then, and whenever
/// a step fails, the target stays as it was; a file that did not take its place is removed.
///
/// While it exists it is locked, so one left by a program that was killed can be told from one being written.
class TemporaryFile {
public:
    explicit TemporaryFile(std::filesystem::path target);
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile();

    const std::filesystem::path& path() const { return m_path; }

    /// Writes `bytes` behind those written before. An error too when the file could not be made.
    std::error_code write(std::string_view bytes);

    /// Waits until the disk has all that was written. For whoever has something to do before the replacing.
    std::error_code sync();

    /// Takes the target's place once the disk has all that was written, and waits until the disk knows that too. After
    /// an error it may stand there all the same.
    std::error_code replaceTarget();
    bool hasReplacedTarget() const { return m_hasReplacedTarget; }

    const FileDescriptor& descriptor() const { return m_file; } ///< not open when the file could not be made

    std::optional<FileIdentity> identity() const { return identityOf(m_file); }

private:
    std::filesystem::path m_target;
    std::filesystem::path m_path; ///< empty when there is nothing to remove
    FileDescriptor m_file;
    std::error_code m_openError;
    bool m_isSynced = false; ///< all that was written
    bool m_hasReplacedTarget = false;
};

/// Removes what killed programs left of writing `fileName`, or a file whose name begins so, in `folder`. Files that
/// some process is writing are left alone.
void removeStaleTemporaries(const std::filesystem::path& folder, std::string_view fileName);

/// Gives the file at `target`, whose folder is there, these bytes: whole and on the disk when it returns without an
/// error. It is readable by the user alone. What killed programs left of writing it is removed.
std::error_code replaceFile(const std::filesystem::path& target, std::string_view bytes);

/// Waits until the disk knows the names in `folder`. No error where the file system or the folder's mode does not let
/// one wait: nothing better can be done there.
std::error_code syncFolder(const std::filesystem::path& folder);

/// Removes `file`, if it is there, and has the disk know it: also where it is gone already, since a call whose sync
/// failed may have removed it. A link is removed, not what it points at.
std::error_code removeFile(const std::filesystem::path& file);

/// Makes `folder` for the user alone, if it is not there, and has its name on the disk. What it lies in must be there.
std::error_code makeFolder(const std::filesystem::path& folder);

/// Makes the folder and those above it that are missing, for the user alone, on the disk when it returns. No error when
/// something stands there already.
std::error_code makePrivateFolder(const std::filesystem::path& folder);
