// SPDX-License-Identifier: MIT
// Nothing in the window is cut off, in any language and at any size of the texts, at the default size of the window, at
// the least one and on a small screen. Large texts on a small screen are scrolled to.
#include "calendar/NoteField.h"
#include "look/FittingScrollArea.h"
#include "look/ReadingText.h"
#include "look/TableMetrics.h"
#include "support/AppFixture.h"
#include "support/FontGuard.h"
#include "support/Screenshot.h"
#include "support/TranslationGuard.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QScrollBar>
#include <QTabBar>

#include <algorithm>

namespace {

constexpr QSize least(900, 640);
constexpr QSize usual(1080, 760);
constexpr QSize onSmallScreen(1016, 530); ///< on a screen of 1024 x 600 with a panel and a title bar
constexpr int usualText = 13;
constexpr int largeText = 20; ///< 150 %

struct Look {
    const char* name;
    const char* locale;
    const char* language;
    Qt::LayoutDirection direction;
    QSize size;
    int textSize = usualText;
    const char* font = "";
};

std::ostream& operator<<(std::ostream& out, const Look& look)
{
    return out << look.name;
}

std::string nameOf(const QWidget& widget, const QString& text)
{
    return QStringLiteral("%1 \"%2\"").arg(widget.objectName(), text).toStdString();
}

/// The room that a text of that style needs in that direction, ampersands of keys not counted.
QSize textSize(const QWidget& widget, const QString& text)
{
    return widget.fontMetrics().size(Qt::TextShowMnemonic, text);
}

/// What `widget` scrolls with, null where it is always in sight.
const QWidget* scrolledContent(const QWidget& widget)
{
    for (const QWidget* each = widget.parentWidget(); each; each = each->parentWidget()) {
        const auto* area = each->parentWidget()
                               ? qobject_cast<const FittingScrollArea*>(each->parentWidget()->parentWidget())
                               : nullptr;
        if (area && area->widget() == each) {
            return each;
        }
    }
    return nullptr;
}

void expectInsideWindow(const QWidget& widget, const std::string& name)
{
    const QWidget* content = scrolledContent(widget);
    const QWidget& window = content ? *content : *widget.window();
    EXPECT_TRUE(window.rect().contains(QRect(widget.mapTo(&window, QPoint()), widget.size()))) << name;
    EXPECT_TRUE(widget.parentWidget()->rect().contains(widget.geometry())) << name << " leaves what holds it";
}

void expectTextFits(const QLabel& label)
{
    const std::string name = nameOf(label, label.text());
    expectInsideWindow(label, name);
    if (label.wordWrap()) {
        EXPECT_GE(label.height(), label.heightForWidth(label.width())) << name;
        return;
    }
    EXPECT_GE(label.contentsRect().width(), textSize(label, label.text()).width()) << name;
    EXPECT_GE(label.contentsRect().height(), textSize(label, label.text()).height()) << name;
}

void expectTextFits(const QAbstractButton& button)
{
    const std::string name = nameOf(button, button.text());
    expectInsideWindow(button, name);
    EXPECT_GE(button.width(), textSize(button, button.text()).width()) << name;
    const QSize needed = button.minimumSizeHint().boundedTo(button.maximumSize()); // its edges and padding counted
    EXPECT_GE(button.width(), needed.width()) << name;
    EXPECT_GE(button.height(), needed.height()) << name;
}

void expectPlaceholderFits(const QLineEdit& field)
{
    expectInsideWindow(field, nameOf(field, field.placeholderText()));
    constexpr int padding = 2 * 8 + 2 * 1; // of the style rules, both sides
    EXPECT_GE(field.width() - padding, textSize(field, field.placeholderText()).width()) << nameOf(field, {});
}

/// Two widgets side by side in the same place never lie on each other.
void expectNoOverlap(const QWidget& place)
{
    QList<const QWidget*> shown;
    for (const QWidget* child : place.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (child->isVisible() && !child->isWindow() &&
            (qobject_cast<const QLabel*>(child) || qobject_cast<const QAbstractButton*>(child))) {
            for (const QWidget* other : shown) {
                EXPECT_FALSE(child->geometry().intersects(other->geometry()))
                    << child->objectName().toStdString() << " lies on " << other->objectName().toStdString();
            }
            shown.append(child);
        }
    }
}

/// A field of a day without a note has nothing to scroll to, however low it is.
void expectNoEmptyDayScrolls(const QWidget& page)
{
    for (const NoteField* field : page.findChildren<NoteField*>()) {
        if (field->isVisible() && field->note().isEmpty()) {
            EXPECT_FALSE(field->isCut()) << field->property("tag").toInt();
        }
    }
}

void expectEverythingFits(const QWidget& page)
{
    for (const QWidget* widget : page.findChildren<QWidget*>()) {
        if (!widget->isVisible() || widget->window() != page.window()) {
            continue;
        }
        expectNoOverlap(*widget);
        if (const auto* label = qobject_cast<const QLabel*>(widget); label && !label->text().isEmpty()) {
            expectTextFits(*label);
        } else if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
            expectTextFits(*button);
        } else if (const auto* field = qobject_cast<const QLineEdit*>(widget)) {
            expectPlaceholderFits(*field);
        }
    }
}

