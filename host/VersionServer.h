// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

/// Knows the newest version of the program.
class VersionServer {
public:
    VersionServer() = default;
    VersionServer(const VersionServer&) = delete;
    VersionServer& operator=(const VersionServer&) = delete;
    virtual ~VersionServer() = default;

    /// The newest version exactly as the server tells it, nullopt when it could not be had. Returns within a bounded
    /// time; until then no key and no click reaches the program.
    virtual std::optional<QString> newestVersion() = 0;
};
