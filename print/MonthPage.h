// SPDX-License-Identifier: MIT
#pragma once

#include "dates/MonthGrid.h"
#include "dates/PaperSize.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <array>

/// What the monthly page shows, to be put on paper.
struct MonthPage {
    struct Cell {
        QString day; ///< empty in a blank cell
        QString note;
        bool isToday = false;
    };

    QString title;
    QStringList weekdays; ///< above the columns, in their order
    std::array<Cell, MonthGrid::LastCell> cells;
    Qt::LayoutDirection direction = Qt::LeftToRight;

    const Cell& cell(int number) const { return cells.at(static_cast<std::size_t>(number - MonthGrid::FirstCell)); }
    Cell& cell(int number) { return cells.at(static_cast<std::size_t>(number - MonthGrid::FirstCell)); }

    /// The rows of the grid that hold a day; at least one.
    int rowCount() const;
};

/// The page as a PDF document of one sheet of `paper`, lying: vectors, and texts that can be selected and searched, in
/// the light appearance whatever the window shows. A note that its cell does not hold ends in "…".
QByteArray pdfOf(const MonthPage& page, PaperSize paper);
