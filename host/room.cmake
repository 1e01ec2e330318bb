target_sources(velumora-app PRIVATE
    host/Bundle.h
    host/ClockMonitor.h
    host/GlobalDefaults.h
    host/HostServices.h
    host/LocationManager.h
    host/OpenPanel.h
    host/ProcessInfo.h
    host/UserDefaults.h
    host/Workspace.h
    host/linux/DesktopWorkspace.cpp
    host/linux/DesktopWorkspace.h
    host/linux/DesktopGlobalDefaults.cpp
    host/linux/DesktopGlobalDefaults.h
    host/linux/FolderOpenPanel.cpp
    host/linux/FolderOpenPanel.h
    host/linux/InstalledBundle.cpp
    host/linux/InstalledBundle.h
    host/linux/KernelClockMonitor.cpp
    host/linux/KernelClockMonitor.h
    host/linux/LinuxProcessInfo.h
    host/linux/LocaleEnvironment.cpp
    host/linux/LocaleEnvironment.h
    host/linux/NoLocationManager.h
    host/linux/NoNotificationCenter.h
    host/linux/SettingsUserDefaults.cpp
    host/linux/SettingsUserDefaults.h
    host/linux/TerminationSignals.cpp
    host/linux/TerminationSignals.h
)

add_executable(velumora-reminder-agent
    host/agent/DueTimer.cpp
    host/agent/DueTimer.h
    host/agent/NotificationDaemon.cpp
    host/agent/NotificationDaemon.h
    host/agent/ReminderAgent.cpp
    host/agent/ReminderAgent.h
    host/agent/main.cpp
    host/linux/ApplicationMessages.cpp
    host/linux/ApplicationMessages.h
    host/linux/StartedService.cpp
    host/linux/StartedService.h
)
target_link_libraries(velumora-reminder-agent PRIVATE velumora-core Qt6::DBus)
add_dependencies(velumora velumora-reminder-agent)
