// SPDX-License-Identifier: MIT
#include "store/SaveQueue.h"

#include "store/Record.h"

#include <QLoggingCategory>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

Q_LOGGING_CATEGORY(logStore, "velumora.store")

// Freeing a large table takes milliseconds, so it is left to the worker; the number is limited because each may be
// large.
constexpr std::size_t discardedLimit = 4;

} // namespace

SaveQueue::SaveQueue(DataFolder& folder, Report report)
    : m_folder(folder), m_report(std::move(report)), m_worker(&SaveQueue::run, this)
{
}

SaveQueue::~SaveQueue()
{
    {
        const std::lock_guard lock(m_mutex);
        m_ending = true;
    }
    m_changed.notify_all();
    m_worker.join();
}

// A QList changes its elements in place once nobody else shares them, but reading the count of sharers does not order
// their earlier reads before the change. So the worker keeps every snapshot it has read until the saving thread has
// taken the lock again, which does order them.
void SaveQueue::save(std::optional<Table> table, const std::string& name, Replacing replacing)
{
    {
        const std::lock_guard lock(m_mutex);
        std::ranges::move(std::exchange(m_written, {}), std::back_inserter(m_discarded));
        enqueueFailed();
        enqueue({std::move(table), name, replacing});
    }
    m_changed.notify_all();
}

void SaveQueue::retry()
{
    {
        const std::lock_guard lock(m_mutex);
        enqueueFailed();
    }
    m_changed.notify_all();
}

/// Replaces a waiting save of the same file, which need not be written any more.
void SaveQueue::enqueue(Save save)
{
    const auto older = std::ranges::find(m_waiting, save.name, &Save::name);
    if (older == m_waiting.end()) {
        m_waiting.push_back(std::move(save));
        return;
    }
    older->replacing = std::max(older->replacing, save.replacing); // what the older one had to keep is still kept
    std::swap(older->table, save.table);
    discard(std::move(save.table));
}

void SaveQueue::enqueueFailed()
{
    std::ranges::move(std::exchange(m_failed, {}),
                      std::back_inserter(m_waiting)); // none of these files is waiting already
}

void SaveQueue::discard(std::optional<Table> table)
{
    if (m_discarded.size() < discardedLimit) {
        m_discarded.push_back(std::move(table));
    }
}

std::optional<Table> SaveQueue::unsaved(const std::string& name) const
{
    const std::lock_guard lock(m_mutex);
    if (const auto waiting = std::ranges::find(m_waiting, name, &Save::name); waiting != m_waiting.end()) {
        return elementsOf(waiting->table);
    }
    if (m_writing && m_writing->name == name) {
        return elementsOf(m_writing->table);
    }
    const auto failed = std::ranges::find(m_failed, name, &Save::name);
    return failed != m_failed.end() ? std::optional(elementsOf(failed->table)) : std::nullopt;
}

void SaveQueue::waitUntilDone()
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return m_waiting.empty() && !m_writing; });
}

void SaveQueue::run()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [this] { return m_ending || !m_waiting.empty(); });
        if (m_waiting.empty()) {
            return;
        }
        m_writing = std::move(m_waiting.front());
        m_waiting.erase(m_waiting.begin());
        Snapshots discarded = std::exchange(m_discarded, {});
        lock.unlock();
        discarded.clear();
        const SaveResult result = write(*m_writing);
        lock.lock();
        Save save = *std::exchange(m_writing, std::nullopt);
        if (result.error) {
            keepFailed(std::move(save));
        } else {
            m_written.push_back(std::move(save.table));
        }
        if (m_report) {
            m_report(result); // only now, when `unsaved` agrees with it
        }
        m_changed.notify_all();
    }
}

/// Keeps a failed save for the next attempt, unless a newer save of the file is waiting.
void SaveQueue::keepFailed(Save save)
{
    const auto newer = std::ranges::find(m_waiting, save.name, &Save::name);
    if (newer == m_waiting.end()) {
        m_failed.push_back(std::move(save));
        return;
    }
    newer->replacing = std::max(newer->replacing, save.replacing);
    m_written.push_back(std::move(save.table)); // it was read, so it is kept, see `save`
}

SaveResult SaveQueue::write(const Save& save)
{
    const std::error_code error = m_folder.saveTable(save.table, save.name, save.replacing);
    if (error) {
        qCWarning(logStore, "%s could not be saved: %s", save.name.c_str(), error.message().c_str());
    }
    return {save.name, save.table, error};
}
