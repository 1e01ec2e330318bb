// SPDX-License-Identifier: MIT
#include "calendar/DockIcon.h"
#include "support/Contrast.h"
#include "support/Screenshot.h"

#include <QPainter>
#include <gtest/gtest.h>

#include <cmath>

namespace {

const QString leaf = QStringLiteral(":/images/blank.svg");
const QList<int> sides{16, 22, 24, 32, 48, 64, 128, 256, 512};
const QList<int> days{1, 8, 11, 20, 31};

QImage picture(DockIcon&& icon, int side)
{
    return icon.pixmap({side, side}, QIcon::Normal, QIcon::Off).toImage();
}

/// What the day covers: the picture without its leaf.
QImage digits(int day, int side)
{
    return picture(DockIcon(QString(), day), side);
}

/// The smallest rectangle that holds what is drawn, faint edges aside.
QRect inkBox(const QImage& image)
{
    QRect box;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y).alphaF() > 0.3F) {
                box |= QRect(x, y, 1, 1);
            }
        }
    }
    return box;
}

/// The leaf itself, by way of a day that is drawn on top of another.
QImage emptyLeaf(int side)
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const QImage one = picture(DockIcon(leaf, 1), side);
    const QImage other = picture(DockIcon(leaf, 8), side);
    const QImage inkOfOne = digits(1, side);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const bool covered = inkOfOne.pixelColor(x, y).alpha() > 0;
            image.setPixelColor(x, y, covered ? other.pixelColor(x, y) : one.pixelColor(x, y));
        }
    }
    return image;
}

class DockIconTest : public ::testing::TestWithParam<int> {
protected:
    const int side = GetParam();
};

INSTANTIATE_TEST_SUITE_P(Sides, DockIconTest, ::testing::ValuesIn(sides), ::testing::PrintToStringParamName());

TEST_P(DockIconTest, TheDayIsCentred)
{
    // The text is centred with the room that its digits carry along, of which a 1 has more on one side.
    const double tolerance = 1 + 0.04 * side;
    for (const int day : days) {
        const QRect box = inkBox(digits(day, side));
        EXPECT_NEAR(box.left() + box.width() / 2.0, side / 2.0, tolerance) << day;
    }
}

TEST_P(DockIconTest, TheDayStandsInTheBoxThatIsPushedDown)
{
    // Worked by hand: the box begins at side / 2.7 = 0.370 side from the top; the font is half a side high, of which
    // the digits' feet stand 0.905 below the top and their heads about 0.72 higher, at 0.823 and 0.463 of the side.
    const double tolerance = 1.5 + 0.02 * side; // whole pixels; round digits reach out a little
    for (const int day : days) {
        const QRect box = inkBox(digits(day, side));
        EXPECT_NEAR(box.bottom() + 1, 0.823 * side, tolerance) << day;
        EXPECT_NEAR(box.top(), 0.463 * side, tolerance) << day;
    }
}

TEST_P(DockIconTest, TheDayStandsOnTheLightPartOfTheLeafAndIsRead)
{
    const QImage ground = emptyLeaf(side);
    for (const int day : days) {
        const QImage ink = digits(day, side);
        const QRect box = inkBox(ink);
        const QImage whole = picture(DockIcon(leaf, day), side);
        double strongest = 1;
        for (int y = box.top(); y <= box.bottom(); ++y) {
            for (int x = box.left(); x <= box.right(); ++x) {
                if (ink.pixelColor(x, y).alpha() == 0) {
                    ASSERT_EQ(whole.pixelColor(x, y).alpha(), 255) << day << " at " << x << ',' << y;
                    ASSERT_GT(whole.pixelColor(x, y).lightnessF(), 0.9) << day << " at " << x << ',' << y;
                }
                strongest = std::max(strongest, contrast(whole.pixelColor(x, y), ground.pixelColor(x, y)));
            }
        }
        EXPECT_GE(strongest, 7) << day;
    }
}

TEST_P(DockIconTest, AOneOfOneDigitIsNotPadded)
{
    EXPECT_LT(inkBox(digits(1, side)).width(), 0.75 * inkBox(digits(11, side)).width());
}

TEST_P(DockIconTest, EveryDayHasAPictureOfItsOwn)
{
    QList<QImage> pictures;
    for (int day = 1; day <= 31; ++day) {
        const QImage drawn = picture(DockIcon(leaf, day), side);
        EXPECT_EQ(drawn.size(), QSize(side, side));
        EXPECT_FALSE(pictures.contains(drawn)) << day;
        pictures.append(drawn);
    }
}

TEST(DockIconSizes, AreThoseThatDesktopsAskFor)
{
    const QIcon icon(new DockIcon(leaf, 31));
    QList<QSize> expected;
    for (const int side : sides) {
        expected.append({side, side});
    }
    EXPECT_EQ(icon.availableSizes(), expected);
    EXPECT_EQ(icon.pixmap(96).size(), QSize(96, 96)); // any other as well
}

TEST(DockIconSizes, InARectangleThatIsNotSquareTheIconIsInTheMiddle)
{
    QImage wide(100, 40, QImage::Format_ARGB32_Premultiplied);
    wide.fill(Qt::transparent);
    QPainter painter(&wide);
    DockIcon(leaf, 7).paint(&painter, wide.rect(), QIcon::Normal, QIcon::Off);
    painter.end();
    EXPECT_EQ(wide.copy(30, 0, 40, 40), picture(DockIcon(leaf, 7), 40));
}

TEST(DockIconLeaf, IsNotMissedWhereItCannotBeRead)
{
    const QImage drawn = picture(DockIcon(QStringLiteral(":/no-such-picture.svg"), 7), 64);
    EXPECT_FALSE(inkBox(drawn).isEmpty());
    EXPECT_EQ(drawn.pixelColor(32, 10).alpha(), 0);
}

/// A picture for people to look at: every size on a light and on a dark desktop.
TEST(DockIconLeaf, IsPaintedOnLightAndDarkDesktops)
{
    for (const bool dark : {false, true}) {
        QImage contactSheet(1240, 600, QImage::Format_RGB32);
        contactSheet.fill(dark ? QColor(0x1e, 0x1e, 0x20) : QColor(0xf5, 0xf5, 0xf7));
        QPainter painter(&contactSheet);
        int y = 16;
        for (const int day : {1, 31}) {
            int x = 16;
            for (const int side : sides.first(sides.size() - 1)) {
                painter.drawImage(x, y, picture(DockIcon(leaf, day), side));
                x += side + 16;
            }
            y += 280;
        }
        painter.drawImage(QRect(720, 44, 512, 512), picture(DockIcon(leaf, 31), 512));
        painter.end();
        EXPECT_FALSE(saveScreenshot(contactSheet, dark ? QStringLiteral("dark") : QStringLiteral("light")).isEmpty());
    }
}

} // namespace
