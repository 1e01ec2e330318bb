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

/// The file that keeps a draft for the time after a crash, readable by the user alone. It is written on a thread of its
/// own, and holds a whole draft whatever happens meanwhile.
class DraftFile {
public:
    /// Computes a draft; called on the file's own thread.
    using Maker = std::function<Draft()>;

    /// The file is "Draft" in `folder`, or in `spare` while `folder` does not accept one, as on a full disk. A missing
    /// folder is created. Without a folder nothing is read or written.
    explicit DraftFile(const std::optional<std::filesystem::path>& folder,
                       const std::optional<std::filesystem::path>& spare = std::nullopt);
    DraftFile(const DraftFile&) = delete;
    DraftFile& operator=(const DraftFile&) = delete;

    /// Waits until everything passed to `write` is written.
    ~DraftFile();

    /// The draft that an earlier run left; empty when there is none. A file that cannot be read, or that a newer
    /// version wrote, is renamed so that nothing overwrites it; while that fails, no draft is written in its folder. A
    /// renamed file that has become readable is included in the result, and removed at the next successful `write`.
    /// Must be called before anything else.
    Draft read();

    /// Replaces the file's draft with that of `make`, asynchronously. An empty draft removes the file. Of several
    /// waiting calls only the newest counts. Only the calling thread may change the tables that `make` holds.
    void write(Maker make);

    /// Returns once everything passed to `write` so far is written.
    void waitUntilDone();

private:
    struct Place {
        std::filesystem::path folder;
        bool isNameTaken = false; ///< an unreadable file has it and could not be renamed
    };

    void run();
    void store(const Draft& draft);
    std::error_code replaceFiles(const Draft& draft);
    static std::error_code replaceFile(Place& place, const Draft& draft);

    std::vector<Place> m_places; ///< used by the worker alone after the first `write`
    std::mutex m_mutex;
    std::condition_variable m_changed;
    Maker m_waiting;
    std::vector<Maker> m_done;                      ///< kept until the next `write`, see its definition
    std::optional<Draft> m_stored;                  ///< the file's content, if known; used by the worker alone
    std::vector<std::filesystem::path> m_readAside; ///< renamed drafts that `read` included
    bool m_working = false;
    bool m_ending = false;
    std::thread m_worker; ///< last, because it uses the others
};
