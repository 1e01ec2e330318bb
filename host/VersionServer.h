// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>
#include <memory>
#include <optional>

/// The server that knows the newest version of the program.
class VersionServer {
public:
    /// A request under way. Destroying it abandons the request, and its completion is no longer called.
    class Fetch {
    public:
        Fetch() = default;
        Fetch(const Fetch&) = delete;
        Fetch& operator=(const Fetch&) = delete;
        virtual ~Fetch() = default;
    };

    /// The newest version exactly as the server states it; nullopt when it could not be fetched.
    using Completion = std::function<void(const std::optional<QString>& version)>;

    VersionServer() = default;
    VersionServer(const VersionServer&) = delete;
    VersionServer& operator=(const VersionServer&) = delete;
    virtual ~VersionServer() = default;

    /// Asks for the newest version without waiting. `completion` is called once, within a bounded time, on the main
    /// thread and never before this has returned; it may destroy the fetch. The server must outlive its fetches.
    [[nodiscard]] virtual std::unique_ptr<Fetch> fetchNewestVersion(Completion completion) = 0;
};
