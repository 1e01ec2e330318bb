// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>
#include <memory>
#include <optional>

/// Knows the newest version of the program.
class VersionServer {
public:
    /// A question that is on its way. It is given up when this goes, and its completion not called any more.
    class Fetch {
    public:
        Fetch() = default;
        Fetch(const Fetch&) = delete;
        Fetch& operator=(const Fetch&) = delete;
        virtual ~Fetch() = default;
    };

    /// The newest version exactly as the server tells it, nullopt when it could not be had.
    using Completion = std::function<void(const std::optional<QString>& version)>;

    VersionServer() = default;
    VersionServer(const VersionServer&) = delete;
    VersionServer& operator=(const VersionServer&) = delete;
    virtual ~VersionServer() = default;

    /// Asks for the newest version; nothing waits. `completion` is called once, within a bounded time, on the main
    /// thread and never before this has returned; the fetch may go in it. The server outlives its fetches.
    [[nodiscard]] virtual std::unique_ptr<Fetch> fetchNewestVersion(Completion completion) = 0;
};
