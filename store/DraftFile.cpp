// SPDX-License-Identifier: MIT
#include "store/DraftFile.h"

#include "store/Files.h"
#include "store/PropertyList.h"

#include <QLoggingCategory>

#include <cerrno>
#include <cstdio>
#include <string>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

Q_LOGGING_CATEGORY(logDraft, "velumora.draft")

namespace fs = std::filesystem;

const std::string draftName = "Draft";
constexpr int mostSetAside = 1000;

/// Gives the file a name that is not taken. Whether its own name is free then.
bool setAside(const fs::path& file)
{
    for (int number = 1; number <= mostSetAside; ++number) {
        const fs::path name = file.native() + " unread " + std::to_string(number);
        if (::renameat2(AT_FDCWD, file.c_str(), AT_FDCWD, name.c_str(), RENAME_NOREPLACE) == 0) {
            qCWarning(logDraft, "a draft that cannot be read was set aside: %s", name.c_str());
            return true;
        }
        if (errno != EEXIST) {
            return errno == ENOENT;
        }
    }
    return false;
}

/// An empty one when there is no file, nullopt when there is something that cannot be read.
std::optional<Draft> draftIn(const fs::path& file)
{
    std::error_code error;
    std::optional<FileContent> content = readFile(file, PropertyList::maximumSize, error);
    if (!content && meansAbsent(error) && FileStatus::of(file).isAbsent()) { // and no link that leads nowhere
        return Draft();
    }
    const std::optional<Table> table =
        content ? PropertyList::readTableInPlace(content->bytes()) : std::optional<Table>();
    return table ? Drafts::draftFromTable(*table) : std::nullopt;
}

} // namespace

DraftFile::DraftFile(std::optional<fs::path> folder) : m_folder(std::move(folder)), m_worker(&DraftFile::run, this) {}

DraftFile::~DraftFile()
{
    {
        const std::lock_guard lock(m_mutex);
        m_ending = true;
    }
    m_changed.notify_all();
    m_worker.join();
}

Draft DraftFile::read()
{
    if (!m_folder) {
        return {};
    }
    const fs::path file = *m_folder / draftName;
    removeStaleTemporaries(*m_folder, draftName);
    if (std::optional<Draft> draft = draftIn(file)) {
        return std::move(*draft);
    }
    m_isInTheWay = !setAside(file);
    return {};
}

// As with the saves of tables, what was read is let go of only after the thread that changes the tables took the lock.
void DraftFile::write(Maker make)
{
    std::vector<Maker> done;
    {
        const std::lock_guard lock(m_mutex);
        done.swap(m_done);
        std::swap(m_waiting, make);
    }
    m_changed.notify_all();
}

void DraftFile::waitUntilDone()
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return !m_waiting && !m_working; });
}

void DraftFile::run()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [this] { return m_ending || m_waiting; });
        if (!m_waiting) {
            return;
        }
        Maker make = std::exchange(m_waiting, nullptr);
        m_working = true;
        lock.unlock();
        store(make());
        lock.lock();
        m_done.push_back(std::move(make));
        m_working = false;
        m_changed.notify_all();
    }
}

void DraftFile::store(const Draft& draft)
{
    if (!m_folder || draft == m_stored) {
        return;
    }
    const std::error_code error = replaceFile(draft);
    m_stored = error ? std::nullopt : std::optional(draft);
    if (error) {
        qCWarning(logDraft, "the draft was not written: %s", error.message().c_str());
    }
}

std::error_code DraftFile::replaceFile(const Draft& draft)
{
    const fs::path file = *m_folder / draftName;
    if (m_isInTheWay && !setAside(file)) {
        return std::make_error_code(std::errc::file_exists);
    }
    m_isInTheWay = false;
    if (draft.empty()) {
        if (::unlink(file.c_str()) == 0) {
            return syncFolder(*m_folder);
        }
        const std::error_code error(errno, std::generic_category());
        return meansAbsent(error) ? std::error_code() : error;
    }
    if (const std::error_code error = makePrivateFolder(*m_folder)) {
        return error;
    }
    TemporaryFile temporary(file);
    const auto sink = [&temporary](std::string_view xml) { return temporary.write(xml); };
    if (const std::error_code error = PropertyList::writeXml(Drafts::tableFromDraft(draft), sink)) {
        return error;
    }
    if (const std::error_code error = temporary.sync()) {
        return error;
    }
    return temporary.replaceTarget();
}
