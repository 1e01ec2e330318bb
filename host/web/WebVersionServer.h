// SPDX-License-Identifier: MIT
#pragma once

#include "host/VersionServer.h"
#include "host/web/Download.h"

#include <QUrl>

#include <chrono>
#include <filesystem>
#include <memory>

class DownloadThreads;

/// The developers' web server, which has the newest version in the file "/vm/Velumora_version.txt".
class WebVersionServer : public VersionServer {
public:
    static constexpr std::size_t longestReply = 65'536; ///< bytes
    static constexpr DownloadLimits usualLimits{
        .time = std::chrono::seconds(15), .file = longestReply, .received = 4 * longestReply};

    /// `server` consists of the scheme, the host and, unless it is the usual one, the port. A fetch ends within
    /// `limits`, whatever the server does. `authorities` is as for `download`.
    explicit WebVersionServer(QUrl server, const DownloadLimits& limits = usualLimits,
                              std::filesystem::path authorities = {});

    /// Waits briefly for the threads of abandoned fetches.
    ~WebVersionServer() override;

    /// The whole file decoded as UTF-8, with its blanks, line ends and byte order mark. nullopt when there is no such
    /// file, when it is not UTF-8 or too long, and when it did not arrive completely in time.
    [[nodiscard]] std::unique_ptr<Fetch> fetchNewestVersion(Completion completion) override;

private:
    QUrl m_file;
    DownloadLimits m_limits;
    std::filesystem::path m_authorities;
    std::shared_ptr<DownloadThreads> m_threads;
};
