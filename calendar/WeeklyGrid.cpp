// SPDX-License-Identifier: MIT
#include "calendar/WeeklyGrid.h"

#include "calendar/DayNumber.h"
#include "calendar/NoteField.h"
#include "dates/MonthGrid.h"
#include "look/NamedColor.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QPainter>

namespace {

constexpr int edge = 8;
constexpr int gap = 16; ///< between two columns, with the line in its middle

} // namespace

WeeklyGrid::WeeklyGrid(QWidget* parent) : CellGrid(parent)
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(edge, edge, edge, edge);
    grid->setHorizontalSpacing(gap);
    grid->setVerticalSpacing(4);
    grid->setRowStretch(2, 1);
    for (int column = 0; column < MonthGrid::DaysPerWeek; ++column) {
        auto* header = new QLineEdit(this);
        header->setProperty("columnHeader", true);
        header->setReadOnly(true);
        header->setFrame(false);
        header->setFocusPolicy(Qt::NoFocus);
        header->setAlignment(Qt::AlignHCenter);
        setTag(*header, MonthGrid::weeklyHeaderTag(column));
        grid->addWidget(header, 0, column);

        auto* day = new DayNumber(this);
        day->setAlignment(Qt::AlignCenter);
        setTag(*day, MonthGrid::weeklyDayTag(column));
        grid->addWidget(day, 1, column);

        auto* note = new NoteField(this);
        setTag(*note, MonthGrid::weeklyNoteTag(column));
        grid->addWidget(note, 2, column);
        grid->setColumnStretch(column, 1);
        grid->setColumnMinimumWidth(column, note->minimumSizeHint().width());
    }
}

void WeeklyGrid::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(namedColor(u"SeparatorColor", palette()));
    for (int column = 1; column < MonthGrid::DaysPerWeek; ++column) {
        const QRect header = viewWithTag(MonthGrid::weeklyHeaderTag(column))->geometry();
        const int x = isRightToLeft() ? header.right() + gap / 2 : header.left() - gap / 2;
        painter.drawLine(x, edge, x, height() - edge);
    }
}
