// SPDX-License-Identifier: MIT
#pragma once

#include "host/VersionServer.h"

#include <QUrl>

#include <chrono>

/// The maker's web server, which holds the newest version in the file "/vm/Velumora_version.txt".
class WebVersionServer : public VersionServer {
public:
    static constexpr std::chrono::milliseconds longestWait = std::chrono::seconds(15);
    static constexpr qint64 longestReply = 65'536; ///< bytes

    /// `server` is the server's scheme, host and, where it is not the usual one, port. A fetch ends after `limit` at
    /// the latest.
    explicit WebVersionServer(QUrl server, std::chrono::milliseconds limit = longestWait);

    /// The whole file, decoded as UTF-8, with its blanks, line ends and byte order mark if it has any. nullopt when
    /// there is no such file, when it is not UTF-8 or longer than `longestReply`, and when it did not come whole in
    /// time. Redirections are followed, except from an encrypted connection to one that is not.
    std::optional<QString> newestVersion() override;

private:
    QUrl m_file;
    std::chrono::milliseconds m_limit;
};
