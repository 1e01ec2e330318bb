// SPDX-License-Identifier: MIT
#include "store/DataFolder.h"

#include "plist/PropertyList.h"
#include "store/FileAttributes.h"
#include "store/FileStamp.h"
#include "store/Recovered.h"

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr int maximumLinks = 40; // the system's own limit

struct Resolved {
    fs::path path;
    bool isCircle = false; ///< the links form a circle, so there is no file
    std::error_code error; ///< set when the system cannot tell
};

/// The file that `file` stands for: the target of its symbolic links if that is a regular file or absent, else `file`
/// itself, so that a save never touches a folder or device elsewhere.
Resolved resolved(const fs::path& file)
{
    fs::path path = file;
    for (int links = 0; links <= maximumLinks; ++links) {
        const FileStatus status = FileStatus::of(path);
        if (!status.isLink()) {
            return {status.isSomethingElse() ? file : path, false, status.error()};
        }
        std::error_code error;
        path = path.parent_path() / fs::read_symlink(path, error);
        if (error) {
            return {file, false, error};
        }
    }
    return {file, true, {}};
}

} // namespace

DataFolder::DataFolder(std::optional<fs::path> applicationSupport, const Clock& clock)
    : m_applicationSupport(std::move(applicationSupport)), m_clock(clock)
{
}

std::optional<fs::path> DataFolder::url() const
{
    return m_applicationSupport ? std::optional(*m_applicationSupport / "TALV") : std::nullopt;
}

std::optional<fs::path> DataFolder::fileUrl(std::string_view name) const
{
    const std::optional<fs::path> folder = url();
    return folder ? std::optional(*folder / name) : std::nullopt;
}

std::optional<fs::path> DataFolder::ensure() const
{
    std::optional<fs::path> folder = url();
    if (folder) {
        (void)makeFolder(*folder); // a failure shows when the folder is used
    }
    return folder;
}

std::optional<Table> DataFolder::loadTable(const std::string& name)
{
    if (!ensure()) {
        return Table();
    }
    const auto [file, isCircle, doubt] = resolved(*fileUrl(name));
    if (doubt) {
        return std::nullopt;
    }
    if (isCircle) {
        return Table();
    }
    removeStaleTemporaries(file.parent_path(), file.filename().native()); // they lie beside the target of a link

    std::error_code error;
    std::optional<FileContent> content = readFile(file, PropertyList::maximumSize, error);
    if (!content) {
        return meansAbsent(error) ? std::optional(Table()) : std::nullopt;
    }
    std::optional<Table> table = PropertyList::readTableInPlace(content->bytes());
    // An unreadable file counts as unknown, so that a save keeps a copy of it.
    setKnown(name, table ? std::optional(content->identity) : std::nullopt);
    return table;
}

std::error_code DataFolder::saveTable(const std::optional<Table>& table, const std::string& name, Replacing replacing)
{
    const std::optional<fs::path> folder = url();
    if (!folder) {
        return std::make_error_code(std::errc::no_such_file_or_directory);
    }
    const bool isEmpty = !table || table->isEmpty();
    if (isEmpty && FileStatus::ofTarget(*folder).isAbsent()) {
        return {};
    }
    if (const std::error_code error = makeFolder(*folder)) {
        return error;
    }
    const auto [file, isCircle, doubt] = resolved(*fileUrl(name));
    if (doubt) {
        return doubt;
    }
    removeStaleTemporaries(file.parent_path(), file.filename().native()); // of saves that failed
    return isEmpty ? remove(file, name) : write(*table, file, name, replacing);
}

std::error_code DataFolder::write(const Table& table, const fs::path& file, const std::string& name,
                                  Replacing replacing)
{
    TemporaryFile temporary(file);
    const auto sink = [&temporary](std::string_view xml) { return temporary.write(xml); };
    if (const std::error_code error = PropertyList::writeXml(table, sink)) {
        return error;
    }
    if (const std::error_code error = copyAttributes(file, temporary.descriptor())) {
        return error;
    }
    stampFile(temporary.path(), typeCodeOf(name), CreatorCode);
    if (const std::error_code error = temporary.sync()) {
        return error;
    }
    // Only once the new file is complete; otherwise repeated failing saves would push out older copies.
    if (const std::error_code error = keepWhatWouldBeLost(file, name, replacing)) {
        return error;
    }
    const std::error_code error = temporary.replaceTarget();
    if (temporary.hasReplacedTarget()) {
        setKnown(name, temporary.identity());
    }
    return error;
}

std::error_code DataFolder::remove(const fs::path& file, const std::string& name)
{
    const FileStatus status = FileStatus::of(file);
    if (status.error()) {
        return status.error();
    }
    if (!status.isAbsent()) {
        if (const std::error_code error = keepWhatWouldBeLost(file, name, Replacing::Nothing)) {
            return error;
        }
        setKnown(name, std::nullopt);
    }
    return removeFile(file);
}

std::error_code DataFolder::keepWhatWouldBeLost(const fs::path& file, const std::string& name, Replacing replacing)
{
    const FileStatus status = FileStatus::of(file);
    if (status.error()) {
        return status.error();
    }
    const bool holdsNothing = status.isAbsent() || (status.isRegular() && status.size() == 0);
    if (holdsNothing || (replacing == Replacing::OwnFile && isKnown(name, file))) {
        return {};
    }
    return Recovered::keep(*url() / "Recovered", file, name, m_clock.now());
}

void DataFolder::setKnown(const std::string& name, std::optional<FileIdentity> identity)
{
    const std::lock_guard lock(m_mutex);
    if (identity) {
        m_known.insert_or_assign(name, *identity);
    } else {
        m_known.erase(name);
    }
}

bool DataFolder::isKnown(const std::string& name, const fs::path& file)
{
    const FileDescriptor open(::open(file.c_str(), O_PATH | O_CLOEXEC));
    const std::optional<FileIdentity> identity = identityOf(open);
    const std::lock_guard lock(m_mutex);
    const auto known = m_known.find(name);
    return identity && known != m_known.end() && known->second == *identity;
}
