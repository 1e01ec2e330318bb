// SPDX-License-Identifier: MIT
#include "host/linux/LinuxHost.h"

#include "host/linux/TemporaryFolder.h"
#include "reminders/StateFolder.h"
#include "store/Files.h"

#include <QDir>
#include <QGuiApplication>
#include <QStandardPaths>

namespace {

std::optional<std::filesystem::path> applicationSupportFolder()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (folder.isEmpty()) {
        return std::nullopt;
    }
    if (makePrivateFolder(folder.toStdString())) { // a new account has none yet
        QDir().mkpath(folder);                     // whether a power cut takes it or not; a save tells what is wrong
    }
    return folder.toStdString();
}

std::optional<std::filesystem::path> temporaryFolder()
{
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
    QDir().mkpath(cache); // a new account has none yet
    return privateTemporaryFolder(qgetenv("XDG_RUNTIME_DIR").toStdString(), cache.toStdString());
}

} // namespace

LinuxHost::LinuxHost(const HostedProgram& program)
    : openPanel(program.presentPanel),
      locationServices({.systemBus = QDBusConnection::systemBus,
                        .desktopId = QGuiApplication::desktopFileName(),
                        .enteredCoordinate = [this, place = program.enteredPlace] { return place(userDefaults); },
                        .zoneDatabase = "/usr/share/zoneinfo"}),
      versionServer(program.versionServer),
      stateFolder(::stateFolder(qgetenv("XDG_STATE_HOME").toStdString(), QDir::homePath().toStdString()))
{
}

HostServices LinuxHost::services()
{
    HostServices services = servicesOf(*this);
    services.applicationSupport = applicationSupportFolder();
    services.temporaryFolder = temporaryFolder();
    services.stateFolder = stateFolder;
    return services;
}