class WindowFitTest : public AppFixture, public ::testing::WithParamInterface<Look> {
protected:
    WindowFitTest()
        : m_locale(GetParam().locale, {GetParam().language}), m_texts({GetParam().language}),
          m_font(GetParam().textSize, QString::fromLatin1(GetParam().font))
    {
        QGuiApplication::setLayoutDirection(GetParam().direction);
        putNotes({note(2024, 3, 15, "Zahnarzt um 9 Uhr"), note(2024, 12, 24, "Weihnachten"),
                  note(2024, 9, 25, "Wanderung"), note(2024, 3, 1, "Miete überweisen"),
                  note(2024, 3, 12,
                       "Chorprobe: das Stück von letzter Woche, alle Strophen. Noten mitbringen und einen "
                       "Kuchen für die Pause; danach Besprechung der Sommerreise bei Familie Hoffmann."),
                  note(2024, 3, 31, "Uhren umstellen")});
        putEvents({event(1984, 5, 17, "Geburtstag von Mia"), event(1963, 4, 4, "Geburtstag von Oma")});
    }

    void startShown()
    {
        start();
        FakeLocationManager& location = *host.locationServices.manager;
        location.delegate->didUpdateLocations(location, {{{40.71, -174.01}, Location::Source::ZoneCity}});
        window->resize(GetParam().size);
        window->show();
        runQueued();
        runQueued(); // what scrolls is laid out once its place is
    }

    /// Pictures of the other pages, for people to look at.
    void savePages(const QString& variant, int scale)
    {
        for (const QString& name : {QStringLiteral("week"), QStringLiteral("month")}) {
            ui->myTabView->setCurrentIndex(ui->myTabView->currentIndex() + 1);
            runQueued();
            EXPECT_FALSE(saveScreenshot(grabbed(*window, scale), name + u'-' + variant).isEmpty());
        }
        ui->myTabView->setCurrentIndex(0);
    }

private:
    LocaleGuard m_locale;
    TranslationGuard m_texts;
    FontGuard m_font;
};

TEST_P(WindowFitTest, TheWindowIsAsSmallAsItsTextsAllowAndNoSmaller)
{
    startShown();
    EXPECT_EQ(window->size(), GetParam().size);
    const QSize needed = window->minimumSizeHint();
    EXPECT_TRUE(needed.width() <= least.width() && needed.height() <= least.height())
        << needed.width() << " x " << needed.height();
    window->resize(1, 1);
    EXPECT_EQ(window->size(), needed);
    runQueued();
    expectEverythingFits(*window);
}

