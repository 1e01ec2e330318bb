// SPDX-License-Identifier: MIT
#include "store/DraftFile.h"

#include "plist/PropertyList.h"
#include "store/Files.h"

#include <QLoggingCategory>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <iterator>
#include <map>
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

/// The drafts in `folder` that were set aside, lowest number first.
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
    std::vector<fs::path> paths;
    std::ranges::transform(found, std::back_inserter(paths), [](const auto& each) { return each.second; });
    return paths;
}

/// Renames the file to a name that is free. Returns whether its own name is free afterwards.
bool setAside(const fs::path& file)
{
    for (int number = 1; number <= mostSetAside; ++number) {
        const fs::path name = file.parent_path() / (asideName + std::to_string(number));
        if (::renameat2(AT_FDCWD, file.c_str(), AT_FDCWD, name.c_str(), RENAME_NOREPLACE) == 0) {
            qCWarning(logDraft, "an unreadable draft was renamed to %s", name.c_str());
            return true;
        }
        if (errno != EEXIST) {
            return errno == ENOENT;
        }
    }
    return false;
}

/// The draft in the file; nullopt when there is none or it cannot be read, with the reason in `error`.
std::optional<Draft> draftIn(const fs::path& file, std::error_code& error)
{
    std::optional<FileContent> content = readFile(file, PropertyList::maximumSize, error);
    const std::optional<Table> table =
        content ? PropertyList::readTableInPlace(content->bytes()) : std::optional<Table>();
    return table ? Drafts::draftFromTable(*table) : std::nullopt;
}

/// The changes of all drafts; a change that several drafts have is included once.
Draft joined(const std::vector<Draft>& drafts)
{
    if (drafts.size() == 1) {
        return drafts.front();
    }
    Draft all;
    std::set<std::string> former;
    for (const Draft& draft : drafts) {
        std::set<std::string> known;
        for (const DraftChange& change : draft) {
            const std::string text = PropertyList::writeXml(Drafts::tableFromDraft({change}));
            if (!former.contains(text)) {
                all.push_back(change);
            }
            known.insert(text);
        }
        former.merge(known);
    }
    return all;
}

} // namespace

DraftFile::DraftFile(const std::optional<fs::path>& folder, const std::optional<fs::path>& spare)
{
    for (const std::optional<fs::path>& place : {folder, spare}) {
        if (place) {
            m_places.push_back({*place});
        }
    }
    m_worker = std::thread(&DraftFile::run, this);
}

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
    std::vector<Draft> drafts;
    for (Place& place : m_places) {
        const fs::path file = place.folder / draftName;
        removeStaleTemporaries(place.folder, draftName);
        std::error_code error;
        std::optional<Draft> draft = draftIn(file, error);
        const bool isNone = !draft && meansAbsent(error) && FileStatus::of(file).isAbsent(); // nor a dangling link
        if (draft) {
            drafts.push_back(*draft);
        }
        for (const fs::path& aside : draftsAside(place.folder)) {
            if (std::optional<Draft> found = draftIn(aside, error)) {
                m_readAside.push_back(aside);
                drafts.push_back(*std::move(found));
            }
        }
        place.isNameTaken = !draft && !isNone && !setAside(file);
    }
    return joined(drafts);
}

// As in SaveQueue::save: what the worker has read is released only after the thread that changes the tables has taken
// the lock.
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
    if (draft == m_stored) {
        return;
    }
    const std::error_code error = replaceFiles(draft);
    if (!error) {
        for (const fs::path& aside : std::exchange(m_readAside, {})) {
            ::unlink(aside.c_str()); // the file now has what is left of it
        }
    }
    m_stored = error ? std::nullopt : std::optional(draft);
    if (error) {
        qCWarning(logDraft, "the draft could not be written: %s", error.message().c_str());
    }
}

/// Writes the draft to the first place that accepts it and removes it from those after it.
std::error_code DraftFile::replaceFiles(const Draft& draft)
{
    std::error_code error;
    bool isWritten = draft.empty();
    for (Place& place : m_places) {
        const std::error_code failure = replaceFile(place, isWritten ? Draft() : draft);
        isWritten = isWritten || !failure;
        error = error ? error : failure;
    }
    return isWritten && !draft.empty() ? std::error_code() : error;
}

std::error_code DraftFile::replaceFile(Place& place, const Draft& draft)
{
    const fs::path file = place.folder / draftName;
    if (place.isNameTaken && !setAside(file)) {
        return std::make_error_code(std::errc::file_exists);
    }
    place.isNameTaken = false;
    if (draft.empty()) {
        return removeFile(file);
    }
    if (const std::error_code error = makePrivateFolder(place.folder)) {
        return error;
    }
    TemporaryFile temporary(file);
    const auto sink = [&temporary](std::string_view xml) { return temporary.write(xml); };
    if (const std::error_code error = PropertyList::writeXml(Drafts::tableFromDraft(draft), sink)) {
        return error;
    }
    return temporary.replaceTarget();
}
