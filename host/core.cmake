# What the reminder agent and the program share, and what of them is pure.
target_sources(velumora-core PRIVATE
    host/agent/AutostartEntry.cpp
    host/agent/AutostartEntry.h
    host/agent/NotificationRequest.h
    host/agent/NotificationRequestFormat.cpp
    host/agent/NotificationRequestFormat.h
    host/agent/NotificationText.cpp
    host/agent/NotificationText.h
    host/agent/ReminderList.cpp
    host/agent/ReminderList.h
    host/agent/StateFolder.cpp
    host/agent/StateFolder.h
    host/agent/TriggerMoment.cpp
    host/agent/TriggerMoment.h
)
