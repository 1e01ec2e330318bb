// SPDX-License-Identifier: MIT
#include "look/Appearance.h"
#include "look/NamedColor.h"
#include "look/StyleRules.h"
#include "support/AppFixture.h"
#include "support/Contrast.h"
#include "support/Screenshot.h"

#include <QApplication>
#include <QCheckBox>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

const std::optional<QString> darkStyle = QStringLiteral("Dark");

class AppearanceTest : public AppFixture {
protected:
    AppearanceTest()
    {
        putNotes({note(2024, 3, 14, "yesterday"), note(2024, 3, 15, "today"), note(2024, 3, 16, "tomorrow")});
        putEvents({event(1990, 5, 4, "Ada")});
    }

    /// A start in that appearance, with a selected note and an open editor.
    void startIn(Appearance appearance, int page = 0)
    {
        QApplication::setPalette(calmPalette(appearance));
        host.globalDefaults.interfaceStyle = appearance == Appearance::Dark ? darkStyle : std::nullopt;
        start();
        window->resize(1080, 760);
        ui->notesTableView->selectRow(0);
        ui->notesTableView->editColumn(1, 2);
        ui->myTabView->setCurrentIndex(page);
        runQueued();
    }

    QImage picture(QWidget& widget)
    {
        runQueued();
        return grabbed(widget);
    }

    const AppearanceGuard guard{Appearance::Light};
};

class AppearanceOfAPage : public AppearanceTest, public ::testing::WithParamInterface<int> {};

/// Neither what stood in the window before the change nor what was coloured then keeps a trace of it.
TEST_P(AppearanceOfAPage, ChangedWhileItShowsLooksAsIfStartedSo)
{
    startIn(Appearance::Dark, GetParam());
    const QImage startedDark = picture(*window);
    startIn(Appearance::Light, GetParam());
    const QImage startedLight = picture(*window);
    ASSERT_NE(startedLight, startedDark);

    host.globalDefaults.setInterfaceStyle(darkStyle);
    const QImage changedToDark = picture(*window);
    saveScreenshot(changedToDark, QStringLiteral("dark"));
    EXPECT_EQ(changedToDark, startedDark);
    EXPECT_EQ(QApplication::palette(), calmPalette(Appearance::Dark));
    host.globalDefaults.setInterfaceStyle(std::nullopt);
    const QImage changedToLight = picture(*window);
    saveScreenshot(changedToLight, QStringLiteral("light"));
    EXPECT_EQ(changedToLight, startedLight);
    EXPECT_EQ(QApplication::palette(), calmPalette(Appearance::Light));
}

INSTANTIATE_TEST_SUITE_P(Pages, AppearanceOfAPage, ::testing::Values(0, 1, 2));

TEST_F(AppearanceTest, AnEngravedRuleStandsBetweenTheTwoLists)
{
    for (const Appearance appearance : {Appearance::Light, Appearance::Dark}) {
        startIn(appearance);
        const QImage shown = picture(*window);
        const auto placeOf = [this](const QWidget& widget) {
            return QRect(widget.mapTo(window.get(), QPoint(0, 0)), widget.size());
        };
        const QRect rule = placeOf(*ui->importantDatesRule);
        EXPECT_GT(rule.top(), placeOf(*ui->noteEntryListSaveBtn).bottom());
        EXPECT_LT(rule.bottom(), placeOf(*ui->importantDatesHeadline).top());
        EXPECT_EQ(rule.height(), 3);
        const QRect list = placeOf(*ui->importantDatesTableView);
        for (const int x : {list.left(), list.right()}) {
            EXPECT_EQ(shown.pixelColor(x, rule.top()), namedColor(u"EngravingColor", window->palette()));
            EXPECT_EQ(shown.pixelColor(x, rule.bottom()), namedColor(u"EngravingLipColor", window->palette()));
        }
    }
}

