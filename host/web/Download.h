// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QUrl>

#include <chrono>
#include <filesystem>
#include <mutex>
#include <optional>

/// What a download may cost, whatever the servers do.
struct DownloadLimits {
    std::chrono::milliseconds time;
    std::size_t file;     ///< bytes of the file
    std::size_t received; ///< bytes from the network: handshakes, heads and bodies of all replies, redirections too
};

/// By this a download is broken off from another thread. It serves one download.
class DownloadBreak {
public:
    void request();
    bool isRequested() const;

    /// For the download: what a request has to wake, null for nothing any more. A multi handle.
    void setSleeper(void* sleeper);

private:
    mutable std::mutex m_mutex;
    void* m_sleeper = nullptr;
    bool m_requested = false;
};

/// The whole file at `url`, a web address; nullopt when there is none, when it did not come whole within the limits and
/// when it was broken off. Redirections are followed, except from an encrypted connection to one that is not. Encrypted
/// servers are those that the system trusts, or with `authorities` the ones that this file of certificates vouches for.
/// The connection goes by way of the desktop's proxies.
///
/// Blocks, and may do so for longer than the limit while the desktop is asked for its proxies: for threads that nobody
/// waits for.
std::optional<QByteArray> download(const QUrl& url, const DownloadLimits& limits, DownloadBreak& breakOff,
                                   const std::filesystem::path& authorities = {});
