// SPDX-License-Identifier: MIT
#include "calendar/DayButton.h"

#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

namespace day_button_test {
namespace {

/// How many pixels of a day with a note have exactly the colour of its mark.
int pixelsOfMark(const QString& title, QSize size)
{
    DayButton day(nullptr);
    day.setTitle(title);
    day.setState(DayButton::On);
    day.resize(size);
    constexpr int scale = 4;
    QImage picture(size * scale, QImage::Format_RGB32);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::white);
    day.render(&picture);
    const QRgb mark = day.palette().color(QPalette::Link).rgb();
    int found = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            found += picture.pixel(x, y) == mark ? 1 : 0;
        }
    }
    return found;
}

TEST(DayButton, TheMarkOfANoteIsClearOfTheDigitsInEverySize)
{
    const QSize smallest = DayButton(nullptr).minimumSizeHint();
    for (int more = 0; more <= 20; more += 2) {
        const QSize size = smallest + QSize(more, more);
        const int whole = pixelsOfMark(QString(), size);
        EXPECT_GT(whole, 100) << more;
        EXPECT_EQ(pixelsOfMark(QStringLiteral("28"), size), whole) << more;
    }
}

} // namespace
} // namespace day_button_test
