// SPDX-License-Identifier: MIT
#include "store/DraftFile.h"

#include "store/Files.h"
#include "store/PropertyList.h"

#include <QLoggingCategory>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <iterator>
#include <map>
#include <ranges>
#include <set>
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

const std::string asideName = "Draft unread ";

/// The drafts in `folder` that were set aside, the first one first.
std::vector<fs::path> draftsAside(const fs::path& folder)
{
    std::map<int, fs::path> found;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
         entry.increment(error)) {
        const std::string name = entry->path().filename();
        int number = 0;
        if (name.starts_with(asideName) && name.size() > asideName.size()) {
            const char* const end = name.data() + name.size();
            const auto [stop, doubt] = std::from_chars(name.data() + asideName.size(), end, number);
            if (doubt == std::errc() && stop == end && number > 0) {
                found[number] = entry->path();
            }
        }
    }
    const auto paths = std::views::values(found);
    return {paths.begin(), paths.end()};
}

/// Gives the file a name that is not taken. Whether its own name is free then.
bool setAside(const fs::path& file)
{
    for (int number = 1; number <= mostSetAside; ++number) {
        const fs::path name = file.parent_path() / (asideName + std::to_string(number));
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

/// The draft in the file; nullopt when there is none that can be read, and why the file cannot.
std::optional<Draft> draftIn(const fs::path& file, std::error_code& error)
{
    std::optional<FileContent> content = readFile(file, PropertyList::maximumSize, error);
    const std::optional<Table> table =
        content ? PropertyList::readTableInPlace(content->bytes()) : std::optional<Table>();
    return table ? Drafts::draftFromTable(*table) : std::nullopt;
}

/// The changes of a draft that was read both aside and in its place are there twice.
Draft withoutRepetitions(const Draft& draft)
{
    std::set<std::string> known;
    Draft once;
    std::ranges::copy_if(draft, std::back_inserter(once), [&known](const DraftChange& change) {
        return known.insert(PropertyList::writeXml(Drafts::tableFromDraft({change}))).second;
    });
    return once;
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
    std::error_code error;
    std::optional<Draft> draft = draftIn(file, error);
    const bool isNone =
        !draft && meansAbsent(error) && FileStatus::of(file).isAbsent(); // and no link that leads nowhere
    Draft all = draft.value_or(Draft());
    for (const fs::path& aside : draftsAside(*m_folder)) {
        if (const std::optional<Draft> found = draftIn(aside, error)) {
            m_readAside.push_back(aside);
            all.insert(all.end(), found->begin(), found->end());
        }
    }
    m_isInTheWay = !draft && !isNone && !setAside(file);
    return m_readAside.empty() ? all : withoutRepetitions(all);
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
    if (!error) {
        for (const fs::path& aside : std::exchange(m_readAside, {})) {
            ::unlink(aside.c_str()); // the file has what is left of it
        }
    }
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
        return removeFile(file);
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
