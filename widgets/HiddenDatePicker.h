// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"

#include <QWidget>

/// An invisible date picker that stores the date that a page shows. It takes no room and no keys. Unlike Qt's pickers
/// it stores any instant, as the calendar can reach any month.
class HiddenDatePicker : public QWidget {
    Q_OBJECT

public:
    explicit HiddenDatePicker(QWidget* parent = nullptr) : QWidget(parent) { hide(); }

    Date dateValue() const { return m_dateValue; }
    void setDateValue(Date date) { m_dateValue = date; }

private:
    Date m_dateValue;
};
