// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>
#include <Qt>

/// The direction in which `line` is written: that of its first letter, `fallback` when it has none.
Qt::LayoutDirection writingDirection(QStringView line, Qt::LayoutDirection fallback);
