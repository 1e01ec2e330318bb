// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "app/PreferenceKeys.h"
#include "dates/DateUtilities.h"
#include "host/ProcessInfo.h"
#include "host/UserDefaults.h"
#include "host/UserNotificationCenter.h"
#include "look/AlphaValue.h"
#include "store/Record.h"
#include "table/TableView.h"
#include "text/Localized.h"
#include "ui_MainWindow.h"

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
    scrollToNoteNearestTo(today);
    setDateForPrevNextArrows(today);
    colorTodayOnMiniCal();
}

void AppDelegate::applicationWillTerminate()
{
    m_minuteTimer.stop();
    m_ui.notesTableView->endEditing();
    m_ui.importantDatesTableView->endEditing();
    if (m_prefsSheet->isVisible()) {
        userSetPlace(); // typed, and not left yet
    }
    saveEventsUnlessEmpty();
    deleteMonthlyPrintFile();
    waitForReports();
}

void AppDelegate::machineWillShutDown()
{
    m_ui.notesTableView->endEditing();
    m_ui.importantDatesTableView->endEditing();
    if (m_prefsSheet->isVisible()) {
        userSetPlace(); // typed, and not left yet
    }
    saveEventsUnlessEmpty();
    buttonEnableDisable(*m_ui.importantDateSaveBtn, false);
    waitForReports();
}

void AppDelegate::processWillExit()
{
    if (const std::optional<DatedText> edited = editedNote()) {
        const int row = m_ui.notesTableView->editedRow();
        m_book.changeText(ListKind::Notes, row, edited->text); // nothing can be asked of an input method any more
        takeInNote(row, true);
    }
    saveEventsUnlessEmpty();
    waitForReports();
}

void AppDelegate::didSelectTabViewItem(QWidget& page)
{
    m_window.setWindowTitle(QString());
    redrawPage(page);
    announcePage(page);
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
