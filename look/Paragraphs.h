// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>
#include <QTextOption>

/// The layout of `paragraph`: wrapped, in the direction of its first letter (`fallback` when it has none), and aligned
/// to the edge where that direction begins.
QTextOption optionOf(QStringView paragraph, Qt::LayoutDirection fallback);