/// Where nobody asked for large texts, nobody needs to scroll.
TEST_P(WindowFitTest, NoPageScrollsButForLargeTexts)
{
    startShown();
    EXPECT_EQ(window->size(), GetParam().size);
    for (int page = 0; page < ui->myTabView->count(); ++page) {
        ui->myTabView->setCurrentIndex(page);
        runQueued();
        const auto& area = *ui->myTabView->currentWidget()->findChild<FittingScrollArea*>();
        if (GetParam().textSize == usualText) {
            EXPECT_EQ(area.verticalScrollBar()->maximum(), 0) << page;
            EXPECT_EQ(area.horizontalScrollBar()->maximum(), 0) << page;
        }
        expectNoEmptyDayScrolls(*window);
        saveScreenshot(grabbed(*window), QString::number(page));
    }
}

TEST_P(WindowFitTest, ASheetLiesWithinTheWindow)
{
    startShown();
    ui->preferencesAction->trigger();
    runQueued();
    auto* preferences = window->findChild<QDialog*>(QStringLiteral("thePrefsSheet"));
    EXPECT_LE(preferences->height(), window->height() - ui->menuBar->height());
    EXPECT_LE(preferences->width(), window->width());
    expectEverythingFits(*preferences);
    saveScreenshot(grabbed(*preferences), QStringLiteral("preferences"));
    preferences->done(0);
    runQueued();
    app->openHolidaySheet();
    runQueued();
    auto* holidays = window->findChild<QDialog*>(QStringLiteral("holidaySheet"));
    ASSERT_TRUE(holidays->isVisible());
    EXPECT_LE(holidays->height(), window->height() - ui->menuBar->height());
    EXPECT_LE(holidays->width(), window->width());
    expectEverythingFits(*holidays);
    saveScreenshot(grabbed(*holidays), QStringLiteral("holidays"));
}

TEST_P(WindowFitTest, NothingIsCutOffInAnyMonth)
{
    startShown();
    for (int month = 0; month < 12; ++month) {
        SCOPED_TRACE(ui->miniCalMonthName->text().toStdString());
        expectEverythingFits(*window);
        ui->forwardOneMonthOnMiniCal->click();
        ui->noteEntryNextNotesBtn->click();
        runQueued();
    }
}

TEST_P(WindowFitTest, WeekAndMonthShowTheirWholeTextsInEveryMonth)
{
    startShown();
    ui->weeklyViewPageAction->trigger();
    for (int week = 0; week < 53; ++week) {
        ui->weeklyViewForwardWeek->click();
        runQueued();
        expectEverythingFits(*window);
    }
    ui->monthlyViewPageAction->trigger();
    for (int month = 0; month < 12; ++month) {
        ui->monthlyViewForwardBtn->click();
        runQueued();
        expectEverythingFits(*window);
    }
}

TEST_P(WindowFitTest, TabsAndMenusHaveRoom)
{
    startShown();
    const QTabBar& tabs = *ui->myTabView->tabBar();
    for (int tab = 0; tab < tabs.count(); ++tab) {
        EXPECT_GT(tabs.tabRect(tab).width(), textSize(tabs, tabs.tabText(tab)).width())
            << tabs.tabText(tab).toStdString();
        EXPECT_TRUE(window->rect().contains(tabs.tabRect(tab).translated(tabs.mapTo(window.get(), QPoint()))));
    }
    for (QAction* menu : ui->menuBar->actions()) {
        EXPECT_TRUE(ui->menuBar->rect().contains(ui->menuBar->actionGeometry(menu))) << menu->text().toStdString();
    }
}

TEST_P(WindowFitTest, NoDateAndNoElapsedTimeOfAYearIsElided)
{
    Table notes;
    Table events;
    for (int dayOfYear = 1; dayOfYear <= 366; ++dayOfYear) { // the calendar rolls the days of January over
        notes.append(note(2028, 1, dayOfYear, "every day"));
        events.append(event(1928, 1, dayOfYear, "every day"));
    }
    putNotes(notes);
    putEvents(events);
    startShown();
    for (const TableView* table : {ui->notesTableView, ui->importantDatesTableView}) {
        ASSERT_EQ(table->numberOfRows(), 366);
        for (const TableColumn& column : table->tableColumns()) {
            const QFontMetrics metrics(cellFont());
            for (int row = 0; row < table->numberOfRows(); ++row) {
                const QString text = app->viewForTableColumn(*table, column, row).text;
                EXPECT_GE(column.width - 2 * cellPadding, metrics.horizontalAdvance(text)) << text.toStdString();
            }
        }
    }
}

