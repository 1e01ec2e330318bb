// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"

#include "calendar/HiddenNotesLine.h"
#include "calendar/MiniCalendarGrid.h"
#include "host/ClockMonitor.h"
#include "host/GlobalDefaults.h"
#include "host/ShutdownMonitor.h"
#include "look/AlphaValue.h"
#include "look/Announcer.h"
#include "look/FittingScrollArea.h"
#include "store/Record.h"
#include "text/Localized.h"
#include "text/TextLines.h"
#include "ui_HolidaySheet.h"
#include "ui_MainWindow.h"
#include "ui_PreferencesSheet.h"
#include "widgets/EditingKeys.h"
#include "widgets/SegmentedControl.h"

#include <QCoreApplication>
#include <QMainWindow>

namespace {

constexpr double dateColumnWidth = 176;
constexpr double elapsedColumnWidth = 208;

// The places of the pages in the tab view.
constexpr int miniCalendarPage = 0;
constexpr int weeklyViewPage = 1;
constexpr int monthlyViewPage = 2;

// How the two tables share the height of the page.
constexpr int notesShare = 600;
constexpr int importantDatesShare = 400;

/// A column of fixed width that sorts by what it shows.
TableColumn sortedColumn(std::string_view key, const QString& title)
{
    TableColumn column;
    column.identifier = QString::fromLatin1(key.data(), static_cast<qsizetype>(key.size()));
    column.headerCell = HeaderCell(title);
    column.width = dateColumnWidth;
    column.sortDescriptorPrototype = SortDescriptor{.key = std::string(key)};
    return column;
}

/// A column of text edited in place, as wide as the table allows.
TableColumn textColumn(std::string_view key, const QString& title)
{
    TableColumn column = sortedColumn(key, title);
    column.stretches = true;
    column.editing = TableColumn::Editing::Editable;
    return column;
}

} // namespace

