// SPDX-License-Identifier: MIT
#pragma once

#include "host/VersionServer.h"
#include "host/web/Download.h"

#include <QUrl>

#include <chrono>
#include <filesystem>
#include <memory>

class DownloadThreads;

/// The maker's web server, which holds the newest version in the file "/vm/Velumora_version.txt".
class WebVersionServer : public VersionServer {
public:
    static constexpr std::size_t longestReply = 65'536; ///< bytes
    static constexpr DownloadLimits usualLimits{
        .time = std::chrono::seconds(15), .file = longestReply, .received = 4 * longestReply};

    /// `server` is the server's scheme, host and, where it is not the usual one, port. A fetch ends at `limits`,
    /// whatever the server does. `authorities` are as for a download.
    explicit WebVersionServer(QUrl server, const DownloadLimits& limits = usualLimits,
                              std::filesystem::path authorities = {});

    /// Waits a moment for the threads of fetches that were given up.
    ~WebVersionServer() override;

    /// The whole file, decoded as UTF-8, with its blanks, line ends and byte order mark if it has any. nullopt when
    /// there is no such file, when it is not UTF-8 or longer than allowed, and when it did not come whole in time.
    [[nodiscard]] std::unique_ptr<Fetch> fetchNewestVersion(Completion completion) override;

private:
    QUrl m_file;
    DownloadLimits m_limits;
    std::filesystem::path m_authorities;
    std::shared_ptr<DownloadThreads> m_threads;
};
