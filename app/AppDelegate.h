// SPDX-License-Identifier: MIT
#pragma once

#include "app/WindowParts.h"
#include "calendar/DayButton.h"
#include "dates/Clock.h"
#include "dates/DateFormatter.h"
#include "dates/MonthGrid.h"
#include "host/HostServices.h"
#include "host/LocationManager.h"
#include "host/UserNotificationCenter.h"
#include "host/VersionServer.h"
#include "notes/NoteBook.h"
#include "plist/Value.h"
#include "store/DataFolder.h"
#include "store/DraftFile.h"
#include "store/Record.h"
#include "store/SaveQueue.h"
#include "table/TableViewDelegate.h"
#include "sheets/Alert.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>

class Announcer;
class DatePicker;
class HiddenNotesLine;
class HolidaySheet;
class QAbstractButton;
class QAction;
class QCheckBox;
class QColor;
class QMainWindow;
class QMenu;
class QRadioButton;
class SegmentedControl;

namespace Ui {
class MainWindow;
class PreferencesSheet;
} // namespace Ui

/// Carries every handler of the program and owns its three tables. It is made once the window's layout is loaded and
/// reaches the window's controls, its outlets, through that layout. A handler reads outlets, calls a pure function and
/// writes outlets; what is worked out lies in the rooms of the core.
///
/// A table is nullopt when its file could not be read. Such a table answers every query as an empty one does, and what
/// is added to it is lost.
class AppDelegate : public QObject,
                    public LocationManagerDelegate,
                    public TableViewDelegate,
                    public UserNotificationCenterDelegate {
    Q_OBJECT

public:
    /// `myMainWindow` and the layout that was set up on it, and all services, outlive the delegate.
    AppDelegate(QMainWindow& myMainWindow, Ui::MainWindow& layout, const HostServices& host);
    ~AppDelegate() override;

    // --- Lifecycle ---------------------------------------------------------------------------------------------------

    /// Before the window shows: header fonts, the notification centre.
    void applicationWillFinishLaunching();

    /// Everything from the version gate to the first drawing, in the order that later steps rely on.
    void applicationDidFinishLaunching();

    /// The version gate and the first showing of the window; false when the program cannot run here and ends.
    bool doInit();

    /// Closing the main window quits.
    static bool applicationShouldTerminateAfterLastWindowClosed() { return true; }

    /// Waits until all that was saved is on the disk, or was tried, and the draft with it.
    void waitForSaves();

    /// Ends an edit in progress, saves the important dates, and waits until all that was saved is on the disk.
    void applicationWillTerminate();

    /// The machine is about to be switched off: the same, but the program goes on.
    void machineWillShutDown();

    /// The same for a process that ends from within, without its display: touches nothing that is shown.
    void processWillExit();

    /// Redraws the page that is being entered.
    void didSelectTabViewItem(QWidget& page);

    // --- Preferences -------------------------------------------------------------------------------------------------

    void establishDefaultPrefs();
    void openClosePrefsSheet();
    void userSetPref(QRadioButton& sender);

    /// Stores the place that the sheet's two fields tell, or says what is wrong with them.
    void userSetPlace();
    void userTypesPlace();

    /// Closes the sheet that `sender` stands in.
    void sheetCloseBtnPressed(QWidget& sender);

    /// The preference for the first day of the week, read afresh.
    bool startOnSunday() const;

    // --- Alerts ------------------------------------------------------------------------------------------------------

    /// A null title adds no button; an empty one adds an empty button. `preparation` is called when the alert's turn
    /// has come, `completion` when it is answered.
    static void doSheetAlert(QWidget& window, const QString& errorString, const QString& titleString,
                             const QString& okBtnTitle, const QString& canBtnTitle, Alert::Preparation preparation = {},
                             Alert::Completion completion = {});

    /// Alerts that the caller shows. An empty or null title adds no button.
    static std::unique_ptr<Alert> copySheetAlertWithErrorString(const QString& errorString, const QString& titleString,
                                                                const QString& okBtnTitle, const QString& canBtnTitle,
                                                                const QString& okBtnToolTip,
                                                                const QString& canBtnToolTip);
    static std::unique_ptr<Alert> copySheetAlertWithErrorString(const QString& errorString, const QString& titleString,
                                                                const QString& firstBtnTitle,
                                                                const QString& secondBtnTitle);

    /// When the first of two buttons is chosen, the product's web page opens.
    void showAlertOnMainWindow(const QString& titleString, const QString& errorString, const QString& firstBtnTitle,
                               const QString& secondBtnTitle);

    // --- Help --------------------------------------------------------------------------------------------------------

    void myShowHelp();
    void showDataFilesInFinder();

    /// Says so when nothing opens it. `whenDecided` is called once that is known.
    void openProductWebPage(const std::function<void()>& whenDecided = {});
    void showAbout();

    // --- Appearance --------------------------------------------------------------------------------------------------

    /// The dark appearance is in effect.
    bool isDarkMode() const;

    /// Every colour that the window shows is drawn anew.
    void appearanceHasChanged();

    // --- Version check -----------------------------------------------------------------------------------------------

    /// Fetches the newest version, then begins the sheet that tells whether it is newer than this one. Nothing waits
    /// meanwhile; a second check is not begun before the first has ended.
    void doNewVersionCheck();

    // --- Store -------------------------------------------------------------------------------------------------------

private:
    NoteBook m_book; ///< made before what refers to it

public:
    /// Every note in file order; the rows of the notes list; every important date.
    std::optional<Table>& allNotesTVData = m_book.allNotes;
    std::optional<Table>& notesTVData = m_book.shownNotes;
    std::optional<Table>& eventsTVData = m_book.importantDates;

    /// Loads both tables, cleans the notes once, and shows them.
    void loadTables();
    void saveTVDataToFile(QAbstractButton& sender);

    /// Asks for the older product's folder and takes its files over once that is confirmed. They are only read.
    void askAboutImport();

    /// Saves the table in `source` under `fileName` and gives it back; one that cannot be read removes the file.
    std::optional<Table> importTALVDataFiles(const std::filesystem::path& source, const std::string& fileName);

    /// The save command of the menu: saves what the enabled save buttons would. What is being edited is committed and
    /// goes on being edited.
    void saveAll();

    /// Something that is not saved has changed: the draft follows shortly.
    void draftHasChanged();

    /// Shows what an earlier run left unsaved, if it did.
    void offerDraft();

    // --- Mini calendar -----------------------------------------------------------------------------------------------

    /// The month shown. The mini calendar's two labels are its only record, for every page.
    MonthGrid::YearMonth fromMiniCalGetYearMonth() const;

    void formatCopyMiniCalTime();
    void showTodayOnMiniCal();
    void redrawMiniCal();
    void setMiniCalMonthYearDate(Date date);
    void setSingleCharDayNames(bool startOnSunday, QWidget& window);
    void enableMiniCalDatesWithNotes(Date date, const std::optional<Table>& notes, bool startOnSunday, QWidget& window);
    void setMiniCalDatesWithDate(Date date, const Table& datesWithNotes, bool startOnSunday, QWidget& window);
    void colorTodayOnMiniCal();
    int findTagForTodaysDay(QWidget& window) const;
    static void buttonSetTitleColor(const QColor& color, DayButton* button);
    void updateTimeOnUI();
    void minuteHasChanged();

    /// The machine woke up, or the clock or the zone changed: what was worked out for the old time is worked out anew.
    void clockHasJumped();
    void backForwardYearOrMonth(QAbstractButton& sender);
    void dayBtnAction(DayButton& sender);

    // --- Week --------------------------------------------------------------------------------------------------------

    void setWeeklyViewThreeCharDayNames(bool startOnSunday, QWidget& window);
    void setStringForWeeklyViewStartingDateMsg(Date date);

    /// Opens the page on the week that holds today, or day 1 when the mini calendar shows another month.
    void setWeeklyViewDayNumbers(bool startOnSunday, QWidget& window, const std::optional<Table>& notes);

    /// Draws the week that begins `daysToAdd` days from `date`. The label of its first day is its only record.
    void putDaysDatesTextOnWeeklyView(int daysToAdd, Date date, QWidget& view, const std::optional<Table>& notes);
    void backForwardWeek(QAbstractButton& sender);

    /// Colours the number of today, and no other, in the week shown, and leaves all else on the page.
    void colorTodayOnWeeklyView();

    // --- Month -------------------------------------------------------------------------------------------------------

    void setMonthlyViewThreeCharDayNames(bool startOnSunday, QWidget& window);

    /// Opens the page on the month that the mini calendar shows, else on the current one.
    void setMonthlyViewDayNumbers(bool startOnSunday, QWidget& window, const std::optional<Table>& notes);

    /// Draws the month of `date`, its day 1, which falls on `weekdayOfFirst`. The hidden date picker is its only
    /// record.
    void putDaysDatesTextOnMonthlyView(int weekdayOfFirst, Date date, QWidget& view, const std::optional<Table>& notes,
                                       bool startOnSunday);
    void backForwardMonthlyView(QAbstractButton& sender);

    /// Colours the number of today, and no other, in the month shown, and leaves all else on the page.
    void colorTodayOnMonthlyView();

    /// Writes the page as a PDF file into the temporary folder and opens it with the user's viewer. Nothing is reported
    /// when either fails.
    void printMonthlyView();

    /// Removes the file of the last print, if there was one.
    void deleteMonthlyPrintFile();

    // --- Icon --------------------------------------------------------------------------------------------------------

    void drawCurrMonthsDayOnAppIcon();

    /// Waits for the window's first picture, after which the icon is handed over and a draft offered.
    bool eventFilter(QObject* watched, QEvent* event) override;

    // --- Notes list --------------------------------------------------------------------------------------------------

    void showNotesForThisMonthYear(Date date);
    void notesForMonthShowing();
    void showOnlyCurrentYearNotes();
    void showAllNotes(SegmentedControl& control);
    void filterNotes();
    void backForwardNotesView(QAbstractButton& sender);
    void setDateForPrevNextArrows(Date date);
    void resetPagingBtns();
    void respondToSegmentSelection(SegmentedControl& sender);

    /// Names the first segment after the month of today and the last after its year.
    void nameSegments();
    std::int64_t visibleRowsForTV(const TableView& tableView) const;
    void showNotesCount(std::int64_t count);
    static void buttonEnableDisable(QWidget& button, bool enable);
    static void increaseTVHeaderFontSize(TableView& tableView);

    int numberOfRowsInTableView(const TableView& tableView) override;
    CellView viewForTableColumn(const TableView& tableView, const TableColumn& column, int row) override;
    double heightOfRow(const TableView& tableView, int row) override;
    std::unique_ptr<TableRowView> rowViewForRow(const TableView& tableView, int row) override;
    void tableViewSelectionDidChange(TableView& tableView) override;
    bool shouldEditTableColumn(const TableView& tableView, const TableColumn& column, int row) override;
    void tableViewSelectionIsChanging(TableView& tableView) override;
    QString accessibleEditorName(const TableView& tableView, const TableColumn& column, int row) override;
    void sortDescriptorsDidChange(TableView& tableView) override;

    // --- Editing and deleting ----------------------------------------------------------------------------------------

    void controlTextDidChange(QWidget& field) override;
    void controlTextDidEndEditing(QWidget& field) override;
    void respondToDeleteRowFromList(QAbstractButton& sender);

    // --- Important dates ---------------------------------------------------------------------------------------------

    /// Appends a date of this moment, to be given its day and its description.
    void addRowToImportDates();
    void datePickerChanged(DatePicker& sender);

    /// How long ago or ahead an important date is.
    QString calcElapsedDate(const Value& event) const;

    void openHolidaySheet();
    void respondToHolidayPressed(QCheckBox& sender);

    /// Adds the ticked holidays as dates; for the one sender as notes of their days too.
    void addDatesFromHolidaySheet(QAbstractButton& sender);

    /// Adds the description of the clicked date to the shown note of its day, or of the same day this year.
    void importantDatesRespondToContextMenu(const QAction& sender);

    // --- Reminders ---------------------------------------------------------------------------------------------------

    /// Retitles a context menu, of the notes or of the important dates, before it opens.
    void menuNeedsUpdate(QMenu& menu);

    /// Schedules the one reminder: the clicked note's, at midnight at the start of its day.
    void respondToContextualMenuTab1(const QAction& sender);

    /// Shows the note of a reminder that was clicked, also as the only row of the notes list.
    void respondWithContent(const NotificationContent& content);

    /// So many reminders that were clicked may be shown or wait behind another sheet.
    static constexpr int mostClickedReminders = 3;

    NotificationOptions willPresentNotification(const NotificationRequest& request) override;
    bool acceptsResponses() const override { return m_clickedReminders < mostClickedReminders; }
    void didReceiveNotificationResponse(const NotificationResponse& response,
                                        const std::function<void()>& completionHandler) override;

    // --- Location ----------------------------------------------------------------------------------------------------

    /// Null until it is started, and where location services are turned off.
    std::unique_ptr<LocationManager> locationManager;

    void startLocationManager();

    /// Shows today's sunrise and sunset at the newest of the places.
    void didUpdateLocations(LocationManager& manager, const QList<Location>& locations) override;
    void didChangeAuthorizationStatus(LocationManager& manager, LocationAuthorizationStatus status) override;
    void didFailWithError(LocationManager&, const QString&) override {}
    void didUpdateToLocation(LocationManager&, const Location&, const Location&) override {}

Q_SIGNALS:
    /// The program cannot go on and is to end.
    void terminated();

private:
    // Wiring: one line a control, in a file of its own.
    void configureTables();
    void wireControls();
    void wireSheets();
    void wireMenu();
    void wireMenuStates();
    void wireServices();
    QWidget* focusedControl() const;

    // Pages.
    Page shownPage() const;
    void showPage(Page page);
    void redrawPage();
    void redrawPage(const QWidget& page);
    void redrawWeek(int days);
    void redrawMonth(int months);
    MonthGrid::YearMonth shownOrCurrentMonth() const;
    Date firstOfMonthlyView() const;
    void followToday();
    void tellHiddenNotes(HiddenNotesLine& line, const QString& format, std::span<const Date> days,
                         const std::optional<Table>& notes) const;
    void showAllNotesOnPage();

    // The two lists.
    const ListBinding* listOf(const TableView& tableView) const;
    void chooseNotes(NotesChoice choice);
    void showRows();
    void showCountUnlessEmpty();
    void offerAllNotes();
    void scrollToNoteNearestTo(Date date);
    void showNoteOfDay(Date date, DayButton& button);
    void showOnlyNoteOf(Date date);
    void showSavedNote(Date date);
    void editSelectedNote(DayButton& day);
    bool takeInNote(int row, bool isEdited);
    void askToDeleteNote();
    void askToDeleteEvent();
    void deleteNoteAtRow(int row);
    void deleteEvent(const Value& event);
    void confirmDeletion(const QString& question, std::function<void()> deletion);
    void reportMissingText(const TableView& tableView);

    // Saving, and the draft of what is not saved.
    struct SaveState {
        struct Failure {
            Date since;
            QString toolTip; ///< of the button before
        };
        Table onDisk;
        std::optional<Failure> failure;
    };
    SaveState& saveState(ListKind list) { return list == ListKind::Notes ? m_notesState : m_eventsState; }
    void saveTableOf(QAbstractButton& button);
    void saveNotes();
    void saveEvents();
    void saveEventsUnlessEmpty();
    void saveNotesInsteadOf(const std::string& replaced, const std::string& seen);
    void waitForReports();
    void saveHasEnded(const SaveResult& result);
    void showSaveFailure(QAbstractButton& button, SaveState& state, std::error_code error);
    void resetSaveFailure(QAbstractButton& button, SaveState& state, bool hasChanges);
    std::optional<DatedText> editedNote() const;
    void writeDraft();
    void readDraft();
    QString draftText() const;
    void keepDraft();
    void confirmImport(const std::filesystem::path& folder);
    void importNotes(const std::filesystem::path& source);
    void importEvents(const std::filesystem::path& source);

    // Important dates.
    void addHoliday(Date date, const std::string& name);
    void addHolidayNote(Date date, const std::string& name);
    void editNewestDate();
    QWidget* makeDatePicker(QWidget* parent, int row);
    void colorDatePicker(DatePicker& picker, int row) const;
    void colorDatePickers();
    void makeImportantDatesContextMenu();
    void updateImportantDatesContextMenu();
    ListRow clickedEvent() const;
    void takeInDateNotes();
    std::optional<DatedText> noteInEditor() const;
    void takeIntoEditor(const DatedText& edited);

    // Reminders, the place, the version.
    void makeSendNotificationContextMenu();
    void updateSendNotificationContextMenu();
    std::optional<DatedText> clickedNote() const;
    void answerReminderRequest(AuthorizationStatus status, const DatedText& note);
    void scheduleReminder(const DatedText& note);
    void showReminder(const QString& errorString, const QString& titleString, Alert::Preparation preparation);
    void showEnteredPlace();
    void showPlaceProblem(const QString& problem);
    void askForLocationAgain();
    void followZone();
    void tellAboutVersion(const std::optional<QString>& reply);

    // What a screen reader is to say though the focus is elsewhere.
    void announceMonthOfMiniCal();
    void announceWeek();
    void announceMonthOfPage();
    void announcePage(const QWidget& page);
    void announceFoundNotes();
    void announceRows(const QString& choice); ///< what was chosen to be shown in the notes list

    QMainWindow& m_window;
    Ui::MainWindow& m_ui;
    std::unique_ptr<Ui::PreferencesSheet> m_prefsLayout;
    QDialog* m_prefsSheet = nullptr;              ///< the window's
    HolidaySheet* m_holidaySheet;                 ///< the window's
    QMenu* m_importantDatesContextMenu = nullptr; ///< the window's
    QMenu* m_sendNotificationContextMenu = nullptr;
    Announcer* m_announcer; ///< the window's
    HostServices m_host;

    const ListBinding m_notesList;
    const ListBinding m_datesList;

    DataFolder m_folder;
    SaveState m_notesState;
    SaveState m_eventsState;
    Draft m_foundDraft; ///< of an earlier run, until it is answered
    bool m_draftWasRead = false;
    DraftFile m_draftFile;
    SaveQueue m_saves;

    std::optional<std::filesystem::path> m_monthlyPrintFile; ///< of the last print, whether it was written or not

    // Made at start-up and kept: the clock's format, the one whose style each user sets before use, the list's dates.
    std::optional<DateFormatter> m_sharedTimeFormatter;
    std::optional<DateFormatter> m_sharedStyleFormatter;
    std::optional<DateFormatter> m_sharedListDateFormatter;

    QPointer<QWidget> m_lastFocusedControl; ///< that had the keyboard before the one that has it now
    std::string m_zoneOfLocation;           ///< the zone in force when the location was last asked for
    QTimer m_minuteTimer{this};
    int m_clickedReminders = 0;                           ///< whose sheets are up or wait
    std::unique_ptr<VersionServer::Fetch> m_versionFetch; ///< of the check that is under way
    QTimer m_iconTimer;                                   ///< hands the desktop the icon
    QTimer m_draftTimer;                                  ///< runs while the draft is older than what it keeps
    bool m_missingTextReported = false;                   ///< while the alert about a missing text is up
};