/// The greatest contrast of two neighbours on a line across the top edge of a control.
double edgeContrast(const QImage& picture, const QWidget& control, const QWidget& window)
{
    const QPoint middle = control.mapTo(&window, QPoint(control.width() / 2, 0));
    double greatest = 0;
    for (int y = middle.y() - 2; y < middle.y() + 3; ++y) {
        greatest =
            std::max(greatest, contrast(picture.pixelColor(middle.x(), y), picture.pixelColor(middle.x(), y + 1)));
    }
    return greatest;
}

/// The style rules give the list a background, which must not be taken for the one ground of a strong look.
TEST_F(AppearanceTest, TheLinesBetweenRowsArePaleUnlessTheLookIsStrong)
{
    putNotes({note(2024, 3, 1, "one"), note(2024, 3, 2, "two")});
    start();
    constexpr int lastOfFirstRow = 16; // of its 17 points
    const auto line = [this] { return grabbed(*ui->notesTableView->viewport()).pixelColor(2, lastOfFirstRow); };
    for (const Appearance appearance : {Appearance::Light, Appearance::Dark}) {
        applyPalette(calmPalette(appearance), *window);
        EXPECT_EQ(line(), appearance == Appearance::Dark ? QColor(0x3a, 0x3a, 0x3d) : QColor(0xe4, 0xe4, 0xe6));
        applyPalette(strongPalette(appearance), *window);
        EXPECT_EQ(line(), QApplication::palette().color(QPalette::Text));
    }
}

TEST_F(AppearanceTest, HighContrastIsFollowedWhileTheProgramRuns)
{
    startIn(Appearance::Light);
    const QImage calm = picture(*window);
    for (const std::optional<QString>& style : {std::optional<QString>(), darkStyle}) {
        host.globalDefaults.setInterfaceStyle(style);
        host.globalDefaults.setHighContrast(true);
        const QImage strong = picture(*window);
        saveScreenshot(strong, style ? QStringLiteral("dark") : QStringLiteral("light"));
        EXPECT_EQ(QApplication::palette(), strongPalette(style ? Appearance::Dark : Appearance::Light));
        for (const QWidget* edged : {static_cast<QWidget*>(ui->todayBtn), static_cast<QWidget*>(ui->filterField)}) {
            EXPECT_GE(edgeContrast(strong, *edged, *window), 15) << edged->objectName().toStdString();
            EXPECT_LT(edgeContrast(calm, *edged, *window), 3);
        }
    }
    host.globalDefaults.setInterfaceStyle(std::nullopt);
    host.globalDefaults.setHighContrast(false);
    EXPECT_EQ(picture(*window), calm);
}

TEST_F(AppearanceTest, InHighContrastTheFocusIsAThickFrame)
{
    startIn(Appearance::Light);
    host.globalDefaults.setHighContrast(true);
    const auto strongPixels = [this](QWidget& control) { // of the left edge, inwards
        const QImage shown = picture(control);
        int count = 0;
        for (int x = 0; x < 5; ++x) {
            const bool isGround = contrast(shown.pixelColor(x, shown.height() / 2), Qt::white) < 3;
            count += isGround ? 0 : 1;
        }
        return count;
    };
    for (QWidget* control : {static_cast<QWidget*>(ui->filterField), static_cast<QWidget*>(ui->todayBtn)}) {
        window->setFocus();
        const QSize size = control->size();
        EXPECT_EQ(strongPixels(*control), 1) << control->objectName().toStdString();
        window->activateWindow();
        control->setFocus();
        EXPECT_GE(strongPixels(*control), 3) << control->objectName().toStdString();
        EXPECT_EQ(control->size(), size) << "nothing moves";
    }
}