TEST_P(WindowFitTest, AnAlertShowsItsWholeText)
{
    startShown();
    ui->notesTableView->selectRow(0);
    runQueued();
    ui->deleteRowFromListBtn->click();
    ASSERT_TRUE(alert());
    EXPECT_LE(alert()->width(), window->width());
    expectEverythingFits(*alert());
    for (const ReadingText* text : alert()->findChildren<ReadingText*>()) {
        EXPECT_FALSE(text->isCut()) << text->toPlainText().toStdString();
    }
    saveScreenshot(grabbed(*alert()));
}

TEST_P(WindowFitTest, ThePreferencesShowTheirWholeTexts)
{
    startShown();
    ui->preferencesAction->trigger();
    runQueued();
    const auto* sheet = window->findChild<QDialog*>(QStringLiteral("thePrefsSheet"));
    ASSERT_TRUE(sheet && sheet->isVisible());
    expectEverythingFits(*sheet);
}

TEST_P(WindowFitTest, IsPaintedInBothAppearancesAtBothScales)
{
    for (const Appearance appearance : {Appearance::Light, Appearance::Dark}) {
        const AppearanceGuard colors(appearance);
        startShown();
        for (const int scale : {1, 2}) {
            const QImage picture = grabbed(*window, scale);
            const QString variant = QStringLiteral("%1-%2x").arg(
                appearance == Appearance::Dark ? QStringLiteral("dark") : QStringLiteral("light"),
                QString::number(scale));
            EXPECT_FALSE(saveScreenshot(picture, variant).isEmpty());
            savePages(variant, scale);
            EXPECT_EQ(picture.size(), GetParam().size * scale);
            const QPoint emptyCorner = QPoint(picture.width() - 4, picture.height() - 4);
            EXPECT_EQ(picture.pixelColor(GetParam().direction == Qt::LeftToRight ? emptyCorner
                                                                                 : QPoint(4, picture.height() - 4)),
                      calmPalette(appearance).color(QPalette::Window));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    Looks, WindowFitTest,
    ::testing::Values(
        Look{"englishLeast", "en_US", "en-US", Qt::LeftToRight, least},
        Look{"englishUsual", "en_US", "en-US", Qt::LeftToRight, usual},
        Look{"englishMirroredLeast", "en_US", "en-US", Qt::RightToLeft, least},
        Look{"germanLeast", "de_DE", "de-DE", Qt::LeftToRight, least},
        Look{"germanUsual", "de_DE", "de-DE", Qt::LeftToRight, usual},
        Look{"arabicDatesLeast", "ar_EG", "ar-EG", Qt::RightToLeft, least},
        Look{"englishSmallScreen", "en_US", "en-US", Qt::LeftToRight, onSmallScreen},
        Look{"germanSmallScreen", "de_DE", "de-DE", Qt::LeftToRight, onSmallScreen},
        Look{"germanNotoSmallScreen", "de_DE", "de-DE", Qt::LeftToRight, onSmallScreen, 13, "Noto Sans"},
        Look{"germanLargeSmallScreen", "de_DE", "de-DE", Qt::LeftToRight, onSmallScreen, largeText},
        Look{"germanLargeNotoSmallScreen", "de_DE", "de-DE", Qt::LeftToRight, onSmallScreen, largeText, "Noto Sans"},
        Look{"germanLargeCantarellUsual", "de_DE", "de-DE", Qt::LeftToRight, usual, largeText, "Cantarell"}),
    [](const auto& look) { return std::string(look.param.name); });

} // namespace
