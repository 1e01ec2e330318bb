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

/// What the services need from the program that they serve.
struct HostedProgram {
    FolderOpenPanel::Presenter presentPanel;

    /// The place that the user entered, read from these defaults; nullopt when there is none.
    std::function<std::optional<Coordinate>(const UserDefaults&)> enteredPlace;

    QUrl versionServer; ///< as a WebVersionServer takes it
};

/// All services of a freedesktop.org desktop. Create it once the application has its names, before it is given colours:
/// the desktop is asked for its settings at once and answers while the window is being made. Nothing else is requested
/// before it is needed.
struct LinuxHost {
    explicit LinuxHost(const HostedProgram& program);

    /// The services with their folders. Those for the data folder and for temporary files are made if they are missing.
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
