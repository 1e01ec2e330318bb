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
    std::optional<std::filesystem::path> applicationSupport;

    /// A folder for short-lived files that only the user can access; nullopt when there is none.
    std::optional<std::filesystem::path> temporaryFolder;

    /// The program's own folder for what should outlast a run but is not a document; nullopt when there is none.
    std::optional<std::filesystem::path> stateFolder;
};
