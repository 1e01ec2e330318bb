// SPDX-License-Identifier: MIT
// What the three pages and the printed month paint, looked at as pixels.
#include "app/PreferenceKeys.h"
#include "calendar/DayNumber.h"
#include "calendar/MiniCalendarGrid.h"
#include "calendar/MonthlyGrid.h"
#include "calendar/NoteField.h"
#include "calendar/WeeklyGrid.h"
#include "support/AppFixture.h"
#include "support/Pixels.h"
#include "support/Screenshot.h"

#include <QProcess>

namespace {

/// The clock of the fixture stands at 15 March 2024, a Friday; March begins on a Friday. Weeks begin on Sunday here.
class PaintedDaysTest : public AppFixture {
protected:
    PaintedDaysTest()
    {
        host.userDefaults.stored.insert(PreferenceKeys::weekStart, 1);
        host.temporaryFolder = home.path().toStdString();
    }

    QString redInMiniCalendar()
    {
        QStringList days;
        for (DayButton* day : ui->miniCalendarGrid->dayButtons()) {
            days.append(!placeOf(grabbed(*day), isRed).isEmpty() ? day->title() : QString());
        }
        return joined(days);
    }

    QString redInWeek()
    {
        QStringList days;
        for (int tag = 41; tag <= 59; tag += 3) {
            auto* day = ui->weeklyGrid->viewWithTag<DayNumber>(tag);
            days.append(!placeOf(grabbed(*day), isRed).isEmpty() ? day->text() : QString());
        }
        return joined(days);
    }

    QString redInMonth()
    {
        QStringList days;
        for (int cell = 1; cell <= 37; ++cell) {
            DayNumber& day = ui->monthlyGrid->dayNumber(cell);
            days.append(!placeOf(grabbed(day), isRed).isEmpty() ? day.text() : QString());
        }
        return joined(days);
    }

    /// The printed sheet, a hundred dots an inch.
    QImage printed()
    {
        ui->monthlyViewPrintBtn->click();
        QProcess painter;
        const QString picture = home.filePath(QStringLiteral("sheet"));
        painter.start(QStringLiteral("pdftoppm"),
                      {QStringLiteral("-singlefile"), QStringLiteral("-png"), QStringLiteral("-r"),
                       QStringLiteral("100"), home.filePath(QStringLiteral("MyPrintedView.pdf")), picture});
        EXPECT_TRUE(painter.waitForFinished());
        return QImage(picture + QStringLiteral(".png"));
    }

    /// The column of seven and the row of `rows` in which the middle of `place` lies on a sheet whose days stand
    /// between half an inch from its edges and 102 points from its top; -1 of an empty place.
    static std::pair<int, int> cellAt(const QRect& place, const QImage& sheet, int rows)
    {
        constexpr double dots = 100.0 / 72;
        const QPointF inside = QRectF(place).center() / dots - QPointF(36, 102);
        const QSizeF grid = QSizeF(sheet.size()) / dots - QSizeF(72, 138);
        return place.isEmpty() ? std::pair(-1, -1)
                               : std::pair(static_cast<int>(7 * inside.x() / grid.width()),
                                           static_cast<int>(rows * inside.y() / grid.height()));
    }

    static QString joined(QStringList days)
    {
        days.removeAll(QString());
        return days.join(u' ');
    }

