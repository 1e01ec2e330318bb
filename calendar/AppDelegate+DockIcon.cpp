// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"

void AppDelegate::drawCurrMonthsDayOnAppIcon() {}
