// SPDX-License-Identifier: MIT
#include "calendar/MonthlyGrid.h"

#include "calendar/DayNumber.h"
#include "calendar/NoteField.h"
#include "dates/MonthGrid.h"
#include "look/NamedColor.h"

#include <QEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>

#include <algorithm>

namespace {

constexpr int cellPadding = 6;
constexpr int leastCellWidth = 72;
constexpr int headerPadding = 8; ///< above and below the name of a weekday
constexpr int dayPadding = 5;
constexpr int noteEdges = 6; ///< needed in addition to a line to show a note
constexpr qreal cornerRadius = 10;
constexpr int mostRows = MonthGrid::rowOfCell(MonthGrid::LastCell) + 1;

/// The height of a line in the font that the style rules give the widget.
int lineHeight(const QWidget& widget)
{
    widget.ensurePolished();
    return widget.fontMetrics().height();
}

} // namespace

MonthlyGrid::MonthlyGrid(QWidget* parent) : CellGrid(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    for (int column = 0; column < MonthGrid::DaysPerWeek; ++column) {
        auto* header = new QLabel(this);
        header->setAlignment(Qt::AlignCenter);
        header->setTextFormat(Qt::PlainText);
        header->setProperty("secondary", true);
        setTag(*header, MonthGrid::monthlyHeaderTag(column));
    }
    for (int cell = MonthGrid::FirstCell; cell <= MonthGrid::LastCell; ++cell) {
        auto* day = new DayNumber(this);
        day->setAlignment(Qt::AlignLeading | Qt::AlignVCenter);
        setTag(*day, MonthGrid::monthlyDayTag(cell));

        auto* note = new NoteField(this);
        setTag(*note, MonthGrid::monthlyNoteTag(cell));
    }
}

QLabel& MonthlyGrid::header(int column) const
{
    return *viewWithTag<QLabel>(MonthGrid::monthlyHeaderTag(column));
}

DayNumber& MonthlyGrid::dayNumber(int cell) const
{
    return *viewWithTag<DayNumber>(MonthGrid::monthlyDayTag(cell));
}

NoteField& MonthlyGrid::noteField(int cell) const
{
    return *viewWithTag<NoteField>(MonthGrid::monthlyNoteTag(cell));
}

MonthPage MonthlyGrid::page() const
{
    MonthPage page;
    page.direction = layoutDirection();
    for (int column = 0; column < MonthGrid::DaysPerWeek; ++column) {
        page.weekdays.append(header(column).text());
    }
    for (int cell = MonthGrid::FirstCell; cell <= MonthGrid::LastCell; ++cell) {
        page.cell(cell) = {
            .day = dayNumber(cell).text(), .note = noteField(cell).note(), .isToday = dayNumber(cell).isToday()};
    }
    return page;
}

void MonthlyGrid::daysDidChange()
{
    m_rows = page().rowCount();
    for (int cell = MonthGrid::FirstCell; cell <= MonthGrid::LastCell; ++cell) {
        dayNumber(cell).setVisible(!isBlank(cell));
        noteField(cell).setVisible(!isBlank(cell));
    }
    placeCells();
    update();
}

QSize MonthlyGrid::minimumSizeHint() const
{
    const int oneLine = noteField(MonthGrid::FirstCell).lineHeight() + noteEdges;
    const int leastCellHeight = dayHeight() + oneLine + cellPadding;
    return {leastCellWidth * MonthGrid::DaysPerWeek, headerHeight() + leastCellHeight * mostRows};
}

int MonthlyGrid::headerHeight() const
{
    return lineHeight(header(0)) + 2 * headerPadding;
}

int MonthlyGrid::dayHeight() const
{
    return lineHeight(dayNumber(MonthGrid::FirstCell)) + dayPadding;
}

bool MonthlyGrid::isBlank(int cell) const
{
    return dayNumber(cell).text().isEmpty();
}

QRect MonthlyGrid::cellRect(int row, int column) const
{
    const auto left = [this](int each) { return width() * each / MonthGrid::DaysPerWeek; };
    const auto top = [this](int each) { return headerHeight() + (height() - headerHeight()) * each / m_rows; };
    const QRect cell(QPoint(left(column), top(row)), QPoint(left(column + 1) - 1, top(row + 1) - 1));
    return QStyle::visualRect(layoutDirection(), rect(), cell);
}

void MonthlyGrid::placeCells()
{
    for (int column = 0; column < MonthGrid::DaysPerWeek; ++column) {
        QRect place = cellRect(0, column);
        place.setTop(0);
        place.setHeight(headerHeight());
        header(column).setGeometry(place);
    }
    for (int cell = MonthGrid::FirstCell; cell <= MonthGrid::LastCell; ++cell) {
        if (!isBlank(cell)) {
            const QRect place = cellRect(MonthGrid::rowOfCell(cell), MonthGrid::columnOfCell(cell));
            const QRect inside = place.adjusted(cellPadding, cellPadding / 2, -cellPadding, -cellPadding / 2);
            dayNumber(cell).setGeometry(QRect(inside.topLeft(), QSize(inside.width(), dayHeight())));
            noteField(cell).setGeometry(inside.adjusted(-cellPadding / 2, dayHeight(), cellPadding / 2, 0));
        }
    }
}

void MonthlyGrid::resizeEvent(QResizeEvent* event)
{
    CellGrid::resizeEvent(event);
    placeCells();
}

void MonthlyGrid::changeEvent(QEvent* event)
{
    CellGrid::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange || event->type() == QEvent::FontChange ||
        event->type() == QEvent::StyleChange) {
        updateGeometry();
        placeCells();
    }
}

void MonthlyGrid::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath card;
    card.addRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);
    painter.setClipPath(card);
    painter.fillRect(rect(), palette().window());

    painter.setRenderHint(QPainter::Antialiasing, false);
    const QColor line = namedColor(u"SeparatorColor", palette());
    for (int cell = MonthGrid::FirstCell; cell <= MonthGrid::LastCell; ++cell) {
        if (isBlank(cell)) {
            continue;
        }
        const QRect place = cellRect(MonthGrid::rowOfCell(cell), MonthGrid::columnOfCell(cell));
        painter.fillRect(place, palette().base());
        painter.setPen(line);
        painter.drawRect(place.adjusted(-1, -1, -1, -1)); // edges are shared with the neighbours
    }

    painter.setClipping(false);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawPath(card);
}
