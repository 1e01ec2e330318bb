// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"

#include <QWidget>

/// A date picker that nobody sees: it holds the date that a page shows. It takes no room and no keys. Any instant fits,
/// as no toolkit's picker would hold every month that the calendar can reach.
class HiddenDatePicker : public QWidget {
    Q_OBJECT

public:
    explicit HiddenDatePicker(QWidget* parent = nullptr) : QWidget(parent) { hide(); }

    Date dateValue() const { return m_dateValue; }
    void setDateValue(Date date) { m_dateValue = date; }

private:
    Date m_dateValue;
};
