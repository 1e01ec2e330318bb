// SPDX-License-Identifier: MIT
#pragma once

class QString;
class QWidget;

/// Sets the name that a screen reader says. An unchanged name is not reported, so that what is redrawn each minute
/// stays silent.
void setSpokenName(QWidget& widget, const QString& name);

/// The same for the description that follows the name.
void setSpokenDescription(QWidget& widget, const QString& description);