    void openWeek() { ui->weeklyViewPageAction->trigger(); }
    void openMonth() { ui->monthlyViewPageAction->trigger(); }
};

TEST_F(PaintedDaysTest, TodayIsRedInTheMiniCalendarAndTheSameDayOfAnotherMonthIsNot)
{
    putNotes({note(2024, 3, 14, "yesterday"), note(2024, 4, 15, "a month on")});
    start();
    EXPECT_EQ(redInMiniCalendar(), QStringLiteral("15"));
    ui->forwardOneMonthOnMiniCal->click();
    EXPECT_EQ(redInMiniCalendar(), QString());
    ui->backOneMonthOnMiniCal->click();
    ui->backOneYearOnMiniCal->click();
    EXPECT_EQ(redInMiniCalendar(), QString());
}

TEST_F(PaintedDaysTest, TodayIsRedInTheWeekAndTheSameDayOfAnotherMonthIsNot)
{
    start();
    openWeek();
    EXPECT_EQ(redInWeek(), QStringLiteral("15"));
    for (int week = 0; week < 5; ++week) {
        ui->weeklyViewForwardWeek->click(); // to the week of 15 April
    }
    EXPECT_EQ(ui->weeklyGrid->viewWithTag<DayNumber>(44)->text(), QStringLiteral("15"));
    EXPECT_EQ(redInWeek(), QString());
}

TEST_F(PaintedDaysTest, TheSameDayOfAnotherMonthIsNotRedInAWeekOfTwoMonths)
{
    clock.set(utcDate(2024, 4, 1, 12));
    start();
    openWeek(); // 31 March to 6 April
    EXPECT_EQ(redInWeek(), QStringLiteral("1"));
    clock.set(utcDate(2024, 4, 30, 12));
    start();
    openWeek(); // 28 April to 4 May
    EXPECT_EQ(redInWeek(), QStringLiteral("30"));
    ui->weeklyViewStartingDate->setText(QStringLiteral("March 17, 2024"));
    ui->weeklyViewForwardWeek->click(); // 24 to 30 March
    EXPECT_EQ(redInWeek(), QString());
}

TEST_F(PaintedDaysTest, TodayIsRedInTheMonthAndTheSameDayOfAnotherMonthIsNot)
{
    start();
    openMonth();
    EXPECT_EQ(redInMonth(), QStringLiteral("15"));
    ui->monthlyViewForwardBtn->click();
    EXPECT_EQ(redInMonth(), QString());
}

TEST_F(PaintedDaysTest, TodayIsRedOnPaperAndTheSameDayOfAnotherMonthIsNot)
{
    start();
    openMonth();
    const QImage march = printed();
    EXPECT_EQ(cellAt(placeOf(march, isRed), march, 6), std::pair(5, 2));
    clock.set(utcDate(2024, 3, 15, 23)); // midnight in Berlin, before the minute's tick
    const QImage after = printed();
    EXPECT_EQ(cellAt(placeOf(after, isRed), after, 6), std::pair(6, 2));
    ui->monthlyViewForwardBtn->click();
    EXPECT_TRUE(placeOf(printed(), isRed).isEmpty());
}

TEST_F(PaintedDaysTest, ABlankButtonPaintsNothingWhateverHappensToIt)
{
    start();
    DayButton& blank = *ui->miniCalendarGrid->dayButtons().first(); // March begins in the sixth cell
    ASSERT_EQ(blank.title(), QString());
    const QColor ground = grabbed(blank).pixelColor(0, 0);
    const auto isPainted = [ground](const QColor& color) { return color != ground; };
    EXPECT_TRUE(placeOf(grabbed(blank), isPainted).isEmpty());
    QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
    QApplication::sendEvent(&blank, &enter);
    blank.setDown(true);
    EXPECT_TRUE(placeOf(grabbed(blank), isPainted).isEmpty());
}

TEST_F(PaintedDaysTest, ADayUnderThePointerIsPaintedSo)
{
    start();
    DayButton& day = dayButton(20);
    const QImage before = grabbed(day);
    QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
    QApplication::sendEvent(&day, &enter);
    EXPECT_NE(grabbed(day), before);
    const QPoint besideTheDigits(day.width() / 2, day.height() / 2 - 13);
    EXPECT_LT(grabbed(day).pixelColor(besideTheDigits).lightness(), before.pixelColor(besideTheDigits).lightness());
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&day, &leave);
    EXPECT_EQ(grabbed(day), before);
}

TEST_F(PaintedDaysTest, TheMonthHasCellsWithLinesBetweenThem)
{
    start();
    openMonth();
    const QImage page = grabbed(*ui->monthlyGrid);
    const QRect day = ui->monthlyGrid->dayNumber(20).geometry();   // a Friday
    const QRect blank = ui->monthlyGrid->dayNumber(36).geometry(); // the Sunday at the end
    const QColor paper = page.pixelColor(day.center());
    EXPECT_EQ(paper, QColor(Qt::white));
    EXPECT_NE(page.pixelColor(blank.center() + QPoint(page.width() / 7, 0)), paper) << "a cell without a day";
    const auto linesAlong = [&](QPoint from, QPoint step, int pixels) {
        int lines = 0;
        for (int pixel = 0; pixel < pixels; ++pixel) {
            lines += page.pixelColor(from + pixel * step) != paper ? 1 : 0;
        }
        return lines;
    };
    const QPoint inCell(day.right() - 2, day.bottom() + 2); // right of the number, above the note
    EXPECT_EQ(linesAlong(inCell, {1, 0}, page.width() / 7), 1);
    EXPECT_EQ(linesAlong(inCell, {0, 1}, (page.height() - 32) / 6), 1);
}

TEST_F(PaintedDaysTest, ThePaperHasCellsWithLinesBetweenThem)
{
    start();
    openMonth();
    const QImage sheet = printed(); // of 11 by 8.5 inches
    const double column = 10.0 / 7 * 100;
    const double row = (612 - 138) / 6.0 / 72 * 100;
    const auto place = [&](double columns, double rows) {
        return QPoint(qRound(50 + columns * column), qRound(102 / 0.72 + rows * row));
    };
    EXPECT_EQ(sheet.pixelColor(place(5.5, 1.5)), QColor(Qt::white));
    EXPECT_NE(sheet.pixelColor(place(1.5, 0.5)), QColor(Qt::white)) << "a cell without a day";
    const auto darkest = [&](QPoint middle, QPoint step) {
        int lightness = 255;
        for (int pixel = -2; pixel <= 2; ++pixel) {
            lightness = std::min(lightness, sheet.pixelColor(middle + pixel * step).lightness());
        }
        return lightness;
    };
    EXPECT_LT(darkest(place(3, 2.5), {1, 0}), 245);
    EXPECT_LT(darkest(place(3.5, 3), {0, 1}), 245);
    EXPECT_LT(darkest(place(7, 2.5), {1, 0}), 245);
}

} // namespace
