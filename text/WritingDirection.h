// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>
#include <Qt>

/// The direction of the first letter of `line`; `fallback` when it has no letter with a direction.
Qt::LayoutDirection writingDirection(QStringView line, Qt::LayoutDirection fallback);
