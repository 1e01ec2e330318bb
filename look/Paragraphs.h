// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>
#include <QTextOption>

/// How `paragraph` is set: wrapped, in the direction of its first letter (`fallback` when it has none), and from the
/// edge at which that direction begins.
QTextOption optionOf(QStringView paragraph, Qt::LayoutDirection fallback);
