// SPDX-License-Identifier: MIT
#pragma once

#include "dates/MonthGrid.h"
#include "dates/PaperSize.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <array>

/// The content of the monthly page, for printing.
struct MonthPage {
    struct Cell {
        QString day; ///< empty in a blank cell
        QString note;
        bool isToday = false;
    };

    QString title;
    QStringList weekdays; ///< the headers of the columns, in order
    std::array<Cell, MonthGrid::LastCell> cells;
    Qt::LayoutDirection direction = Qt::LeftToRight;

    const Cell& cell(int number) const { return cells.at(static_cast<std::size_t>(number - MonthGrid::FirstCell)); }
    Cell& cell(int number) { return cells.at(static_cast<std::size_t>(number - MonthGrid::FirstCell)); }

    /// The number of grid rows that have a day; at least one.
    int rowCount() const;
};

/// A PDF document of one landscape sheet of `paper`: vector graphics and selectable, searchable text, in the light
/// appearance whatever the window shows. A note that does not fit its cell ends in "…".
QByteArray pdfOf(const MonthPage& page, PaperSize paper);
