<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Velumora</name>
    <message>
        <source>%@ has been selected. Choose an option below to continue.</source>
        <translation>Gewählt: %@. Was soll geschehen?</translation>
    </message>
    <message>
        <source>%@ Notes</source>
        <translation>Notizen %@</translation>
    </message>
    <message>
        <source>%@, has a note</source>
        <translation>%@, mit Notiz</translation>
    </message>
    <message>
        <source>'%@' added/appended to note for %@</source>
        <translation>„%@“ wurde in die Notiz für den %@ aufgenommen</translation>
    </message>
    <message>
        <source>** put new date Description here **</source>
        <translation>** hier die neue Beschreibung eingeben **</translation>
    </message>
    <message>
        <source>&amp;About Velumora</source>
        <translation>Ü&amp;ber Velumora</translation>
    </message>
    <message>
        <source>Add a note or update an existing note's description for this date: %@</source>
        <translation>Notiz für diesen Tag anlegen oder ergänzen: %@</translation>
    </message>
    <message>
        <source>Add Date</source>
        <translation>Tag hinzufügen</translation>
    </message>
    <message>
        <source>Add Dates</source>
        <translation>Tage hinzufügen</translation>
    </message>
    <message>
        <source>Add Dates and Notes</source>
        <translation>Tage und Notizen hinzufügen</translation>
    </message>
    <message>
        <source>Add I&amp;mportant Date</source>
        <translation>Wichtigen Ta&amp;g hinzufügen</translation>
    </message>
    <message>
        <source>All notes</source>
        <translation>Alle Notizen</translation>
    </message>
    <message>
        <source>already saved as an 'Important Date'</source>
        <translation>schon als wichtiger Tag gespeichert</translation>
    </message>
    <message>
        <source>automatic</source>
        <translation>automatisch</translation>
    </message>
    <message>
        <source>&amp;Calendar</source>
        <translation>&amp;Kalender</translation>
    </message>
    <message>
        <source>Calendar</source>
        <translation>Kalender</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Cancel Delete</source>
        <translation>Nicht löschen</translation>
    </message>
    <message>
        <source>&amp;Check for a New Version…</source>
        <translation>Nach &amp;neuer Version suchen …</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Confirm Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Tag</translation>
    </message>
    <message>
        <source>Days</source>
        <translation>Tage</translation>
    </message>
    <message>
        <source>Delete Date…</source>
        <translation>Tag löschen …</translation>
    </message>
    <message>
        <source>Delete &amp;Important Date…</source>
        <translation>Wichtigen &amp;Tag löschen …</translation>
    </message>
    <message>
        <source>&amp;Delete Note…</source>
        <translation>&amp;Notiz löschen …</translation>
    </message>
    <message>
        <source>Delete Note…</source>
        <translation>Notiz löschen …</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Displaying</source>
        <translation>Angezeigt:</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>Elapsed</source>
        <translation>Vergangen</translation>
    </message>
    <message>
        <source>Enter both, or leave both empty</source>
        <translation>Beide angeben oder beide leer lassen</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Find Notes…</source>
        <translation>Notizen &amp;suchen …</translation>
    </message>
    <message>
        <source>Go to Velumora web page</source>
        <translation>Zur Webseite von Velumora</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Hide All</source>
        <translation>Alle verbergen</translation>
    </message>
    <message>
        <source>&amp;Import Notes and Dates…</source>
        <translation>Notizen und Tage &amp;importieren …</translation>
    </message>
    <message>
        <source>Important Dates</source>
        <translation>Wichtige Tage</translation>
    </message>
    <message>
        <source>Important Dates TableView</source>
        <translation>Tabelle der wichtigen Tage</translation>
    </message>
    <message>
        <source>In degrees; north and east are positive. Used where
the desktop's location service tells no place.</source>
        <translation>In Grad; Norden und Osten sind positiv. Gilt, wenn
der Ortungsdienst des Systems keinen Ort nennt.</translation>
    </message>
    <message>
        <source>Latitude %@°, longitude %@°
as entered in the preferences</source>
        <translation>Breite %@°, Länge %@°
wie in den Einstellungen angegeben</translation>
    </message>
    <message>
        <source>Latitude %@°, longitude %@°
