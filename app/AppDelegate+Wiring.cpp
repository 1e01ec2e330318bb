// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "calendar/HiddenNotesLine.h"
#include "calendar/MiniCalendarGrid.h"
#include "host/ClockMonitor.h"
#include "host/GlobalDefaults.h"
#include "host/ShutdownMonitor.h"
#include "sheets/HolidaySheet.h"
#include "sheets/PreferencesSheet.h"
#include "ui_MainWindow.h"
#include "ui_PreferencesSheet.h"
#include "widgets/DateNotesMenu.h"
#include "widgets/EditCommands.h"
#include "widgets/ReminderMenu.h"
#include "widgets/SaveButton.h"
#include "widgets/SegmentedControl.h"

#include <QApplication>
#include <QCheckBox>
#include <QContextMenuEvent>
#include <QMainWindow>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>

#include <functional>
#include <utility>
#include <vector>

namespace {

/// An entry of a menu, and whether it can do something now.
using Entry = std::pair<QAction*, std::function<bool()>>;

/// What the menu key does, for keyboards that have none.
void askForContextMenu(QWidget* widget)
{
    if (widget) {
        const QPoint place = widget->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
        QContextMenuEvent event(QContextMenuEvent::Keyboard, place, widget->mapToGlobal(place));
        QCoreApplication::sendEvent(widget, &event);
    }
}

/// Disables entries that can do nothing, but only while the menu is open: shortcuts work on enabled entries alone, and
/// do what they can.
void disableWhileOpen(const QMenu& menu, const std::vector<Entry>& entries)
{
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [entries] {
        for (const auto& [action, canAct] : entries) {
            action->setEnabled(canAct());
        }
    });
    QObject::connect(&menu, &QMenu::aboutToHide, &menu, [entries] {
        for (const auto& [action, canAct] : entries) {
            action->setEnabled(true);
        }
    });
}

} // namespace

/// Connects the controls, the menus and the services with the delegate's handlers, and remembers which control has the
/// keyboard focus.
class AppDelegate::Wiring : public QObject {
public:
    explicit Wiring(AppDelegate& delegate);

private:
    void wireControls();
    void wireSheets();
    void wireMenu();
    void wireMenuStates();
    void wireContextMenus();
    void wireServices();
    QWidget* focusedControl() const;

    AppDelegate& m_app;
    QMainWindow& m_window;
    const Ui::MainWindow& m_ui;
    const HostServices& m_host;
    QPointer<QWidget> m_lastFocusedControl; ///< that had the keyboard before the one that has it now
};

void AppDelegate::wire()
{
    new Wiring(*this); // the delegate's
}

AppDelegate::Wiring::Wiring(AppDelegate& delegate)
    : QObject(&delegate), m_app(delegate), m_window(delegate.m_window), m_ui(delegate.m_ui), m_host(delegate.m_host)
{
    wireControls();
    wireSheets();
    wireMenu();
    wireMenuStates();
    wireContextMenus();
    wireServices();
}

