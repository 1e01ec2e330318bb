// SPDX-License-Identifier: MIT
#pragma once

#include "plist/Value.h"
#include "store/DataFolder.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

/// The outcome of one save.
struct SaveResult {
    std::string name;           ///< of the file
    std::optional<Table> table; ///< the table that was to be saved
    std::error_code error;      ///< none when it is on the disk
};

/// The program's single write path: saves tables one after the other on a thread of its own. Of several waiting saves
/// of one file only the newest is written. A failed save is kept, and tried again with the next save of any file or on
/// `retry`, unless a newer save of its file has arrived. Only the thread that saves a table may change it.
class SaveQueue {
public:
    /// Called on the queue's own thread after every attempt, with the queue locked, so it must not call the queue.
    using Report = std::function<void(const SaveResult& result)>;

    /// `folder`, and whatever `report` uses, must outlive the queue.
    explicit SaveQueue(DataFolder& folder, Report report = {});
    SaveQueue(const SaveQueue&) = delete;
    SaveQueue& operator=(const SaveQueue&) = delete;

    /// Waits until every save has been tried.
    ~SaveQueue();

    /// Saves `table` as it is now to the file called `name`, asynchronously. An empty table, or none, removes the file.
    void save(std::optional<Table> table, const std::string& name, Replacing replacing = Replacing::OwnFile);

    /// Tries failed saves again, asynchronously.
    void retry();

    /// The newest table of the file called `name` that is not on the disk yet, because its save waits, is being written
    /// or failed; an empty table when the file is to be removed. nullopt when everything is saved.
    std::optional<Table> unsaved(const std::string& name) const;

    /// Returns once every save so far has been tried.
    void waitUntilDone();

private:
    struct Save {
        std::optional<Table> table;
        std::string name;
        Replacing replacing = Replacing::OwnFile;
    };

    void enqueue(Save save);
    void enqueueFailed();
    void discard(std::optional<Table> table);
    void run();
    void keepFailed(Save save);
    SaveResult write(const Save& save);

    using Snapshots = std::vector<std::optional<Table>>;

    DataFolder& m_folder;
    const Report m_report;
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<Save> m_waiting;   ///< in order of arrival, at most one for each file
    std::vector<Save> m_failed;    ///< at most one for each file, and none for a file with a waiting save
    Snapshots m_written;           ///< kept until the next save, see the definition of `save`
    Snapshots m_discarded;         ///< for the worker to free
    std::optional<Save> m_writing; ///< set by the worker alone
    bool m_ending = false;
    std::thread m_worker; ///< last, because it uses the others
};
