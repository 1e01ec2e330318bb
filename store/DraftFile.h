// SPDX-License-Identifier: MIT
#pragma once

#include "store/Draft.h"

#include <condition_variable>
#include <filesystem>
#include <functional>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <vector>

/// The file that keeps a draft for the time after a crash, readable by the user alone. Whatever happens while it is
/// written, it holds a whole draft. It is written on a thread of its own.
class DraftFile {
public:
    /// Works a draft out, on the file's own thread.
    using Maker = std::function<Draft()>;

    /// The file "Draft" in `folder`, or in `spare` while that takes none, as on a full disk. A folder that is missing
    /// is made. Without a folder nothing is read or written.
    explicit DraftFile(const std::optional<std::filesystem::path>& folder,
                       const std::optional<std::filesystem::path>& spare = std::nullopt);
    DraftFile(const DraftFile&) = delete;
    DraftFile& operator=(const DraftFile&) = delete;

    /// Waits until what was handed over is written.
    ~DraftFile();

    /// The draft that another run left; an empty one when there is none. A file that cannot be read, or that a newer
    /// version wrote, is given another name, so that nothing ever writes over it; while it cannot be, no draft is
    /// written. One that could not be read then but can be read now is a part of what this gives, and goes once what
    /// was read has been written or answered. To be called before anything else.
    Draft read();

    /// Has the draft that `make` makes replace the file's, and returns at once. An empty draft removes the file. Of
    /// several that wait only the newest is made. The thread that calls this is the one that may change the tables
    /// that `make` holds.
    void write(Maker make);

    /// Returns once everything handed over so far is written.
    void waitUntilDone();

private:
    struct Place {
        std::filesystem::path folder;
        bool isNameTaken = false; ///< that of the file, by what could not be read
    };

    void run();
    void store(const Draft& draft);
    std::error_code replaceFiles(const Draft& draft);
    static std::error_code replaceFile(Place& place, const Draft& draft);

    std::vector<Place> m_places; ///< the worker's once something is written
    std::mutex m_mutex;
    std::condition_variable m_changed;
    Maker m_waiting;
    std::vector<Maker> m_done;                      ///< kept until the next `write`, as the tables they hold were read
    std::optional<Draft> m_stored;                  ///< what the file holds, as far as it is known; the worker's
    std::vector<std::filesystem::path> m_readAside; ///< drafts under other names that `read` gave
    bool m_working = false;
    bool m_ending = false;
    std::thread m_worker; ///< last, as it uses the others
};