from the desktop's location service</source>
        <translation>Breite %@°, Länge %@°
vom Ortungsdienst des Systems</translation>
    </message>
    <message>
        <source>Latitude %@°, longitude %@°
the principal city of the time zone</source>
        <translation>Breite %@°, Länge %@°
der Hauptort der Zeitzone</translation>
    </message>
    <message>
        <source>&amp;Latitude:</source>
        <translation>&amp;Breitengrad:</translation>
    </message>
    <message>
        <source>Lo&amp;ngitude:</source>
        <translation>&amp;Längengrad:</translation>
    </message>
    <message>
        <source>Mini Calendar&apos;s Month</source>
        <translation>Gezeigter Monat</translation>
    </message>
    <message>
        <source>&amp;Month</source>
        <translation>&amp;Monat</translation>
    </message>
    <message>
        <source>Month</source>
        <translation>Monat</translation>
    </message>
    <message>
        <source>Months</source>
        <translation>Monate</translation>
    </message>
    <message>
        <source>&amp;Next Month</source>
        <translation>&amp;Nächster Monat</translation>
    </message>
    <message>
        <source>Next Month</source>
        <translation>Nächster Monat</translation>
    </message>
    <message>
        <source>Next Y&amp;ear</source>
        <translation>Nächstes Jah&amp;r</translation>
    </message>
    <message>
        <source>Next Year</source>
        <translation>Nächstes Jahr</translation>
    </message>
    <message>
        <source>No important dates yet</source>
        <translation>Noch keine wichtigen Tage</translation>
    </message>
    <message>
        <source>No notes to show</source>
        <translation>Keine Notizen zu zeigen</translation>
    </message>
    <message>
        <source>No place is known</source>
        <translation>Kein Ort bekannt</translation>
    </message>
    <message>
        <source>No Row Selected</source>
        <translation>Keine Zeile ausgewählt</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>Note Added/Appended</source>
        <translation>Notiz ergänzt</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <source>notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <source>Notes of the Current Mont&amp;h</source>
        <translation>Notizen des &amp;aktuellen Monats</translation>
    </message>
    <message>
        <source>Notes of the Current Yea&amp;r</source>
        <translation>Notizen des aktuellen Jahre&amp;s</translation>
    </message>
    <message>
        <source>Notes of the Mini Calendar&apos;s M&amp;onth</source>
        <translation>Notizen des Monats im M&amp;inikalender</translation>
    </message>
    <message>
        <source>Notes of the Ne&amp;xt Month</source>
        <translation>Notizen des nä&amp;chsten Monats</translation>
    </message>
    <message>
        <source>Notes of the Next Month</source>
        <translation>Notizen des nächsten Monats</translation>
    </message>
    <message>
        <source>Notes of the Pre&amp;vious Month</source>
        <translation>Notizen des v&amp;origen Monats</translation>
    </message>
    <message>
        <source>Notes of the Previous Month</source>
        <translation>Notizen des vorigen Monats</translation>
    </message>
    <message>
        <source>Notes TableView</source>
        <translation>Tabelle der Notizen</translation>
    </message>
    <message>
        <source>of important note for %@ ?</source>
        <translation>der wichtigen Notiz vom %@?</translation>
    </message>
    <message>
        <source>of note for<byte value="xd"/> %@</source>
        <translation>der Notiz vom<byte value="xd"/> %@</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>Please confirm deletion</source>
        <translation>Bitte das Löschen bestätigen</translation>
    </message>
    <message>
        <source>Please select a row with an Important Date on it</source>
        <translation>Bitte eine Zeile mit einem wichtigen Tag wählen</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Pr&amp;eferences…</source>
        <translation>E&amp;instellungen …</translation>
    </message>
    <message>
        <source>Press Button to Select Date</source>
        <translation>Anklicken, um das Datum zu wählen</translation>
    </message>
    <message>
        <source>&amp;Previous Month</source>
        <translation>&amp;Voriger Monat</translation>
    </message>
    <message>
        <source>Previous Month</source>
        <translation>Voriger Monat</translation>
    </message>
    <message>
        <source>Previous &amp;Year</source>
        <translation>Voriges &amp;Jahr</translation>
    </message>
    <message>
        <source>Previous Year</source>
        <translation>Voriges Jahr</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Rise/Set:</source>
        <translation>Auf-/Untergang:</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save Dates</source>
        <translation>Tage speichern</translation>
    </message>
    <message>
        <source>Save Notes</source>
        <translation>Notizen speichern</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Search notes</source>
        <translation>Notizen durchsuchen</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>A&amp;lles auswählen</translation>
    </message>
    <message>
        <source>Show All</source>
        <translation>Alle zeigen</translation>
    </message>
    <message>
        <source>Show &amp;Data Folder</source>
        <translation>&amp;Datenordner zeigen</translation>
    </message>
    <message>
        <source>Show or Hide &amp;All Notes</source>
        <translation>Alle Notizen &amp;zeigen oder verbergen</translation>
    </message>
    <message>
        <source>Show the current month on the mini calendar</source>
        <translation>Den aktuellen Monat im Minikalender zeigen</translation>
    </message>
    <message>
        <source>Show the notes that contain this text</source>
        <translation>Die Notizen zeigen, die diesen Text enthalten</translation>
    </message>
    <message>
        <source>Sorry, Velumora requires Mac OS X version %d.%d or later.</source>
        <translation>Velumora benötigt leider Mac OS X Version %d.%d oder neuer.</translation>
    </message>
    <message>
        <source>Sunrise and sunset at:</source>
        <translation>Sonnenzeiten für:</translation>
    </message>
    <message>
        <source>tableView:heightOfRow failure</source>
        <translation>Fehler in tableView:heightOfRow</translation>
    </message>
    <message>
        <source>The current month&apos;s notes</source>
        <translation>Die Notizen des aktuellen Monats</translation>
    </message>
    <message>
        <source>The day-note calendar</source>
        <translation>Der Kalender für Tagesnotizen</translation>
    </message>
    <message>
        <source>The latitude is a number from −90 to 90</source>
        <translation>Der Breitengrad ist eine Zahl von −90 bis 90</translation>
    </message>
    <message>
        <source>The longitude is a number from −180 to 180</source>
        <translation>Der Längengrad ist eine Zahl von −180 bis 180</translation>
    </message>
    <message>
        <source>The week starts on:</source>
        <translation>Die Woche beginnt am:</translation>
    </message>
    <message>
        <source>To Delete a Row, please select one</source>
        <translation>Zum Löschen bitte eine Zeile auswählen</translation>
    </message>
    <message>
        <source>&amp;Today</source>
        <translation>&amp;Heute</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Heute</translation>
    </message>
    <message>
        <source>Unable to Find Velumora web page, is there a live connection to the Web?</source>
        <translation>Die Webseite von Velumora wurde nicht gefunden. Besteht eine Verbindung zum Internet?</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>Unexpected Error</source>
        <translation>Unerwarteter Fehler</translation>
    </message>
    <message>
        <source>US Holidays</source>
        <translation>US-Feiertage</translation>
    </message>
    <message>
        <source>US Holidays…</source>
        <translation>US-Feiertage …</translation>
    </message>
    <message>
        <source>US &amp;Holidays…</source>
        <translation>&amp;US-Feiertage …</translation>
    </message>
    <message>
        <source>Velumora &amp;Help</source>
        <translation>Velumora-&amp;Hilfe</translation>
    </message>
    <message>
        <source>Used at present:</source>
        <translation>Jetzt verwendet:</translation>
    </message>
    <message>
        <source>Velumora opens with:</source>
        <translation>Velumora zeigt beim Start:</translation>
    </message>
    <message>
        <source>Velumora &amp;Web Page</source>
        <translation>&amp;Webseite von Velumora</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Week</source>
        <translation>&amp;Woche</translation>
    </message>
    <message>
        <source>Week</source>
        <translation>Woche</translation>
    </message>
    <message>
        <source>Which notes to show</source>
        <translation>Welche Notizen gezeigt werden</translation>
    </message>
    <message>
        <source>Year</source>
        <translation>Jahr</translation>
    </message>
    <message>
        <source>Years</source>
        <translation>Jahre</translation>
    </message>
</context>
</TS>
