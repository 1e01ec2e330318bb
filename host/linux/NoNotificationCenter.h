// SPDX-License-Identifier: MIT
#pragma once

#include "host/UserNotificationCenter.h"

/// For a desktop without a notification service: nothing is ever delivered.
class NoNotificationCenter : public UserNotificationCenter {
public:
    void setDelegate(UserNotificationCenterDelegate&) override {}
};