TEST_F(AppearanceTest, AnOpenSheetChangesWithTheWindow)
{
    const auto openSheet = [this](Appearance appearance) -> QWidget& {
        startIn(appearance);
        app->openClosePrefsSheet();
        runQueued();
        return *window->findChild<QWidget*>(QStringLiteral("thePrefsSheet"));
    };
    const QImage startedDark = picture(openSheet(Appearance::Dark));
    QWidget& sheet = openSheet(Appearance::Light);
    ASSERT_TRUE(sheet.isVisible());
    const QImage startedLight = picture(sheet);
    host.globalDefaults.setInterfaceStyle(darkStyle);
    EXPECT_EQ(picture(sheet), startedDark);
    saveScreenshot(picture(sheet));
    host.globalDefaults.setInterfaceStyle(std::nullopt);
    EXPECT_EQ(picture(sheet), startedLight);
}

TEST_F(AppearanceTest, TheOpenHolidaySheetChangesWithTheWindow)
{
    const auto openSheet = [this](Appearance appearance) -> QWidget& {
        startIn(appearance);
        ui->importantDatesUSHolidays->click();
        runQueued();
        return *window->findChild<QWidget*>(QStringLiteral("holidaySheet"));
    };
    const QImage startedDark = picture(openSheet(Appearance::Dark));
    QWidget& sheet = openSheet(Appearance::Light);
    ASSERT_TRUE(sheet.isVisible());
    const QImage startedLight = picture(sheet);
    host.globalDefaults.setInterfaceStyle(darkStyle);
    EXPECT_EQ(picture(sheet), startedDark);
    host.globalDefaults.setInterfaceStyle(std::nullopt);
    EXPECT_EQ(picture(sheet), startedLight);
}

TEST_F(AppearanceTest, ADateThatIsBeingChosenChangesWithTheWindow)
{
    const auto editDate = [this](Appearance appearance) {
        startIn(appearance);
        ui->importantDatesTableView->editColumn(0, 0);
        ASSERT_TRUE(ui->importantDatesTableView->viewAt(0, 0));
    };
    editDate(Appearance::Dark);
    const QImage startedDark = picture(*window);
    editDate(Appearance::Light);
    const QImage startedLight = picture(*window);
    host.globalDefaults.setInterfaceStyle(darkStyle);
    EXPECT_EQ(picture(*window), startedDark);
    saveScreenshot(picture(*window));
    host.globalDefaults.setInterfaceStyle(std::nullopt);
    EXPECT_EQ(picture(*window), startedLight);
}

TEST_F(AppearanceTest, AnOpenAlertChangesWithTheWindow)
{
    const auto openAlert = [this](Appearance appearance) -> QWidget& {
        startIn(appearance);
        AppDelegate::doSheetAlert(*window, QStringLiteral("body"), QStringLiteral("headline"), QStringLiteral("OK"),
                                  QString());
        return *alert();
    };
    const QImage startedDark = picture(openAlert(Appearance::Dark));
    QWidget& sheet = openAlert(Appearance::Light);
    const QImage startedLight = picture(sheet);
    host.globalDefaults.setInterfaceStyle(darkStyle);
    EXPECT_EQ(picture(sheet), startedDark);
    saveScreenshot(picture(sheet));
    host.globalDefaults.setInterfaceStyle(std::nullopt);
    EXPECT_EQ(picture(sheet), startedLight);
}

TEST_F(AppearanceTest, ChosenAndUnchosenAreToldApartOnEveryGround)
{
    QWidget sheet;
    QVBoxLayout column(&sheet);
    QRadioButton radio;
    QCheckBox box;
    for (QAbstractButton* button : {static_cast<QAbstractButton*>(&radio), static_cast<QAbstractButton*>(&box)}) {
        button->setText(QStringLiteral("Choice"));
        button->setFocusPolicy(Qt::NoFocus);
        column.addWidget(button);
    }
    radio.setAutoExclusive(false);
    for (const Appearance appearance : {Appearance::Light, Appearance::Dark}) {
        applyPalette(calmPalette(appearance), sheet);
        const QColor ground = calmPalette(appearance).color(QPalette::Window);
        for (QAbstractButton* button : {static_cast<QAbstractButton*>(&radio), static_cast<QAbstractButton*>(&box)}) {
            button->setChecked(false);
            const QImage unchosen = picture(sheet);
            button->setChecked(true);
            const QImage chosen = picture(sheet);
            saveScreenshot(chosen, QString::fromLatin1(button->metaObject()->className()) +
                                       (appearance == Appearance::Dark ? QStringLiteral("-dark") : QString()));
            button->setChecked(false);
            const int middle = button->geometry().center().y();
            double edge = 0;
            double mark = 0;
            for (int x = button->x(); x < button->x() + 16; ++x) { // the indicator
                edge = std::max(edge, contrast(unchosen.pixelColor(x, middle), ground));
                mark = std::max(mark, contrast(chosen.pixelColor(x, middle), unchosen.pixelColor(x, middle)));
            }
            EXPECT_GE(edge, 3) << button->metaObject()->className();
            EXPECT_GE(mark, 3) << button->metaObject()->className();
        }
    }
}

