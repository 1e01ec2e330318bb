// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "host/OpenPanel.h"
#include "store/LegacyTable.h"
#include "store/Record.h"
#include "table/TableView.h"
#include "text/Localized.h"
#include "ui_MainWindow.h"
#include "widgets/SaveButton.h"

#include <QMainWindow>
#include <QPointer>

namespace {

constexpr const char* legacyFolder = "~/Library/Application Support/TALV";

bool isThere(const std::filesystem::path& file)
{
    std::error_code error;
    return std::filesystem::exists(file, error);
}

} // namespace

void AppDelegate::askAboutImport()
{
    const OpenPanel::Request request{
        .title = localized("Import Notes and Dates"),
        .message = localized("Velumora needs permission to access your TALV data files.\r") +
                   localized("1. First select the 'TALV' folder. If the TALV folder exists, it should already be "
                             "selected in this open dialog.\r\r") +
                   localized("2. Use the 'Choose' button to grant permission to the TALV files.\r"),
        .acceptButton = localized("Choose"),
        .folder = legacyFolder};
    const QPointer<AppDelegate> self(this);
    m_host.openPanel.chooseFolder(m_window, request, [self](const std::optional<std::filesystem::path>& folder) {
        if (self && folder) {
            self->confirmImport(*folder);
        }
    });
}

void AppDelegate::confirmImport(const std::filesystem::path& folder)
{
    const std::filesystem::path notes = folder / NotesFileName;
    const std::filesystem::path events = folder / EventsFileName;
    const bool hasNotes = isThere(notes);
    const bool hasEvents = isThere(events);
    std::unique_ptr<Alert> alert =
        hasNotes || hasEvents
            ? copySheetAlertWithErrorString(
                  localized("If TALV's data is imported, please be aware of these *impacts*:\n") +
                      localized("Any existing Velumora data will be overwritten, so be prepared.\n") +
                      localized("There is no undo from the import. Backups make good sense. Hint\n\n") +
                      localized("Existing TALV data remains intact for those running TALV.\n"),
                  localized("Import TALV's notes & events data?"), localized("Confirm TALV Data Import"),
                  localized("Cancel TALV Data Import"))
            : copySheetAlertWithErrorString(
                  localized("This usually means one of the following:\r\r") +
                      localized("\t• TALV was never installed and used on this Mac, so data files weren't "
                                "created.\r\r") +
                      localized("\t• TALV's data folder exists but its data files are missing.\r\r") +
                      localized("If the folder and files exist, they should be located at the following "
                                "path:\r/Users/YourUserName/Library/Application Support/TALV\r\r"),
                  localized("Could not find TALV's data files( notes or events ).\r No import possible."), QString(),
                  localized("Thanks for letting me know. I'll look for my TALV data or enter myself"));
    alert->setAlertStyle(Alert::Style::Critical);
    Alert::beginSheet(std::move(alert), m_window, [this, notes, events, hasNotes, hasEvents](int answer) {
        if (answer != Alert::firstButtonReturn) {
            return;
        }
        m_ui.notesTableView->endEditing();
        m_ui.importantDatesTableView->endEditing();
        if (hasEvents && eventsTVData && m_ui.importantDateSaveBtn->isEnabled()) {
            m_store.save(ListKind::ImportantDates); // what was not saved yet is kept aside too
        }
        m_store.retryAndWait(); // what is on its way to a file is to be on the disk before it is replaced
        if ((hasNotes && !m_store.isSaved(ListKind::Notes)) ||
            (hasEvents && !m_store.isSaved(ListKind::ImportantDates))) {
            return; // nothing is replaced that the disk does not have; the save buttons say why it has not
        }
        if (hasNotes) {
            importNotes(notes);
        }
        if (hasEvents) {
            importEvents(events);
        }
    });
}

std::optional<Table> AppDelegate::importTALVDataFiles(const std::filesystem::path& source, const std::string& fileName)
{
    std::optional<Table> table = readLegacyTable(source);
    m_store.replace(table, fileName);
    return table;
}

/// The shown notes are the imported ones; those that a save writes are the earlier ones until the next start.
void AppDelegate::importNotes(const std::filesystem::path& source)
{
    std::optional<Table> imported = importTALVDataFiles(source, std::string(NotesFileName));
    m_book.showOnly(std::move(imported).value_or(Table())); // what is added goes with the earlier notes
    m_ui.filterField->setFoundNothing({});
    showRows();
    showNotesCount(visibleRowsForTV(*m_ui.notesTableView));
    redrawPage();
}

void AppDelegate::importEvents(const std::filesystem::path& source)
{
    std::optional<Table> imported = importTALVDataFiles(source, std::string(EventsFileName));
    if (eventsTVData) {
        eventsTVData = std::move(imported).value_or(Table());
    }
    m_ui.importantDatesTableView->reloadData();
    m_ui.importantDatesTableView->selectRow(-1);
    buttonEnableDisable(*m_ui.importantDateSaveBtn, false);
}
