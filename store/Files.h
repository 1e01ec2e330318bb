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

/// An owned file descriptor, closed by the destructor; -1 when opening failed.
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

/// What the system says about a path. Only "no such name" (ENOENT) and "a part of the path is not a folder" (ENOTDIR)
/// mean that nothing is there; treating any other answer as absence loses data.
class FileStatus {
public:
    /// The status of the path itself: a symbolic link is a link.
    static FileStatus of(const std::filesystem::path& file);

    /// The status of what the path's symbolic links lead to.
    static FileStatus ofTarget(const std::filesystem::path& file);

    /// Why the system cannot tell. Without an error, at least one of the following is true.
    const std::error_code& error() const { return m_error; }
    bool isAbsent() const { return !m_error && m_mode == 0; }
    bool isRegular() const;
    bool isLink() const;
    bool isFolder() const; ///< which counts as something else, too
    bool isSomethingElse() const { return !m_error && !isAbsent() && !isRegular() && !isLink(); }

    std::int64_t size() const { return m_size; }

private:
    static FileStatus answer(int result, const struct stat& status);

    std::error_code m_error;
    unsigned m_mode = 0;     ///< kind and permissions, 0 when nothing is there
    std::int64_t m_size = 0; ///< bytes
};

/// The reason (errno) why the last system call failed.
std::error_code lastError();

/// Whether a system call's error means that nothing is there.
bool meansAbsent(const std::error_code& error);

/// Identifies one state of one file: it differs once the file is replaced, written to or touched.
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

/// The identity of the open file; nullopt, with the reason in errno, when the system cannot tell or it is not a regular
/// file.
std::optional<FileIdentity> identityOf(const FileDescriptor& file);

struct FileContent {
    PageMemory memory;
    std::size_t size = 0;  ///< bytes of `memory` that hold the file's content
    FileIdentity identity; ///< from before the reading, so that a change meanwhile shows later

    std::span<char> bytes() { return {memory.data(), size}; }
    std::string_view text() const { return {memory.data(), size}; }
};

/// The whole regular file at `file`, following symbolic links. nullopt, with the reason in `error`, when it cannot be
/// read, is larger than `maximumSize` bytes or is not a regular file: folders, pipes, sockets and devices are not even
/// opened.
std::optional<FileContent> readFile(const std::filesystem::path& file, std::size_t maximumSize, std::error_code& error);

/// The same without the reason.
std::optional<FileContent> readFile(const std::filesystem::path& file, std::size_t maximumSize);

/// A new file beside `target`, which it replaces once it is complete and on the disk. Until then, and when any step
/// fails, the target stays as it was; a file that did not replace it is removed.
///
/// The file is locked while it exists, so that one left by a killed program differs from one being written.
class TemporaryFile {
public:
    explicit TemporaryFile(std::filesystem::path target);
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile();

    const std::filesystem::path& path() const { return m_path; }

    /// Appends `bytes`. Returns an error also when the file could not be created.
    std::error_code write(std::string_view bytes);

    /// Waits until all that was written is on the disk; for callers that have something to do before `replaceTarget`.
    std::error_code sync();

    /// Replaces the target once all that was written is on the disk, and waits until the replacement is, too. After an
    /// error the target may have been replaced all the same.
    std::error_code replaceTarget();
    bool hasReplacedTarget() const { return m_hasReplacedTarget; }

    const FileDescriptor& descriptor() const { return m_file; } ///< not open when the file could not be created

    std::optional<FileIdentity> identity() const { return identityOf(m_file); }

private:
    std::filesystem::path m_target;
    std::filesystem::path m_path; ///< empty when there is nothing to remove
    FileDescriptor m_file;
    std::error_code m_openError;
    bool m_isSynced = false; ///< everything written so far
    bool m_hasReplacedTarget = false;
};

/// Removes from `folder` the temporary files that killed programs left of `fileName`, or of a file whose name begins
/// so. Files that a process is still writing are left alone.
void removeStaleTemporaries(const std::filesystem::path& folder, std::string_view fileName);

/// Replaces the content of `target`, whose folder must exist, with `bytes`; complete and on the disk when it returns
/// without an error. The file is readable by the user alone. Leftovers of killed programs are removed.
std::error_code replaceFile(const std::filesystem::path& target, std::string_view bytes);

/// Waits until the names in `folder` are on the disk. No error where the file system or the folder's mode does not
/// allow that: nothing better can be done there.
std::error_code syncFolder(const std::filesystem::path& folder);

/// Removes `file`, if it exists, and waits until that is on the disk; also when it is gone already, since an earlier
/// call may have removed it and then failed to sync. A link is removed, not its target.
std::error_code removeFile(const std::filesystem::path& file);

/// Creates `folder`, if it does not exist, accessible to the user alone and with its name on the disk. Its parent must
/// exist.
std::error_code makeFolder(const std::filesystem::path& folder);

/// Creates the folder and its missing parents, accessible to the user alone and on the disk when it returns. No error
/// when the folder exists already.
std::error_code makePrivateFolder(const std::filesystem::path& folder);