AppDelegate::AppDelegate(QMainWindow& myMainWindow, Ui::MainWindow& layout, const HostServices& host)
    : m_window(myMainWindow), m_ui(layout), m_prefsLayout(std::make_unique<Ui::PreferencesSheet>()),
      m_prefsSheet(new QDialog(&myMainWindow)), m_holidayLayout(std::make_unique<Ui::HolidaySheet>()),
      m_holidaySheet(new QDialog(&myMainWindow)), m_announcer(new Announcer(myMainWindow)), m_host(host),
      m_folder(host.applicationSupport, DateEnvironment::clock()), m_draftFile(host.stateFolder, host.temporaryFolder),
      m_saves(m_folder, [this](const SaveResult& result) {
          QMetaObject::invokeMethod(
              this, [this, result] { saveHasEnded(result); }, Qt::QueuedConnection);
      })
{
    m_prefsLayout->setupUi(m_prefsSheet);
    m_holidayLayout->setupUi(m_holidaySheet);
    setAlphaValue(*m_ui.importantDatesUSHolidays, 0); // until it is known whether they are offered here
    m_ui.hideShowSegBtn->setLabels({QString(), localized("Show All"), localized("Mini Calendar's Month"), QString()});
    m_ui.hideShowSegBtn->standBehind(*m_ui.filterBtn);
    for (QWidget* page : {m_ui.miniCalendarPage, m_ui.weeklyViewPage, m_ui.monthlyViewPage}) {
        makeScrollable(*page);
    }
    configureTables();
    connectActions();
    connectMenu();
    connectEditMenu();
    new EditingKeys(this);
    connectMenuStates();
    connectHolidaySheet();
    makeImportantDatesContextMenu();
    makeSendNotificationContextMenu();
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::configureTables()
{
    m_ui.notesTableView->addColumn(sortedColumn(NoteDateKey, localized("Date")));
    m_ui.notesTableView->addColumn(textColumn(NoteDataKey, localized("Note")));
    m_ui.notesTableView->setPlaceholderText(localized("No notes to show") + QLatin1Char('\n') +
                                            localized("Click a day and type"));
    m_ui.notesTableView->setDelegate(this);

    TableColumn elapsed;
    elapsed.identifier = QStringLiteral("eventTimeColID");
    elapsed.headerCell = HeaderCell(localized("Elapsed"));
    elapsed.width = elapsedColumnWidth;
    TableColumn day = sortedColumn(EventDateKey, localized("Date"));
    day.editing = TableColumn::Editing::Editable;
    day.editorFactory = [this](QWidget* parent, int row) { return makeDatePicker(parent, row); };
    m_ui.importantDatesTableView->addColumn(day);
    m_ui.importantDatesTableView->addColumn(textColumn(EventNameKey, localized("Description")));
    m_ui.importantDatesTableView->addColumn(elapsed);
    m_ui.importantDatesTableView->setLineHeight(eventLineHeight);
    m_ui.importantDatesTableView->setPlaceholderText(localized("No important dates yet") + QLatin1Char('\n') +
                                                     localized("Click “Add Date” and describe the day"));
    m_ui.importantDatesTableView->setDelegate(this);
    m_ui.tablesSplitter->setSizes({notesShare, importantDatesShare});
}

/// The controls of the window and of the preferences sheet, one line each.
void AppDelegate::connectActions()
{
    const auto wire = [this](QAbstractButton* button, auto handler) {
        connect(button, &QAbstractButton::clicked, this, [this, button, handler] { (this->*handler)(*button); });
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
        addRowToImportDates();
        editNewestDate();
    });
    connect(m_ui.importantDatesUSHolidays, &QAbstractButton::clicked, this, &AppDelegate::openHolidaySheet);
    connect(m_ui.todayBtn, &QAbstractButton::clicked, this, &AppDelegate::showTodayOnMiniCal);
    connect(m_ui.monthlyViewPrintBtn, &QAbstractButton::clicked, this, &AppDelegate::printMonthlyView);
    connect(m_ui.filterBtn, &QAbstractButton::clicked, this, &AppDelegate::filterNotes);
    connect(m_ui.filterField, &QLineEdit::textChanged, this, [this] { controlTextDidChange(*m_ui.filterField); });
    connect(m_ui.filterField, &QLineEdit::returnPressed, m_ui.filterBtn, &QAbstractButton::click);
    connect(m_ui.hideShowSegBtn, &SegmentedControl::segmentPressed, this,
            [this] { respondToSegmentSelection(*m_ui.hideShowSegBtn); });
    for (const HiddenNotesLine* line : {m_ui.weeklyViewHiddenNotes, m_ui.monthlyViewHiddenNotes}) {
        connect(line, &HiddenNotesLine::showAllPressed, this, &AppDelegate::showAllNotesOnPage);
    }
    connect(m_ui.miniCalendarGrid, &MiniCalendarGrid::dayPressed, this, [this](DayButton& day) {
        dayBtnAction(day);
        editSelectedNote(day);
    });
    connect(m_ui.miniCalendarGrid, &MiniCalendarGrid::monthStepWanted, this, [this](MiniCalendarGrid::Step step) {
        backForwardYearOrMonth(step == MiniCalendarGrid::Step::Back ? *m_ui.backOneMonthOnMiniCal
                                                                    : *m_ui.forwardOneMonthOnMiniCal);
    });
    connect(m_ui.myTabView, &QTabWidget::currentChanged, this,
            [this] { didSelectTabViewItem(*m_ui.myTabView->currentWidget()); });
    connect(&m_minuteTimer, &QTimer::timeout, this, &AppDelegate::minuteHasChanged);
    connect(&m_host.clockMonitor, &ClockMonitor::clockJumped, this, &AppDelegate::clockHasJumped);
    connect(&m_host.globalDefaults, &GlobalDefaults::didChange, this, &AppDelegate::appearanceHasChanged);
    connect(&m_host.shutdownMonitor, &ShutdownMonitor::machineWillShutDown, this, &AppDelegate::machineWillShutDown);
    m_draftTimer.setSingleShot(true);
    m_draftTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_draftTimer, &QTimer::timeout, this, &AppDelegate::writeDraft);
    connect(m_ui.notesTableView, &TableView::textComposed, this, &AppDelegate::draftHasChanged);

    for (QRadioButton* choice : {m_prefsLayout->sundayPref, m_prefsLayout->mondayPref, m_prefsLayout->allVelumora,
                                 m_prefsLayout->currentMonthVelumora}) {
        // Not `clicked`, which a screen reader's toggle does not send.
        connect(choice, &QRadioButton::toggled, this, [this, choice](bool on) {
            if (on && m_prefsSheet->isVisible()) {
                userSetPref(*choice);
            }
        });
    }
    for (QLineEdit* field : {m_prefsLayout->latitudeField, m_prefsLayout->longitudeField}) {
        connect(field, &QLineEdit::textEdited, this, &AppDelegate::userTypesPlace);
        connect(field, &QLineEdit::editingFinished, this, &AppDelegate::userSetPlace);
    }
    connect(m_prefsSheet, &QDialog::finished, this, &AppDelegate::userSetPlace);
    connect(m_prefsLayout->closeBtn, &QAbstractButton::clicked, this,
            [this] { sheetCloseBtnPressed(*m_prefsLayout->closeBtn); });
    m_minuteTimer.setSingleShot(true);
    m_minuteTimer.setTimerType(Qt::PreciseTimer);
}

