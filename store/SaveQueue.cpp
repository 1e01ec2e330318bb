// SPDX-License-Identifier: MIT
#include "store/SaveQueue.h"

#include <QLoggingCategory>

#include <algorithm>
#include <utility>

namespace {

Q_LOGGING_CATEGORY(logStore, "velumora.store")

// Freeing a large table takes milliseconds, so it is left to the worker; but only so many, as each may be large.
constexpr std::size_t replacedLimit = 4;

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

void SaveQueue::save(std::optional<Table> table, const std::string& name, Replacing replacing)
{
    {
        const std::lock_guard lock(m_mutex);
        const auto older = std::ranges::find(m_waiting, name, &Save::name);
        if (older == m_waiting.end()) {
            m_waiting.push_back({std::move(table), name, replacing});
        } else {
            std::swap(older->table, table);
            older->replacing = std::max(older->replacing, replacing); // what the older one was to keep is still kept
            if (m_replaced.size() < replacedLimit) {
                m_replaced.push_back(std::move(table));
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
        {
            const Save next = std::move(m_waiting.front());
            m_waiting.erase(m_waiting.begin());
            const auto replaced = std::exchange(m_replaced, {});
            m_writing = true;
            lock.unlock();
            write(next);
        } // the snapshots are freed here, while nobody waits for the lock
        lock.lock();
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
