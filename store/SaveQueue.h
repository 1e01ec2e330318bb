// SPDX-License-Identifier: MIT
#pragma once

#include "store/DataFolder.h"
#include "store/Value.h"

#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

/// The program's single write path: saves tables one after the other on a thread of its own. Of several saves of one
/// file that wait, only the newest is written. A save that fails is told to the log alone. The thread that saves a
/// table is the one that may change it.
class SaveQueue {
public:
    /// `folder` must outlive the queue.
    explicit SaveQueue(DataFolder& folder);
    SaveQueue(const SaveQueue&) = delete;
    SaveQueue& operator=(const SaveQueue&) = delete;

    /// Waits until everything handed over is written.
    ~SaveQueue();

    /// Hands over `table` as it is now, to be saved to the file called `name`, and returns at once. An empty table,
    /// or none, removes the file.
    void save(std::optional<Table> table, const std::string& name, Replacing replacing = Replacing::OwnFile);

    /// Returns once everything handed over so far is written.
    void waitUntilDone();

private:
    struct Save {
        std::optional<Table> table;
        std::string name;
        Replacing replacing;
    };

    void run();
    void write(const Save& save);

    using Snapshots = std::vector<std::optional<Table>>;

    DataFolder& m_folder;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<Save> m_waiting; ///< in the order they came, one a file
    Snapshots m_written;         ///< kept until the next save, see the definition of `save`
    Snapshots m_discarded;       ///< for the worker to free
    bool m_writing = false;
    bool m_ending = false;
    std::thread m_worker; ///< last, as it uses the others
};
