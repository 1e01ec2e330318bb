// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>

class Bundle;
class ClockMonitor;
class GlobalDefaults;
class LocationServices;
class OpenPanel;
class ProcessInfo;
class ShutdownMonitor;
class UserDefaults;
class UserNotificationCenter;
class VersionServer;
class Workspace;

/// Everything that the application delegate asks of the desktop. Every service outlives the delegate.
struct HostServices {
    Bundle& bundle;
    ClockMonitor& clockMonitor;
    GlobalDefaults& globalDefaults;
    LocationServices& locationServices;
    OpenPanel& openPanel;
    ProcessInfo& processInfo;
    ShutdownMonitor& shutdownMonitor;
    UserDefaults& userDefaults;
    UserNotificationCenter& notificationCenter;
    VersionServer& versionServer;
    Workspace& workspace;

    /// The user's application-support folder, which contains the data folder; nullopt when there is none.
    std::optional<std::filesystem::path> applicationSupport = std::nullopt;

    /// A folder for short-lived files that only the user can access; nullopt when there is none.
    std::optional<std::filesystem::path> temporaryFolder = std::nullopt;

    /// The program's own folder for what should outlast a run but is not a document; nullopt when there is none.
    std::optional<std::filesystem::path> stateFolder = std::nullopt;
};

/// The services of `host`, which has each as a member of the same name; no folders. So this file alone lists them, and
/// a host that lacks one does not compile.
template <typename Host> HostServices servicesOf(Host& host)
{
    return {.bundle = host.bundle,
            .clockMonitor = host.clockMonitor,
            .globalDefaults = host.globalDefaults,
            .locationServices = host.locationServices,
            .openPanel = host.openPanel,
            .processInfo = host.processInfo,
            .shutdownMonitor = host.shutdownMonitor,
            .userDefaults = host.userDefaults,
            .notificationCenter = host.notificationCenter,
            .versionServer = host.versionServer,
            .workspace = host.workspace};
}
