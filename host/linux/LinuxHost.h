// SPDX-License-Identifier: MIT
#pragma once

#include "host/HostServices.h"
#include "host/bus/BusNotificationCenter.h"
#include "host/bus/DesktopLocationServices.h"
#include "host/bus/LogindShutdownMonitor.h"
#include "host/linux/DesktopGlobalDefaults.h"
#include "host/linux/DesktopWorkspace.h"
#include "host/linux/FolderOpenPanel.h"
#include "host/linux/InstalledBundle.h"
#include "host/linux/KernelClockMonitor.h"
#include "host/linux/LinuxProcessInfo.h"
#include "host/linux/SettingsUserDefaults.h"
#include "host/web/WebVersionServer.h"

#include <QUrl>

#include <filesystem>
#include <functional>
#include <optional>

/// What a service needs of the program that it serves.
struct HostedProgram {
    FolderOpenPanel::Presenter presentPanel;

    /// The place that the user entered, as these defaults have it; nullopt when none was.
    std::function<std::optional<Coordinate>(const UserDefaults&)> enteredPlace;

    QUrl versionServer; ///< as a WebVersionServer takes it
};

/// All services of a freedesktop.org desktop. To be made when the application has its names and before it is given
/// colours of its own; as early as that, since the desktop is asked for its settings at once and answers while the
/// window is made. Nothing else is asked of anybody before it is needed.
struct LinuxHost {
    explicit LinuxHost(const HostedProgram& program);

    /// The services with their folders, which are made where they are not there.
    HostServices services();

    DesktopGlobalDefaults globalDefaults; // first: it asks the desktop
    InstalledBundle bundle;
    KernelClockMonitor clockMonitor;
    FolderOpenPanel openPanel;
    LinuxProcessInfo processInfo;
    LogindShutdownMonitor shutdownMonitor;
    SettingsUserDefaults userDefaults;
    BusNotificationCenter notificationCenter;
    DesktopLocationServices locationServices; // asks the user defaults
    WebVersionServer versionServer;
    DesktopWorkspace workspace;

    const std::filesystem::path stateFolder; ///< need not be there
};