void AppDelegate::connectHolidaySheet()
{
    for (QCheckBox* box : m_holidaySheet->findChildren<QCheckBox*>()) {
        // Not `clicked`, which a screen reader's toggle does not send.
        connect(box, &QCheckBox::toggled, this, [this, box] { respondToHolidayPressed(*box); });
    }
    for (QPushButton* button : {m_holidayLayout->addDatesBtn, m_holidayLayout->addDatesAndNotesBtn}) {
        connect(button, &QAbstractButton::clicked, this, [this, button] { addDatesFromHolidaySheet(*button); });
    }
    connect(m_holidayLayout->cancelBtn, &QAbstractButton::clicked, this,
            [this] { sheetCloseBtnPressed(*m_holidayLayout->cancelBtn); });
}

/// The menu bar, one line an action. An action that a button has too presses that button.
void AppDelegate::connectMenu()
{
    const auto wire = [this](QAction* action, auto handler) { connect(action, &QAction::triggered, this, handler); };
    const auto pressOn = [this](int page, QAction* action, QAbstractButton* button) {
        connect(action, &QAction::triggered, button, [this, page, button] {
            m_ui.myTabView->setCurrentIndex(page);
            button->click();
        });
    };
    const auto press = [pressOn](QAction* action, QAbstractButton* button) {
        pressOn(miniCalendarPage, action, button);
    };
    // A month's arrow of the menu is the one of the page shown, where that has one.
    const auto pressMonth = [this](QAction* action, QAbstractButton* onMiniCalendar, QAbstractButton* onMonth) {
        connect(action, &QAction::triggered, this, [this, onMiniCalendar, onMonth] {
            const bool isOnMonth = m_ui.myTabView->currentIndex() == monthlyViewPage;
            m_ui.myTabView->setCurrentIndex(isOnMonth ? monthlyViewPage : miniCalendarPage);
            (isOnMonth ? onMonth : onMiniCalendar)->click();
        });
    };
    const auto segment = [this](QAction* action, int index) {
        connect(action, &QAction::triggered, this, [this, index] {
            m_ui.myTabView->setCurrentIndex(miniCalendarPage);
            m_ui.hideShowSegBtn->press(index);
        });
    };
    wire(m_ui.saveAction, &AppDelegate::saveAll);
    wire(m_ui.importAction, &AppDelegate::askAboutImport);
    wire(m_ui.showDataFolderAction, &AppDelegate::showDataFilesInFinder);
    wire(m_ui.quitAction, [this] { Q_EMIT terminated(); });
    wire(m_ui.preferencesAction, &AppDelegate::openClosePrefsSheet);
    wire(m_ui.miniCalendarPageAction, [this] { m_ui.myTabView->setCurrentIndex(miniCalendarPage); });
    wire(m_ui.weeklyViewPageAction, [this] { m_ui.myTabView->setCurrentIndex(weeklyViewPage); });
    wire(m_ui.monthlyViewPageAction, [this] { m_ui.myTabView->setCurrentIndex(monthlyViewPage); });
    wire(m_ui.helpAction, &AppDelegate::myShowHelp);
    wire(m_ui.versionCheckAction, &AppDelegate::doNewVersionCheck);
    wire(m_ui.webPageAction, [this] { openProductWebPage(); });
    wire(m_ui.aboutAction, &AppDelegate::showAbout);
    wire(m_ui.findAction, [this] {
        m_ui.myTabView->setCurrentIndex(miniCalendarPage);
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
    pressOn(weeklyViewPage, m_ui.previousWeekAction, m_ui.weeklyViewBackWeek);
    pressOn(weeklyViewPage, m_ui.nextWeekAction, m_ui.weeklyViewForwardWeek);
    pressOn(monthlyViewPage, m_ui.printAction, m_ui.monthlyViewPrintBtn);
    press(m_ui.previousNotesAction, m_ui.noteEntryPrevNotesBtn);
    press(m_ui.nextNotesAction, m_ui.noteEntryNextNotesBtn);
    segment(m_ui.currentMonthNotesAction, 0);
    segment(m_ui.allNotesAction, 1);
    segment(m_ui.shownMonthNotesAction, 2);
    segment(m_ui.currentYearNotesAction, 3);
}

/// The edit menu speaks to the control that has the keyboard focus.
void AppDelegate::connectEditMenu()
{
    const auto forward = [this](QAction* action, const char* slot) {
        connect(action, &QAction::triggered, this, [this, slot] {
            QWidget* focused = m_window.focusWidget();
            if (focused && focused->metaObject()->indexOfMethod(slot) >= 0) {
                const QByteArray name(slot, static_cast<qsizetype>(qstrlen(slot)) - 2); // without its parentheses
                QMetaObject::invokeMethod(focused, name.constData());
            }
        });
    };
    forward(m_ui.undoAction, "undo()");
    forward(m_ui.redoAction, "redo()");
    forward(m_ui.cutAction, "cut()");
    forward(m_ui.copyAction, "copy()");
    forward(m_ui.pasteAction, "paste()");
    forward(m_ui.selectAllAction, "selectAll()");
}
