// SPDX-License-Identifier: MIT
#include "store/DataFolder.h"

#include "store/FileStamp.h"
#include "store/PropertyList.h"
#include "store/Recovered.h"

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr int maximumLinks = 40; // as many as the system follows

/// What `file` stands for: where its symbolic links end, if that is a file or nothing; else `file` itself, so that
/// a save never touches a folder or device elsewhere.
fs::path resolved(const fs::path& file)
{
    std::error_code error;
    const fs::file_status end = fs::status(file, error);
    if (!fs::is_regular_file(end) && end.type() != fs::file_type::not_found) {
        return file;
    }
    fs::path path = file;
    for (int links = 0; links < maximumLinks && fs::is_symlink(fs::symlink_status(path, error)); ++links) {
        path = path.parent_path() / fs::read_symlink(path, error);
    }
    return path;
}

bool isThere(const fs::path& file)
{
    std::error_code error;
    return fs::exists(fs::symlink_status(file, error));
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
        (void)::mkdir(folder->c_str(), S_IRWXU);
    }
    return folder;
}

std::optional<Table> DataFolder::loadTable(const std::string& name)
{
    if (!ensure()) {
        return Table();
    }
    const fs::path file = resolved(*fileUrl(name));
    removeStaleTemporaries(file.parent_path(), file.filename().native()); // beside what a link points at

    std::error_code error;
    if (!fs::exists(file, error)) {
        return Table();
    }
    std::optional<FileContent> content = readFile(file, PropertyList::maximumSize);
    if (!content) {
        return std::nullopt;
    }
    std::optional<Table> table = PropertyList::readTableInPlace(content->bytes());
    // What could not be understood is not known: a save keeps it.
    setKnown(name, table ? std::optional(content->identity) : std::nullopt);
    return table;
}

std::error_code DataFolder::saveTable(const std::optional<Table>& table, const std::string& name, Replacing replacing)
{
    if (!ensure()) {
        return std::make_error_code(std::errc::no_such_file_or_directory);
    }
    const fs::path file = resolved(*fileUrl(name));
    return table && !table->isEmpty() ? write(*table, file, name, replacing) : remove(file, name);
}

std::error_code DataFolder::write(const Table& table, const fs::path& file, const std::string& name,
                                  Replacing replacing)
{
    TemporaryFile temporary(file);
    const auto sink = [&temporary](std::string_view xml) { return temporary.write(xml); };
    if (const std::error_code error = PropertyList::writeXml(table, sink)) {
        return error;
    }
    if (const std::error_code error = temporary.sync()) {
        return error;
    }
    stampFile(temporary.path(), typeCodeOf(name), CreatorCode);
    // Only now that the new file is whole, lest saves that fail one after the other push older copies out.
    if (const std::error_code error = keepWhatWouldBeLost(file, name, replacing)) {
        return error;
    }
    if (const std::error_code error = temporary.replaceTarget()) {
        return error;
    }
    setKnown(name, temporary.identity());
    return {};
}

std::error_code DataFolder::remove(const fs::path& file, const std::string& name)
{
    if (!isThere(file)) {
        return {};
    }
    if (const std::error_code error = keepWhatWouldBeLost(file, name, Replacing::Nothing)) {
        return error;
    }
    if (::unlink(file.c_str()) != 0 && errno != ENOENT) { // gone when it was moved to be kept
        return {errno, std::generic_category()};
    }
    syncFolder(file.parent_path());
    setKnown(name, std::nullopt);
    return {};
}

std::error_code DataFolder::keepWhatWouldBeLost(const fs::path& file, const std::string& name, Replacing replacing)
{
    std::error_code error;
    const bool holdsNothing = fs::is_regular_file(fs::symlink_status(file, error)) && fs::file_size(file, error) == 0;
    if (!isThere(file) || holdsNothing || (replacing == Replacing::OwnFile && isKnown(name, file))) {
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
