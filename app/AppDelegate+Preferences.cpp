// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "app/EnteredPlace.h"
#include "app/PreferenceKeys.h"
#include "dates/DateUtilities.h"
#include "host/UserDefaults.h"
#include "sheets/PreferencesSheet.h"
#include "sheets/SheetQueue.h"
#include "ui_MainWindow.h"
#include "ui_PreferencesSheet.h"

void AppDelegate::establishDefaultPrefs()
{
    m_host.userDefaults.registerDefaults(
        {{PreferenceKeys::weekStart, 1}, {PreferenceKeys::startList, 1}, {PreferenceKeys::notesCleaned, 0}});
}

bool AppDelegate::startOnSunday() const
{
    return m_host.userDefaults.integerForKey(PreferenceKeys::weekStart) != 0;
}

void AppDelegate::openClosePrefsSheet()
{
    const Ui::PreferencesSheet& sheet = m_prefsSheet->outlets();
    const bool sundayFirst = startOnSunday();
    sheet.sundayPref->setChecked(sundayFirst);
    sheet.mondayPref->setChecked(!sundayFirst);
    const QStringList dayNames = DateUtilities::copyFormatterForLocaleDevice().standaloneWeekdaySymbols();
    sheet.sundayPref->setText(dayNames.at(0));
    sheet.mondayPref->setText(dayNames.at(1));
    const bool allNotes = m_host.userDefaults.integerForKey(PreferenceKeys::startList) != 0;
    sheet.allVelumora->setChecked(allNotes);
    sheet.currentMonthVelumora->setChecked(!allNotes);
    m_prefsSheet->showPlace(enteredPlace(m_host.userDefaults));
    SheetQueue::of(m_window).begin(*m_prefsSheet);
}

void AppDelegate::userSetPref(QRadioButton& sender)
{
    const Ui::PreferencesSheet& sheet = m_prefsSheet->outlets();
    UserDefaults& defaults = m_host.userDefaults;
    if (&sender == sheet.allVelumora) {
        defaults.setInteger(1, PreferenceKeys::startList);
    } else if (&sender == sheet.currentMonthVelumora) {
        defaults.setInteger(0, PreferenceKeys::startList);
    } else {
        defaults.setInteger(&sender == sheet.sundayPref ? 1 : 0, PreferenceKeys::weekStart);
        redrawPage(*m_ui.myTabView->currentWidget());
    }
    defaults.synchronize();
}

void AppDelegate::userSetPlace()
{
    const PreferencesSheet::TypedPlace typed = m_prefsSheet->readPlace();
    if (typed.isComplete && typed.place != enteredPlace(m_host.userDefaults)) {
        setEnteredPlace(typed.place, m_host.userDefaults);
        askForLocationAgain();
    }
}

void AppDelegate::sheetCloseBtnPressed(QWidget& sender)
{
    if (auto* sheet = qobject_cast<QDialog*>(sender.window())) {
        sheet->done(0);
    }
}
