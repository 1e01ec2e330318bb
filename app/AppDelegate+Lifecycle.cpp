// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "app/PreferenceKeys.h"
#include "dates/DateUtilities.h"
#include "host/ProcessInfo.h"
#include "host/UserDefaults.h"
#include "host/UserNotificationCenter.h"
#include "look/AlphaValue.h"
#include "look/FirstPaint.h"
#include "notes/NoteQueries.h"
#include "sheets/PreferencesSheet.h"
#include "store/Record.h"
#include "table/TableView.h"
#include "text/Localized.h"
#include "ui_MainWindow.h"
#include "widgets/SaveButton.h"

#include <QCoreApplication>
#include <unicode/locid.h>

#include <string_view>

namespace {

constexpr int requiredMajor = 10;
constexpr int requiredMinor = 15;
constexpr std::string_view holidayCountry = "US";

bool canRunOn(const ProcessInfo::SystemVersion& version)
{
    return version.major != requiredMajor || version.minor >= requiredMinor;
}

} // namespace

void AppDelegate::applicationWillFinishLaunching()
{
    increaseTVHeaderFontSize(*m_ui.notesTableView);
    increaseTVHeaderFontSize(*m_ui.importantDatesTableView);
    m_host.notificationCenter.setDelegate(*this);
}

bool AppDelegate::doInit()
{
    if (!canRunOn(m_host.processInfo.operatingSystemVersion())) {
        Alert alert;
        alert.setAlertStyle(Alert::Style::Informational);
        alert.setMessageText(filled(localized("Sorry, Velumora requires Mac OS X version %d.%d or later."),
                                    {QString::number(requiredMajor), QString::number(requiredMinor)}));
        alert.addButton(localized("OK"));
        alert.addButton(localized("Go to Velumora web page"));
        if (alert.runModal() == Alert::secondButtonReturn) {
            openProductWebPage([this] { Q_EMIT terminated(); });
        } else {
            Q_EMIT terminated();
        }
        return false;
    }
    m_window.show();
    m_window.raise();
    m_window.activateWindow();
    drawCurrMonthsDayOnAppIcon();
    connect(new FirstPaint(m_window), &FirstPaint::painted, this, &AppDelegate::offerDraft, Qt::QueuedConnection);
    return true;
}

void AppDelegate::applicationDidFinishLaunching()
{
    if (!doInit()) {
        return;
    }
    establishDefaultPrefs();
    const bool sundayFirst = startOnSunday();

    const icu::Locale locale(DateEnvironment::localePair().currentLocale.c_str());
    if (locale.getCountry() == holidayCountry) {
        setAlphaValue(*m_ui.importantDatesUSHolidays, 1);
        buttonEnableDisable(*m_ui.importantDatesUSHolidays, true);
        m_ui.usHolidaysAction->setEnabled(true);
    }

    loadTables();
    formatCopyMiniCalTime();

    const Date today = DateUtilities::today();
    setMiniCalMonthYearDate(today);
    setSingleCharDayNames(sundayFirst, m_window);
    enableMiniCalDatesWithNotes(today, notesTVData, sundayFirst, m_window);

    nameSegments();
    showNotesCount(visibleRowsForTV(*m_ui.notesTableView));

    showPage(Page::MiniCalendar);
    minuteHasChanged();
    m_window.setProperty("UserWantsNotificationsKey", QVariant());
    startLocationManager();

    if (m_host.userDefaults.integerForKey(PreferenceKeys::startList) == 0) {
        showNotesForThisMonthYear(today);
        offerAllNotes();
    } else {
        m_ui.hideShowSegBtn->setLabelForSegment(localized("Hide All"), static_cast<int>(NotesSegment::All));
    }
    if (const std::int64_t row = NoteQueries::indexNearestTo(m_book.rows(ListKind::Notes), today);
        row != DateUtilities::NotFound) {
        m_ui.notesTableView->scrollRowToVisible(static_cast<int>(row));
    }
    setDateForPrevNextArrows(today);
    colorTodayOnMiniCal();
}

void AppDelegate::waitForSaves()
{
    m_store.waitUntilDone();
}

/// What is typed and not left yet counts.
void AppDelegate::endTyping()
{
    m_ui.notesTableView->endEditing();
    m_ui.importantDatesTableView->endEditing();
    if (m_prefsSheet->isVisible()) {
        userSetPlace();
    }
}

void AppDelegate::applicationWillTerminate()
{
    m_minuteTimer.stop();
    endTyping();
    m_store.saveUnlessEmpty(ListKind::ImportantDates);
    deleteMonthlyPrintFile();
    m_store.finish();
}

void AppDelegate::machineWillShutDown()
{
    endTyping();
    m_store.saveUnlessEmpty(ListKind::ImportantDates);
    buttonEnableDisable(*m_ui.importantDateSaveBtn, false);
    m_store.finish();
}

void AppDelegate::processWillExit()
{
    if (const std::optional<EditedNote> edited = editedNote()) {
        const int row = m_ui.notesTableView->editedRow();
        m_book.changeText(ListKind::Notes, row, edited->text); // nothing can be asked of an input method any more
        takeInNote(row, true);
    }
    m_store.saveUnlessEmpty(ListKind::ImportantDates);
    m_store.finish();
}

void AppDelegate::didSelectTabViewItem(QWidget& page)
{
    m_window.setWindowTitle(QString());
    redrawPage(page);
    m_announcer.announcePage(page);
}

/// The notes that the page shows may be others now. The mini calendar is no such page.
void AppDelegate::redrawPage()
{
    if (shownPage() == Page::Week) {
        redrawWeek(0);
    } else if (shownPage() == Page::Month) {
        redrawMonth(0);
    }
}

void AppDelegate::redrawPage(const QWidget& page)
{
    const bool sundayFirst = startOnSunday();
    switch (static_cast<Page>(page.property("identifier").toInt() & 0xFF)) { // only the low eight bits count
    case Page::Month:
        setMonthlyViewThreeCharDayNames(sundayFirst, m_window);
        setMonthlyViewDayNumbers(sundayFirst, m_window, notesTVData);
        break;
    case Page::Week:
        setWeeklyViewThreeCharDayNames(sundayFirst, m_window);
        setWeeklyViewDayNumbers(sundayFirst, m_window, notesTVData);
        break;
    case Page::MiniCalendar:
        redrawMiniCal();
        break;
    }
}
