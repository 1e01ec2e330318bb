target_sources(velumora-app PRIVATE
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
    host/linux/OpenUriPortal.cpp
    host/linux/OpenUriPortal.h
    host/linux/Opener.cpp
    host/linux/Opener.h
    host/linux/PrivateSettings.cpp
    host/linux/PrivateSettings.h
    host/linux/SettingsUserDefaults.cpp
    host/linux/SettingsUserDefaults.h
    host/linux/SingleInstance.cpp
    host/linux/SingleInstance.h
    host/linux/TemporaryFolder.cpp
    host/linux/TemporaryFolder.h
    host/linux/TerminationSignals.cpp
    host/linux/TerminationSignals.h
    host/linux/UnexpectedExit.cpp
    host/linux/UnexpectedExit.h
    host/linux/WindowActivation.cpp
    host/linux/WindowActivation.h
)

add_executable(velumora-reminder-agent
    host/agent/DueTimer.cpp
    host/agent/DueTimer.h
    host/agent/NotificationDaemon.cpp
    host/agent/NotificationDaemon.h
    host/agent/ReminderAgent.cpp
    host/agent/ReminderAgent.h
    host/agent/main.cpp
)
target_link_libraries(velumora-reminder-agent PRIVATE velumora-core velumora-host-bus)
add_dependencies(velumora velumora-reminder-agent)
set_source_files_properties(host/agent/main.cpp PROPERTIES COMPILE_DEFINITIONS "VELUMORA_VERSION=\"${PROJECT_VERSION}\"")
