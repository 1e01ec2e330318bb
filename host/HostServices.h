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

/// All that the delegate asks of the desktop. Every service outlives the delegate.
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

    /// The user's application-support folder, in which the data folder lies; nullopt when there is none.
    std::optional<std::filesystem::path> applicationSupport;

    /// A folder for files that are soon gone, which nobody but the user can look into; nullopt when there is none.
    std::optional<std::filesystem::path> temporaryFolder;

    /// The program's own folder for what is to outlast it but is no document; nullopt when there is none.
    std::optional<std::filesystem::path> stateFolder;
};