TEST_F(AppearanceTest, AnEditGoesOnThroughTheChange)
{
    startIn(Appearance::Light);
    ASSERT_EQ(ui->notesTableView->editedRow(), 2);
    host.globalDefaults.setInterfaceStyle(darkStyle);
    runQueued();
    EXPECT_EQ(ui->notesTableView->editedRow(), 2);
    EXPECT_EQ(ui->notesTableView->selectedRow(), 2);
}

TEST_F(AppearanceTest, TodayIsInTheRedOfTheAppearanceInCalendarAndList)
{
    startIn(Appearance::Light);
    const auto colorOfTodaysRow = [this] {
        const TableView& table = *ui->notesTableView;
        return app->viewForTableColumn(table, table.tableColumns().front(), 1).textColor;
    };
    for (const std::optional<QString>& style : {darkStyle, std::optional<QString>(), darkStyle}) {
        host.globalDefaults.setInterfaceStyle(style);
        const QColor red = namedColor(u"SystemRedColor", calmPalette(style ? Appearance::Dark : Appearance::Light));
        EXPECT_EQ(dayButton(15).titleColor(), red);
        EXPECT_EQ(colorOfTodaysRow(), red);
    }
}

TEST_F(AppearanceTest, AChangeBeforeTheWindowIsFilledIsHarmless)
{
    make();
    host.globalDefaults.setInterfaceStyle(darkStyle);
    EXPECT_EQ(QApplication::palette(), calmPalette(Appearance::Dark));
}

TEST_F(AppearanceTest, IsDarkWhereTheStyleSaysSoAndTheReleaseHasIt)
{
    struct {
        int major;
        int minor;
        std::optional<QString> style;
        bool dark;
    } const rows[] = {
        {10, 15, QStringLiteral("Dark"), true},
        {10, 15, QStringLiteral("DarkAqua"), true},
        {10, 15, QStringLiteral("VeryDark"), true},
        {10, 15, QStringLiteral("dark"), false},
        {10, 15, QStringLiteral("Light"), false},
        {10, 15, QString(), false},
        {10, 15, std::nullopt, false},
        {10, 14, QStringLiteral("Dark"), true},
        {10, 13, QStringLiteral("Dark"), false},
        {10, 0, QStringLiteral("Dark"), false},
        {9, 15, QStringLiteral("Dark"), false},
        {0, 0, QStringLiteral("Dark"), false},
        {11, 0, QStringLiteral("Dark"), true},
        {11, 0, std::nullopt, false},
        // The minor number is read as a fraction.
        {10, 2, QStringLiteral("Dark"), true},
        {10, 9, QStringLiteral("Dark"), true},
        {10, 1, QStringLiteral("Dark"), false},
        {10, 140, QStringLiteral("Dark"), true},
        {10, 139, QStringLiteral("Dark"), false},
    };
    make();
    for (const auto& row : rows) {
        host.processInfo.version = {.major = row.major, .minor = row.minor};
        host.globalDefaults.interfaceStyle = row.style;
        EXPECT_EQ(app->isDarkMode(), row.dark)
            << row.major << '.' << row.minor << ' ' << row.style.value_or(QStringLiteral("absent")).toStdString();
    }
}

} // namespace
