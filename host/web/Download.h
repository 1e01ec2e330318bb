// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QUrl>

#include <chrono>
#include <filesystem>
#include <mutex>
#include <optional>

/// The limits of a download, whatever the servers do.
struct DownloadLimits {
    std::chrono::milliseconds time;
    std::size_t file; ///< bytes of the file
    /// Bytes from the network: handshakes, headers and bodies of all replies, including redirections.
    std::size_t received;
};

/// Breaks off a download from another thread. Each object serves one download.
class DownloadBreak {
public:
    void request();
    bool isRequested() const;

    /// Called by the download: the curl multi handle that `request` has to wake, or null for none.
    void setSleeper(void* sleeper);

private:
    mutable std::mutex m_mutex;
    void* m_sleeper = nullptr;
    bool m_requested = false;
};

/// The whole file at the web address `url`; nullopt when there is none, when it did not arrive completely within the
/// limits, or when it was broken off. Redirections are followed, except from an encrypted connection to an unencrypted
/// one. Trusts the certificate authorities of the system or, if given, those in the file `authorities`. Uses the
/// desktop's proxies.
///
/// Blocks, even beyond the time limit while the desktop is asked for its proxies; only for threads that nobody waits
/// for.
std::optional<QByteArray> download(const QUrl& url, const DownloadLimits& limits, DownloadBreak& breakOff,
                                   const std::filesystem::path& authorities = {});
