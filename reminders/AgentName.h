// SPDX-License-Identifier: MIT
#pragma once

/// The reminder agent's name on the session bus, which is also that of its interface there and of its autostart entry.
inline constexpr char agentName[] = "app.velumora.ReminderAgent1";