/// The controls of the window.
void AppDelegate::Wiring::wireControls()
{
    const auto wire = [this](QAbstractButton* button, auto handler) {
        connect(button, &QAbstractButton::clicked, &m_app, [this, button, handler] { (m_app.*handler)(*button); });
    };
    wire(m_ui.backOneMonthOnMiniCal, &AppDelegate::backForwardYearOrMonth);
    wire(m_ui.forwardOneMonthOnMiniCal, &AppDelegate::backForwardYearOrMonth);
    wire(m_ui.backOneYearOnMiniCal, &AppDelegate::backForwardYearOrMonth);
    wire(m_ui.forwardOneYearOnMiniCal, &AppDelegate::backForwardYearOrMonth);
    wire(m_ui.weeklyViewBackWeek, &AppDelegate::backForwardWeek);
    wire(m_ui.weeklyViewForwardWeek, &AppDelegate::backForwardWeek);
    wire(m_ui.monthlyViewBackBtn, &AppDelegate::backForwardMonthlyView);
    wire(m_ui.monthlyViewForwardBtn, &AppDelegate::backForwardMonthlyView);
    wire(m_ui.noteEntryPrevNotesBtn, &AppDelegate::backForwardNotesView);
    wire(m_ui.noteEntryNextNotesBtn, &AppDelegate::backForwardNotesView);
    wire(m_ui.noteEntryListSaveBtn, &AppDelegate::saveTVDataToFile);
    wire(m_ui.importantDateSaveBtn, &AppDelegate::saveTVDataToFile);
    wire(m_ui.deleteRowFromListBtn, &AppDelegate::respondToDeleteRowFromList);
    wire(m_ui.deleteRowFromImpDateListBtn, &AppDelegate::respondToDeleteRowFromList);
    connect(m_ui.addImportantDateBtn, &QAbstractButton::clicked, this, [this] {
        m_app.addRowToImportDates();
        m_app.editNewestDate();
    });
    connect(m_ui.importantDatesUSHolidays, &QAbstractButton::clicked, &m_app, &AppDelegate::openHolidaySheet);
    connect(m_ui.todayBtn, &QAbstractButton::clicked, &m_app, &AppDelegate::showTodayOnMiniCal);
    connect(m_ui.monthlyViewPrintBtn, &QAbstractButton::clicked, &m_app, &AppDelegate::printMonthlyView);
    connect(m_ui.filterBtn, &QAbstractButton::clicked, &m_app, &AppDelegate::filterNotes);
    connect(m_ui.filterField, &QLineEdit::textChanged, this, [this] { m_app.controlTextDidChange(*m_ui.filterField); });
    connect(m_ui.filterField, &QLineEdit::returnPressed, m_ui.filterBtn, &QAbstractButton::click);
    connect(m_ui.hideShowSegBtn, &SegmentedControl::segmentPressed, this,
            [this] { m_app.respondToSegmentSelection(*m_ui.hideShowSegBtn); });
    for (const HiddenNotesLine* line : {m_ui.weeklyViewHiddenNotes, m_ui.monthlyViewHiddenNotes}) {
        connect(line, &HiddenNotesLine::showAllPressed, &m_app, &AppDelegate::showAllNotesOnPage);
    }
    connect(m_ui.miniCalendarGrid, &MiniCalendarGrid::dayPressed, this, [this](DayButton& day) {
        m_app.dayBtnAction(day);
        m_app.editSelectedNote(day);
    });
    connect(m_ui.miniCalendarGrid, &MiniCalendarGrid::monthStepWanted, this, [this](MiniCalendarGrid::Step step) {
        m_app.backForwardYearOrMonth(step == MiniCalendarGrid::Step::Back ? *m_ui.backOneMonthOnMiniCal
                                                                          : *m_ui.forwardOneMonthOnMiniCal);
    });
    connect(m_ui.myTabView, &QTabWidget::currentChanged, this,
            [this] { m_app.didSelectTabViewItem(*m_ui.myTabView->currentWidget()); });
    connect(m_ui.notesTableView, &TableView::textComposed, &m_app.m_store, &NoteStore::draftHasChanged);
}

/// The controls of the preferences and of the holidays.
void AppDelegate::Wiring::wireSheets()
{
    const Ui::PreferencesSheet& prefs = m_app.m_prefsSheet->outlets();
    for (QRadioButton* choice : {prefs.sundayPref, prefs.mondayPref, prefs.allVelumora, prefs.currentMonthVelumora}) {
        // Not `clicked`, which a screen reader's toggle does not send.
        connect(choice, &QRadioButton::toggled, this, [this, choice](bool on) {
            if (on && m_app.m_prefsSheet->isVisible()) {
                m_app.userSetPref(*choice);
            }
        });
    }
    for (QLineEdit* field : {prefs.latitudeField, prefs.longitudeField}) {
        connect(field, &QLineEdit::textEdited, m_app.m_prefsSheet, &PreferencesSheet::followTyping);
        connect(field, &QLineEdit::editingFinished, &m_app, &AppDelegate::userSetPlace);
    }
    connect(m_app.m_prefsSheet, &QDialog::finished, &m_app, &AppDelegate::userSetPlace);
    connect(prefs.closeBtn, &QAbstractButton::clicked, this,
            [this, button = prefs.closeBtn] { m_app.sheetCloseBtnPressed(*button); });
    for (QCheckBox* box : m_app.m_holidaySheet->findChildren<QCheckBox*>()) {
        // Not `clicked`, which a screen reader's toggle does not send.
        connect(box, &QCheckBox::toggled, this, [this, box] { m_app.respondToHolidayPressed(*box); });
    }
    for (QPushButton* button :
         {&m_app.m_holidaySheet->addDatesButton(), &m_app.m_holidaySheet->addDatesAndNotesButton()}) {
        connect(button, &QAbstractButton::clicked, this, [this, button] { m_app.addDatesFromHolidaySheet(*button); });
    }
    connect(&m_app.m_holidaySheet->cancelButton(), &QAbstractButton::clicked, this,
            [this] { m_app.sheetCloseBtnPressed(m_app.m_holidaySheet->cancelButton()); });
}

