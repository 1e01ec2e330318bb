// SPDX-License-Identifier: MIT
#pragma once

#include "app/WindowAnnouncer.h"
#include "app/WindowParts.h"
#include "calendar/DayButton.h"
#include "dates/Clock.h"
#include "dates/MonthGrid.h"
#include "dates/SharedFormatters.h"
#include "host/HostServices.h"
#include "host/LocationManager.h"
#include "host/UserNotificationCenter.h"
#include "host/VersionServer.h"
#include "notes/NoteBook.h"
#include "plist/Value.h"
#include "saving/NoteStore.h"
#include "sheets/Alert.h"
#include "table/TableViewDelegate.h"

#include <QObject>
#include <QTimer>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <system_error>

class DateNotesMenu;
class DatePicker;
class HolidaySheet;
class PreferencesSheet;
class QAbstractButton;
class QAction;
class QCheckBox;
class QColor;
class QMainWindow;
class QMenu;
class QRadioButton;
class ReminderMenu;
class SegmentedControl;

namespace Ui {
class MainWindow;
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

    /// The same for a process that ends from within, without its display: asks nothing of the display any more.
    void processWillExit();

    /// Redraws the page that is being entered.
    void didSelectTabViewItem(QWidget& page);

    // --- Preferences -------------------------------------------------------------------------------------------------

    void establishDefaultPrefs();
    void openClosePrefsSheet();
    void userSetPref(QRadioButton& sender);

    /// Stores the place that the sheet's two fields tell, or says what is wrong with them.
    void userSetPlace();

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
    class Wiring; ///< in a file of its own
    void wire();

    // Pages.
    Page shownPage() const;
    void showPage(Page page);
    void redrawPage(); ///< when the notes that it shows may be others; the mini calendar is no such page
    void redrawPage(const QWidget& page);
    void redrawWeek(int days);
    void redrawMonth(int months);
    void showAllNotesOnPage();

    // The two lists.
    const ListBinding* listOf(const TableView& tableView) const;
    ListRow clickedRow(const ListBinding& list) const;
    void chooseNotes(NotesChoice choice);
    void showRows();
    void offerAllNotes();
    void showNoteOfDay(Date date, DayButton& button);
    void showOnlyNoteOf(Date date);
    void showSavedNote(Date date);
    void reportMissingText(const TableView& tableView);

    // Editing and deleting.
    void editSelectedNote(DayButton& day);
    std::optional<DatedText> noteInEditor() const;
    std::optional<EditedNote> editedNote() const;
    bool takeInNote(int row, bool isEdited);
    void endTyping();
    void askToDeleteNote();
    void askToDeleteEvent();
    void deleteNoteAtRow(int row);
    void deleteEvent(const Value& event);

    // Saving.
    void saveTableOf(QAbstractButton& button);
    void saveHasEnded(ListKind kind, std::error_code error);
    void keepDraft();
    void confirmImport(const std::filesystem::path& folder);
    void importNotes(const std::filesystem::path& source);
    void importEvents(const std::filesystem::path& source);

    // Important dates, the notes made from them, reminders, the place.
    void addHoliday(Date date, const std::string& name);
    void addHolidayNote(Date date, const std::string& name);
    void editNewestDate();
    QWidget* makeDatePicker(QWidget* parent, int row);
    void colorDatePickers();
    void takeInDateNotes();
    void updateImportantDatesContextMenu();
    void updateSendNotificationContextMenu();
    void askForLocationAgain();

    QMainWindow& m_window;
    Ui::MainWindow& m_ui;
    HostServices m_host;
    WindowAnnouncer m_announcer;
    PreferencesSheet* m_prefsSheet; ///< the window's, as the next three
    HolidaySheet* m_holidaySheet;
    ReminderMenu* m_sendNotificationContextMenu;
    DateNotesMenu* m_importantDatesContextMenu;
    const ListBinding m_notesList;
    const ListBinding m_datesList;
    NoteStore m_store;
    std::optional<SharedFormatters> m_formatters;            ///< from the start on
    std::optional<std::filesystem::path> m_monthlyPrintFile; ///< of the last print, whether it was written or not
    std::string m_zoneOfLocation;                            ///< the zone in force when the location was last asked for
    std::unique_ptr<VersionServer::Fetch> m_versionFetch;    ///< of the check that is under way
    QTimer m_minuteTimer{this};
    int m_clickedReminders = 0;         ///< whose sheets are up or wait
    bool m_missingTextReported = false; ///< while the alert about a missing text is up
};
