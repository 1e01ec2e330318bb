// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"

void AppDelegate::setMonthlyViewThreeCharDayNames(bool, QWidget&) {}

void AppDelegate::setMonthlyViewDayNumbers(bool, QWidget&, const std::optional<Table>&) {}

void AppDelegate::deleteMonthlyPrintFile() {}
