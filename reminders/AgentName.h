// SPDX-License-Identifier: MIT
#pragma once

/// The reminder agent's name: on the session bus, of its interface there, and of its entry in the autostart folder.
inline constexpr char agentName[] = "app.velumora.ReminderAgent1";
