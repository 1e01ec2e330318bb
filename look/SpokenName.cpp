// SPDX-License-Identifier: MIT
#include "look/SpokenName.h"

#include <QWidget>

void setSpokenName(QWidget& widget, const QString& name)
{
    if (widget.accessibleName() != name) {
        widget.setAccessibleName(name);
    }
}

void setSpokenDescription(QWidget& widget, const QString& description)
{
    if (widget.accessibleDescription() != description) {
        widget.setAccessibleDescription(description);
    }
}
