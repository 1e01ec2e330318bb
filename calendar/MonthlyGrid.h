// SPDX-License-Identifier: MIT
#pragma once

#include "calendar/CellGrid.h"
#include "print/MonthPage.h"

class DayNumber;
class NoteField;
class QLabel;

/// The month on the monthly page: the weekday headers, and the day number and note of each cell, with the tags of
/// MonthGrid.h. The rows that the month needs share the height.
class MonthlyGrid : public CellGrid {
    Q_OBJECT

public:
    explicit MonthlyGrid(QWidget* parent = nullptr);

    QLabel& header(int column) const;
    DayNumber& dayNumber(int cell) const;
    NoteField& noteField(int cell) const;

    /// What the grid shows, without a title.
    MonthPage page() const;

    /// Must be called after the cells were filled.
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

    int m_rows = 1; ///< rows that have a day
};
