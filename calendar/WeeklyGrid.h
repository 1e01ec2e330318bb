// SPDX-License-Identifier: MIT
#pragma once

#include "calendar/CellGrid.h"

/// The seven days of the weekly page: the header, day number and note of each, with the tags of MonthGrid.h. A header
/// is a field whose placeholder is the name of the weekday.
class WeeklyGrid : public CellGrid {
    Q_OBJECT

public:
    explicit WeeklyGrid(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};