void AppDelegate::Wiring::wireContextMenus()
{
    ReminderMenu& notesMenu = *m_app.m_sendNotificationContextMenu;
    m_ui.notesTableView->setMenu(&notesMenu);
    connect(&notesMenu, &QMenu::aboutToShow, &m_app, [this, &notesMenu] { m_app.menuNeedsUpdate(notesMenu); });
    connect(&notesMenu, &ReminderMenu::reminderWanted, &m_app, &AppDelegate::respondToContextualMenuTab1);
    DateNotesMenu& datesMenu = *m_app.m_importantDatesContextMenu;
    m_ui.importantDatesTableView->setMenu(&datesMenu);
    connect(&datesMenu, &QMenu::aboutToShow, &m_app, [this, &datesMenu] { m_app.menuNeedsUpdate(datesMenu); });
    connect(&datesMenu, &DateNotesMenu::chosen, &m_app, &AppDelegate::importantDatesRespondToContextMenu);
    const auto* menuKey = new QShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F10), &m_app.m_window);
    connect(menuKey, &QShortcut::activated, this, [this] { askForContextMenu(m_app.m_window.focusWidget()); });
}

/// What happens without the user.
void AppDelegate::Wiring::wireServices()
{
    connect(&m_app.m_minuteTimer, &QTimer::timeout, &m_app, &AppDelegate::minuteHasChanged);
    connect(&m_app.m_store, &NoteStore::saveEnded, &m_app, &AppDelegate::saveHasEnded);
    connect(&m_host.clockMonitor, &ClockMonitor::clockJumped, &m_app, &AppDelegate::clockHasJumped);
    connect(&m_host.globalDefaults, &GlobalDefaults::didChange, &m_app, &AppDelegate::appearanceHasChanged);
    connect(&m_host.shutdownMonitor, &ShutdownMonitor::machineWillShutDown, &m_app, &AppDelegate::machineWillShutDown);
}

/// The menu bar. An action that a button has too presses that button.
void AppDelegate::Wiring::wireMenu()
{
    const auto wire = [this](QAction* action, auto handler) { connect(action, &QAction::triggered, &m_app, handler); };
    const auto pressOn = [this](Page page, QAction* action, QAbstractButton* button) {
        connect(action, &QAction::triggered, button, [this, page, button] {
            m_app.showPage(page);
            button->click();
        });
    };
    const auto press = [pressOn](QAction* action, QAbstractButton* button) {
        pressOn(Page::MiniCalendar, action, button);
    };
    // A month's arrow of the menu is the one of the page shown, where that has one.
    const auto pressMonth = [this](QAction* action, QAbstractButton* onMiniCalendar, QAbstractButton* onMonth) {
        connect(action, &QAction::triggered, this, [this, onMiniCalendar, onMonth] {
            const bool isOnMonth = m_app.shownPage() == Page::Month;
            m_app.showPage(isOnMonth ? Page::Month : Page::MiniCalendar);
            (isOnMonth ? onMonth : onMiniCalendar)->click();
        });
    };
    const auto show = [this](QAction* action, Page page) {
        connect(action, &QAction::triggered, this, [this, page] { m_app.showPage(page); });
    };
    const auto choose = [this](QAction* action, NotesSegment segment) {
        connect(action, &QAction::triggered, this, [this, segment] {
            m_app.showPage(Page::MiniCalendar);
            m_ui.hideShowSegBtn->press(static_cast<int>(segment));
        });
    };
    // The edit menu speaks to the control that has the keyboard.
    const auto edit = [this](QAction* action, EditCommand command) {
        connect(action, &QAction::triggered, this, [this, command] { carryOut(command, m_window.focusWidget()); });
    };
    wire(m_ui.saveAction, &AppDelegate::saveAll);
    wire(m_ui.importAction, &AppDelegate::askAboutImport);
    wire(m_ui.showDataFolderAction, &AppDelegate::showDataFilesInFinder);
    wire(m_ui.quitAction, [this] { Q_EMIT m_app.terminated(); });
    wire(m_ui.preferencesAction, &AppDelegate::openClosePrefsSheet);
    show(m_ui.miniCalendarPageAction, Page::MiniCalendar);
    show(m_ui.weeklyViewPageAction, Page::Week);
    show(m_ui.monthlyViewPageAction, Page::Month);
    wire(m_ui.helpAction, &AppDelegate::myShowHelp);
    wire(m_ui.versionCheckAction, &AppDelegate::doNewVersionCheck);
    wire(m_ui.webPageAction, [this] { m_app.openProductWebPage(); });
    wire(m_ui.aboutAction, &AppDelegate::showAbout);
    wire(m_ui.findAction, [this] {
        m_app.showPage(Page::MiniCalendar);
        m_ui.filterField->setFocus(Qt::ShortcutFocusReason);
        m_ui.filterField->selectAll();
    });
    press(m_ui.deleteNoteAction, m_ui.deleteRowFromListBtn);
    press(m_ui.addDateAction, m_ui.addImportantDateBtn);
    press(m_ui.usHolidaysAction, m_ui.importantDatesUSHolidays);
    press(m_ui.deleteDateAction, m_ui.deleteRowFromImpDateListBtn);
    press(m_ui.todayAction, m_ui.todayBtn);
    pressMonth(m_ui.previousMonthAction, m_ui.backOneMonthOnMiniCal, m_ui.monthlyViewBackBtn);
    pressMonth(m_ui.nextMonthAction, m_ui.forwardOneMonthOnMiniCal, m_ui.monthlyViewForwardBtn);
    press(m_ui.previousYearAction, m_ui.backOneYearOnMiniCal);
    press(m_ui.nextYearAction, m_ui.forwardOneYearOnMiniCal);
    pressOn(Page::Week, m_ui.previousWeekAction, m_ui.weeklyViewBackWeek);
    pressOn(Page::Week, m_ui.nextWeekAction, m_ui.weeklyViewForwardWeek);
    pressOn(Page::Month, m_ui.printAction, m_ui.monthlyViewPrintBtn);
    press(m_ui.previousNotesAction, m_ui.noteEntryPrevNotesBtn);
    press(m_ui.nextNotesAction, m_ui.noteEntryNextNotesBtn);
    choose(m_ui.currentMonthNotesAction, NotesSegment::CurrentMonth);
    choose(m_ui.allNotesAction, NotesSegment::All);
    choose(m_ui.shownMonthNotesAction, NotesSegment::ShownMonth);
    choose(m_ui.currentYearNotesAction, NotesSegment::CurrentYear);
    edit(m_ui.undoAction, EditCommand::Undo);
    edit(m_ui.redoAction, EditCommand::Redo);
    edit(m_ui.cutAction, EditCommand::Cut);
    edit(m_ui.copyAction, EditCommand::Copy);
    edit(m_ui.pasteAction, EditCommand::Paste);
    edit(m_ui.selectAllAction, EditCommand::SelectAll);
}

