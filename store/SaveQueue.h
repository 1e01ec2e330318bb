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

/// What became of one save.
struct SaveResult {
    std::string name;           ///< of the file
    std::optional<Table> table; ///< what was to be saved
    std::error_code error;      ///< none when the disk has it
};

/// The program's single write path: saves tables one after the other on a thread of its own. Of several saves of one
/// file that wait, only the newest is written. A save that fails is kept and tried again with the next one of any file
/// and when it is asked for, unless a newer save of its file has come meanwhile. The thread that saves a table is the
/// one that may change it.
class SaveQueue {
public:
    /// Called on the queue's own thread after every attempt. It must not call the queue.
    using Report = std::function<void(const SaveResult& result)>;

    /// `folder` must outlive the queue, and whatever `report` uses.
    explicit SaveQueue(DataFolder& folder, Report report = {});
    SaveQueue(const SaveQueue&) = delete;
    SaveQueue& operator=(const SaveQueue&) = delete;

    /// Waits until everything handed over was tried.
    ~SaveQueue();

    /// Hands over `table` as it is now, to be saved to the file called `name`, and returns at once. An empty table,
    /// or none, removes the file.
    void save(std::optional<Table> table, const std::string& name, Replacing replacing = Replacing::OwnFile);

    /// Tries again what failed, and returns at once.
    void retry();

    /// The newest table of the file called `name` that the disk does not have yet: it waits, is being written or
    /// failed. An empty one stands for a file that is to go; nullopt says that everything is saved.
    std::optional<Table> unsaved(const std::string& name) const;

    /// Returns once everything handed over so far was tried.
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
    std::vector<Save> m_waiting;   ///< in the order they came, one a file
    std::vector<Save> m_failed;    ///< one a file, and none whose file has a newer one waiting
    Snapshots m_written;           ///< kept until the next save, see the definition of `save`
    Snapshots m_discarded;         ///< for the worker to free
    std::optional<Save> m_writing; ///< the worker alone sets it
    bool m_ending = false;
    std::thread m_worker; ///< last, as it uses the others
};
