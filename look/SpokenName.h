// SPDX-License-Identifier: MIT
#pragma once

class QString;
class QWidget;

/// Gives the widget the name that a screen reader says. A name that it has already is no change and is not told: what
/// is drawn anew each minute stays silent.
void setSpokenName(QWidget& widget, const QString& name);

/// The same for the description that follows the name.
void setSpokenDescription(QWidget& widget, const QString& description);
