// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "app/PreferenceKeys.h"
#include "host/UserDefaults.h"
#include "store/Record.h"
#include "ui_MainWindow.h"

#include <QMainWindow>
#include <QPushButton>

void AppDelegate::loadTables()
{
    allNotesTVData = m_folder.loadTable(std::string(NotesFileName));
    saveState(ListKind::Notes).onDisk = m_book.notes();
    if (allNotesTVData && !allNotesTVData->isEmpty() && !m_host.userDefaults.boolForKey(PreferenceKeys::notesCleaned)) {
        allNotesTVData = cleanedNotes(*allNotesTVData);
        // What the cleaning leaves out is kept aside.
        m_saves.save(allNotesTVData, std::string(NotesFileName), Replacing::Nothing);
        m_host.userDefaults.setInteger(1, PreferenceKeys::notesCleaned);
    }
    notesTVData = m_book.notes(); // the list of a file that could not be read is an empty one
    m_ui.notesTableView->reloadData();

    eventsTVData = m_folder.loadTable(std::string(EventsFileName));
    saveState(ListKind::ImportantDates).onDisk = m_book.rows(ListKind::ImportantDates);
    m_ui.addImportantDateBtn->setEnabled(eventsTVData.has_value()); // a list that could not be read takes none
    m_ui.importantDatesTableView->reloadData();
}

void AppDelegate::saveTVDataToFile(QAbstractButton& sender)
{
    if (&sender == m_ui.importantDateSaveBtn) {
        m_ui.importantDatesTableView->reloadData();
    }
    if (QWidget* firstResponder = m_window.focusWidget()) {
        firstResponder->clearFocus();
    }
    m_ui.notesTableView->endEditing();
    m_ui.importantDatesTableView->endEditing();
    saveTableOf(sender);
}

void AppDelegate::saveTableOf(QAbstractButton& button)
{
    if (&button == m_ui.noteEntryListSaveBtn) {
        takeInDateNotes();
    }
    buttonEnableDisable(button, false);
    if (&button == m_ui.importantDateSaveBtn) {
        saveEvents();
    } else if (&button == m_ui.noteEntryListSaveBtn) {
        saveNotes();
    }
}

void AppDelegate::saveAll()
{
    m_ui.notesTableView->commitEditing();
    m_ui.importantDatesTableView->commitEditing();
    for (QPushButton* button : {m_ui.noteEntryListSaveBtn, m_ui.importantDateSaveBtn}) {
        if (button->isEnabled()) {
            saveTableOf(*button);
        }
    }
}
