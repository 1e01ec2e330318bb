// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"

void AppDelegate::setWeeklyViewThreeCharDayNames(bool, QWidget&) {}

void AppDelegate::setWeeklyViewDayNumbers(bool, QWidget&, const std::optional<Table>&) {}
