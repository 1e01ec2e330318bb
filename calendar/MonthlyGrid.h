// SPDX-License-Identifier: MIT
#pragma once

#include "calendar/CellGrid.h"
#include "print/MonthPage.h"

class DayNumber;
class NoteField;
class QLabel;

/// The month of the monthly page: the weekday headers, and day number and note of each cell, tagged as MonthGrid.h
/// says. The rows that the month needs share the height.
class MonthlyGrid : public CellGrid {
    Q_OBJECT

public:
    explicit MonthlyGrid(QWidget* parent = nullptr);

    QLabel& header(int column) const;
    DayNumber& dayNumber(int cell) const;
    NoteField& noteField(int cell) const;

    /// What the grid shows, without a title.
    MonthPage page() const;

    /// Tells the grid that its cells were filled anew.
    void daysDidChange();

    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    bool isBlank(int cell) const;
    int headerHeight() const;
    int dayHeight() const;
    QRect cellRect(int row, int column) const;
    void placeCells();

    int m_rows = 1; ///< that hold a day
};