void AppDelegate::Wiring::wireMenuStates()
{
    const auto follows = [](QAction* action, const QAbstractButton* button) {
        return Entry{action, [button] { return button->isEnabled(); }};
    };
    const auto isNotOn = [this](QAction* action, Page page) {
        return Entry{action, [this, page] { return m_app.shownPage() != page; }};
    };
    const auto ifText = [this](QAction* action, bool EditAbilities::*ability) {
        return Entry{action, [this, ability] { return editAbilitiesOf(focusedControl()).*ability; }};
    };
    disableWhileOpen(*m_ui.fileMenu, {{m_ui.saveAction, [this] {
                                           return m_ui.noteEntryListSaveBtn->isEnabled() ||
                                                  m_ui.importantDateSaveBtn->isEnabled();
                                       }}});
    disableWhileOpen(*m_ui.editMenu,
                     {ifText(m_ui.undoAction, &EditAbilities::undo), ifText(m_ui.redoAction, &EditAbilities::redo),
                      ifText(m_ui.cutAction, &EditAbilities::cut), ifText(m_ui.copyAction, &EditAbilities::copy),
                      ifText(m_ui.pasteAction, &EditAbilities::paste),
                      ifText(m_ui.selectAllAction, &EditAbilities::selectAll),
                      follows(m_ui.deleteNoteAction, m_ui.deleteRowFromListBtn),
                      follows(m_ui.addDateAction, m_ui.addImportantDateBtn),
                      follows(m_ui.deleteDateAction, m_ui.deleteRowFromImpDateListBtn)});
    disableWhileOpen(*m_ui.viewMenu,
                     {isNotOn(m_ui.miniCalendarPageAction, Page::MiniCalendar),
                      isNotOn(m_ui.weeklyViewPageAction, Page::Week), isNotOn(m_ui.monthlyViewPageAction, Page::Month),
                      follows(m_ui.previousNotesAction, m_ui.noteEntryPrevNotesBtn),
                      follows(m_ui.nextNotesAction, m_ui.noteEntryNextNotesBtn)});
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* former) {
        if (former && former->window() == &m_window && former != m_window.menuBar()) {
            m_lastFocusedControl = former;
        }
    });
}

/// While the menu bar has the keyboard, the control that had it before.
QWidget* AppDelegate::Wiring::focusedControl() const
{
    QWidget* focused = m_window.focusWidget();
    return focused == m_window.menuBar() ? m_lastFocusedControl.data() : focused;
}
