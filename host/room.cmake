
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
