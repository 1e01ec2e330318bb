// SPDX-License-Identifier: MIT
#include "store/SaveQueue.h"

#include <QLoggingCategory>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

Q_LOGGING_CATEGORY(logStore, "velumora.store")

// Freeing a large table takes milliseconds, so it is left to the worker; but only so many, as each may be large.
constexpr std::size_t discardedLimit = 4;

} // namespace

SaveQueue::SaveQueue(DataFolder& folder) : m_folder(folder), m_worker(&SaveQueue::run, this) {}

SaveQueue::~SaveQueue()
{
    {
        const std::lock_guard lock(m_mutex);
        m_ending = true;
    }
    m_changed.notify_all();
    m_worker.join();
}

// A list changes its elements in place once nobody shares them, but its look at the count of sharers does not order
// the reads of the others before the change. So the worker never lets go of a snapshot that it has read until the
// saving thread has taken the lock again, which does.
void SaveQueue::save(std::optional<Table> table, const std::string& name, Replacing replacing)
{
    {
        const std::lock_guard lock(m_mutex);
        std::ranges::move(std::exchange(m_written, {}), std::back_inserter(m_discarded));
        const auto older = std::ranges::find(m_waiting, name, &Save::name);
        if (older == m_waiting.end()) {
            m_waiting.push_back({std::move(table), name, replacing});
        } else {
            std::swap(older->table, table);
            older->replacing = std::max(older->replacing, replacing); // what the older one was to keep is still kept
            if (m_discarded.size() < discardedLimit) {
                m_discarded.push_back(std::move(table));
            }
        }
    }
    m_changed.notify_all();
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
        Save next = std::move(m_waiting.front());
        m_waiting.erase(m_waiting.begin());
        Snapshots discarded = std::exchange(m_discarded, {});
        m_writing = true;
        lock.unlock();
        discarded.clear();
        write(next);
        lock.lock();
        m_written.push_back(std::move(next.table));
        m_writing = false;
        m_changed.notify_all();
    }
}

void SaveQueue::write(const Save& save)
{
    if (const std::error_code error = m_folder.saveTable(save.table, save.name, save.replacing)) {
        qCWarning(logStore, "%s was not saved: %s", save.name.c_str(), error.message().c_str());
    }
}
