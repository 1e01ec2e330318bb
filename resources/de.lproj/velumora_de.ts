<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Velumora</name>
    <message>
        <source>	• TALV was never installed and used on this Mac, so data files weren't created.<byte value="xd"/><byte value="xd"/></source>
        <translation>	• TALV wurde auf diesem Rechner nie benutzt, es gibt also keine Dateien.<byte value="xd"/><byte value="xd"/></translation>
    </message>
    <message>
        <source>	• TALV's data folder exists but its data files are missing.<byte value="xd"/><byte value="xd"/></source>
        <translation>	• Den Ordner von TALV gibt es, aber die Dateien fehlen.<byte value="xd"/><byte value="xd"/></translation>
    </message>
    <message>
        <source>%@ has been selected. Choose an option below to continue.</source>
        <translation>Ausgewählt: %@. Was soll geschehen?</translation>
    </message>
    <message>
        <source>%@ Notes</source>
        <translation>Notizen %@</translation>
    </message>
    <message>
        <source>%@. Notes in the list: %@</source>
        <translation>%@. Notizen in der Liste: %@</translation>
    </message>
    <message>
        <source>%@, today</source>
        <translation>%@, heute</translation>
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
        <source>) is available.</source>
        <translation>) ist verfügbar.</translation>
    </message>
    <message>
        <source>) is the current version.</source>
        <translation>) ist die aktuelle Version.</translation>
    </message>
    <message>
        <source>1. First select the 'TALV' folder. If the TALV folder exists, it should already be selected in this open dialog.<byte value="xd"/><byte value="xd"/></source>
        <translation>1. Den Ordner „TALV“ des älteren Kalenders auswählen.<byte value="xd"/><byte value="xd"/></translation>
    </message>
    <message>
        <source>2. Use the 'Choose' button to grant permission to the TALV files.<byte value="xd"/></source>
        <translation>2. Mit „Auswählen“ den Zugriff auf die Dateien erlauben.<byte value="xd"/></translation>
    </message>
    <message>
        <source>© 2026 the Velumora developers</source>
        <translation>© 2026 die Velumora-Entwickler</translation>
    </message>
    <message>
        <source>** put new date Description here **</source>
        <translation>** Hier die Beschreibung eingeben **</translation>
    </message>
    <message>
        <source>A new version of Velumora (</source>
        <translation>Eine neue Version von Velumora (</translation>
    </message>
    <message>
        <source>&amp;About Velumora</source>
        <translation>Ü&amp;ber Velumora</translation>
    </message>
    <message>
        <source>About Velumora</source>
        <translation>Über Velumora</translation>
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
        <source>Any existing Velumora data will be overwritten, so be prepared.
</source>
        <translation>Was Velumora schon enthält, wird überschrieben.
</translation>
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
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Cancel TALV Data Import</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>&amp;Check for a New Version…</source>
        <translation>Nach &amp;neuer Version suchen …</translation>
    </message>
    <message>
        <source>Choose</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>Click a day and type</source>
        <translation>Einen Tag anklicken und schreiben</translation>
    </message>
    <message>
        <source>Click “Add Date” and describe the day</source>
        <translation>„Tag hinzufügen“ anklicken und den Tag beschreiben</translation>
    </message>
    <message>
        <source>Click and type a note of this day</source>
        <translation>Anklicken und eine Notiz zu diesem Tag schreiben</translation>
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
        <source>Confirm TALV Data Import</source>
        <translation>Daten von TALV importieren</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Could not find TALV's data files( notes or events ).<byte value="xd"/> No import possible.</source>
        <translation>Die Dateien von TALV (Notizen oder wichtige Tage) wurden nicht gefunden.<byte value="xd"/> Ein Import ist nicht möglich.</translation>
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
        <source>Date of %@</source>
        <translation>Datum von %@</translation>
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
        <translation>Tag löschen …</translation>
    </message>
    <message>
        <source>Delete &amp;Important Date…</source>
        <translation>Wichtigen &amp;Tag löschen …</translation>
    </message>
    <message>
        <source>&amp;Delete Note…</source>
        <translation>&amp;Notiz löschen …</translation>
    </message>
    <message>
        <source>Delete Note…</source>
        <translation>Notiz löschen …</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Description of %@</source>
        <translation>Beschreibung zu %@</translation>
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
        <source>Since / Until</source>
        <translation>Abstand zu heute</translation>
    </message>
    <message>
        <source>Enter both, or leave both empty</source>
        <translation>Beide angeben oder beide leer lassen</translation>
    </message>
    <message>
        <source>Existing TALV data remains intact for those running TALV.
</source>
        <translation>Die Daten von TALV bleiben unverändert.
</translation>
    </message>
    <message>
        <source>Failed to post notification</source>
        <translation>Benachrichtigung nicht möglich</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Find Notes…</source>
        <translation>Notizen &amp;suchen …</translation>
    </message>
    <message>
        <source>For week beginning:</source>
        <translation>Woche ab:</translation>
    </message>
    <message>
        <source>Free software under the MIT License, without any warranty</source>
        <translation>Freie Software unter der MIT-Lizenz, ohne jede Gewähr</translation>
    </message>
    <message>
        <source>Go to Velumora web page</source>
        <translation>Zur Webseite von Velumora</translation>
    </message>
    <message>
        <source>Go to web site</source>
        <translation>Nicht jetzt</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Hide All</source>
        <translation>Alle ausblenden</translation>
    </message>
    <message>
        <source>If TALV's data is imported, please be aware of these *impacts*:
</source>
        <translation>Der Import hat diese *Folgen*:
</translation>
    </message>
    <message>
        <source>If the folder and files exist, they should be located at the following path:<byte value="xd"/>/Users/YourUserName/Library/Application Support/TALV<byte value="xd"/><byte value="xd"/></source>
        <translation>Wenn es Ordner und Dateien gibt, liegen sie hier:<byte value="xd"/>/Users/YourUserName/Library/Application Support/TALV<byte value="xd"/><byte value="xd"/></translation>
    </message>
    <message>
        <source>Import Notes and Dates</source>
        <translation>Notizen und wichtige Tage importieren</translation>
    </message>
    <message>
        <source>&amp;Import Notes and Dates…</source>
        <translation>Notizen und wichtige Tage &amp;importieren …</translation>
    </message>
    <message>
        <source>Import TALV's notes &amp; events data?</source>
        <translation>Notizen &amp; wichtige Tage von TALV importieren?</translation>
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
        <source>In degrees; north and east are positive. Used only when
the desktop's location service finds no place.</source>
        <translation>In Grad; Norden und Osten sind positiv. Gilt nur, wenn
der Ortungsdienst des Systems keinen Ort findet.</translation>
    </message>
    <message>
        <source>It can be downloaded from the Velumora web site. </source>
        <translation>„OK“ öffnet die Velumora-Website, auf der sie zu haben ist. </translation>
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
main city of your time zone</source>
        <translation>Breite %@°, Länge %@°
Hauptort Ihrer Zeitzone</translation>
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
        <translation>Minikalender-Monat</translation>
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
        <source>Need User Permission to post a notification for %@<byte value="xd"/><byte value="xd"/>%@<byte value="xd"/><byte value="xd"/>Recommend granting permission in System Preferences</source>
        <translation>Für die Benachrichtigung am %@ fehlt die Erlaubnis<byte value="xd"/><byte value="xd"/>%@<byte value="xd"/><byte value="xd"/>Bitte Benachrichtigungen in den Systemeinstellungen erlauben</translation>
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
        <source>Next Week</source>
        <translation>Nächste Woche</translation>
    </message>
    <message>
        <source>Next Wee&amp;k</source>
        <translation>Nächs&amp;te Woche</translation>
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
        <translation>Hier stehen keine Notizen</translation>
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
        <source>Note of %@</source>
        <translation>Notiz für %@</translation>
    </message>
    <message>
        <source>Note Added/Appended</source>
        <translation>Notiz ergänzt</translation>
    </message>
    <message>
        <source>Note not selected, please try again</source>
        <translation>Keine Notiz ausgewählt, bitte noch einmal versuchen</translation>
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
        <source>Notes found: %@</source>
        <translation>Gefundene Notizen: %@</translation>
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
        <translation>Notizen des v&amp;orherigen Monats</translation>
    </message>
    <message>
        <source>Notes of the Previous Month</source>
        <translation>Notizen des vorherigen Monats</translation>
    </message>
    <message>
        <source>Notes TableView</source>
        <translation>Tabelle der Notizen</translation>
    </message>
    <message>
        <source>Notification failed to schedule for the following:</source>
        <translation>Diese Erinnerung konnte nicht vorgemerkt werden:</translation>
    </message>
    <message>
        <source>of important note for %@ ?</source>
        <translation>Wichtiger Tag: %@</translation>
    </message>
    <message>
        <source>of note for<byte value="xd"/> %@</source>
        <translation>Notiz vom<byte value="xd"/> %@</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Open this month as a PDF to print or keep</source>
        <translation>Diesen Monat als PDF öffnen, zum Drucken oder Aufbewahren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>Please confirm deletion</source>
        <translation>Diesen Eintrag wirklich löschen?</translation>
    </message>
    <message>
        <source>Please select a row with an Important Date on it</source>
        <translation>Bitte eine Zeile mit einem wichtigen Tag auswählen</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Pr&amp;eferences…</source>
        <translation>E&amp;instellungen …</translation>
    </message>
    <message>
        <source>Press Button to Select Date</source>
        <translation>Anklicken, um das Datum auszuwählen</translation>
    </message>
    <message>
        <source>&amp;Previous Month</source>
        <translation>&amp;Vorheriger Monat</translation>
    </message>
    <message>
        <source>Previous Month</source>
        <translation>Vorheriger Monat</translation>
    </message>
    <message>
        <source>Previous Week</source>
        <translation>Vorherige Woche</translation>
    </message>
    <message>
        <source>Previo&amp;us Week</source>
        <translation>Vorherige Woch&amp;e</translation>
    </message>
    <message>
        <source>Previous &amp;Year</source>
        <translation>Vorheriges &amp;Jahr</translation>
    </message>
    <message>
        <source>Previous Year</source>
        <translation>Vorheriges Jahr</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>Dr&amp;ucken …</translation>
    </message>
    <message>
        <source>Print…</source>
        <translation>Drucken …</translation>
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
        <source>Remind me about this note via the System Notification Center on: %@</source>
        <translation>Mit einer Benachrichtigung an diese Notiz erinnern: %@</translation>
    </message>
    <message>
        <source>Reminder '%@'<byte value="xd"/><byte value="xd"/>scheduled for date: %@</source>
        <translation>Erinnerung „%@“<byte value="xd"/><byte value="xd"/>vorgemerkt für: %@</translation>
    </message>
    <message>
        <source>Reminders can be scheduled only for future dates. Try again.</source>
        <translation>Erinnerungen sind nur für künftige Tage möglich.</translation>
    </message>
    <message>
        <source>Rise/Set:</source>
        <translation>Sonne auf/unter:</translation>
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
        <source>Not saved since %@: %@</source>
        <translation>Seit %@ nicht gespeichert: %@</translation>
    </message>
    <message>
        <source>the disk is full</source>
        <translation>Die Festplatte ist voll</translation>
    </message>
    <message>
        <source>the file is too large for the disk</source>
        <translation>Die Datei ist zu groß für die Festplatte</translation>
    </message>
    <message>
        <source>the disk can only be read</source>
        <translation>Die Festplatte kann nur gelesen werden</translation>
    </message>
    <message>
        <source>the folder of the notes may not be written to</source>
        <translation>In den Ordner der Notizen darf nicht geschrieben werden</translation>
    </message>
    <message>
        <source>the folder of the notes is not there</source>
        <translation>Der Ordner der Notizen ist nicht da</translation>
    </message>
    <message>
        <source>the disk could not be written to</source>
        <translation>Die Festplatte konnte nicht beschrieben werden</translation>
    </message>
    <message>
        <source>Velumora ended before this was saved</source>
        <translation>Velumora wurde beendet, bevor dies gespeichert war</translation>
    </message>
    <message>
        <source>%@: %@</source>
        <translation>%@: %@</translation>
    </message>
    <message>
        <source>%@: deleted</source>
        <translation>%@: gelöscht</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Behalten</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation>Nicht jetzt</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Notes are being saved</source>
        <translation>Notizen werden gespeichert</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>No note contains “%@”</source>
        <translation>Keine Notiz enthält „%@“</translation>
    </message>
    <message>
        <source>Notes of this month shown: %@ of %@</source>
        <translation>Angezeigte Notizen dieses Monats: %@ von %@</translation>
    </message>
    <message>
        <source>Notes of this week shown: %@ of %@</source>
        <translation>Angezeigte Notizen dieser Woche: %@ von %@</translation>
    </message>
    <message>
        <source>Search notes</source>
        <translation>Notizen durchsuchen</translation>
    </message>
    <message>
        <source>Show All Notes</source>
        <translation>Alle Notizen anzeigen</translation>
    </message>
    <message>
        <source>Show every note in the list, the week and the month</source>
        <translation>Jede Notiz in Liste, Woche und Monat anzeigen</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>A&amp;lles auswählen</translation>
    </message>
    <message>
        <source>Show All</source>
        <translation>Alle anzeigen</translation>
    </message>
    <message>
        <source>Show &amp;Data Folder</source>
        <translation>&amp;Datenordner öffnen</translation>
    </message>
    <message>
        <source>Show Note</source>
        <translation>Notiz anzeigen</translation>
    </message>
    <message>
        <source>Show or Hide &amp;All Notes</source>
        <translation>Alle Notizen an&amp;zeigen oder ausblenden</translation>
    </message>
    <message>
        <source>Show the current month on the mini calendar</source>
        <translation>Den aktuellen Monat im Minikalender anzeigen</translation>
    </message>
    <message>
        <source>Show the notes that contain this text</source>
        <translation>Die Notizen anzeigen, die diesen Text enthalten</translation>
    </message>
    <message>
        <source>Sorry, Velumora requires Mac OS X version %d.%d or later.</source>
        <translation>Velumora benötigt leider Mac OS X Version %d.%d oder neuer.</translation>
    </message>
    <message>
        <source>Sunrise and sunset at:</source>
        <translation>Sonnenauf- und -untergang:</translation>
    </message>
    <message>
        <source>tableView:heightOfRow failure</source>
        <translation>Die Zeilenhöhe ließ sich nicht bestimmen</translation>
    </message>
    <message>
        <source>Thanks for letting me know. I'll look for my TALV data or enter myself</source>
        <translation>Danke, ich suche meine Daten von TALV oder gebe sie selbst ein</translation>
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
        <source>The Notification Center message is for the following date and note:</source>
        <translation>Die Benachrichtigung gehört zu diesem Tag und dieser Notiz:</translation>
    </message>
    <message>
        <source>The Velumora web site could not be contacted.</source>
        <translation>Die Velumora-Website ist nicht erreichbar.</translation>
    </message>
    <message>
        <source>The week starts on:</source>
        <translation>Die Woche beginnt am:</translation>
    </message>
    <message>
        <source>There is no undo from the import. Backups make good sense. Hint

</source>
        <translation>Der Import lässt sich nicht rückgängig machen. Eine Sicherung ist ratsam.

</translation>
    </message>
    <message>
        <source>This usually means one of the following:<byte value="xd"/><byte value="xd"/></source>
        <translation>Meist hat das einen dieser Gründe:<byte value="xd"/><byte value="xd"/></translation>
    </message>
    <message>
        <source>This version of Velumora (</source>
        <translation>Diese Version von Velumora (</translation>
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
        <translation>US-Feiertage …</translation>
    </message>
    <message>
        <source>US &amp;Holidays…</source>
        <translation>&amp;US-Feiertage …</translation>
    </message>
    <message>
        <source>In use now:</source>
        <translation>Derzeit verwendet:</translation>
    </message>
    <message>
        <source>Velumora &amp;Help</source>
        <translation>Velumora-&amp;Hilfe</translation>
    </message>
    <message>
        <source>Velumora is attempting to respond to a Notification Center message but cannot.</source>
        <translation>Velumora findet die Notiz zu dieser Benachrichtigung nicht.</translation>
    </message>
    <message>
        <source>Velumora is running but does not answer.</source>
        <translation>Velumora läuft bereits, antwortet aber nicht.</translation>
    </message>
    <message>
        <source>Velumora needs permission to access your TALV data files.<byte value="xd"/></source>
        <translation>Velumora braucht Zugriff auf die Dateien von TALV.<byte value="xd"/></translation>
    </message>
    <message>
        <source>Velumora opens with:</source>
        <translation>Velumora zeigt beim Start:</translation>
    </message>
    <message>
        <source>Velumora Reminder</source>
        <translation>Velumora-Erinnerung</translation>
    </message>
    <message>
        <source>Velumora &amp;Web Page</source>
        <translation>&amp;Webseite von Velumora</translation>
    </message>
    <message>
        <source>Version check failed.</source>
        <translation>Die Versionsprüfung ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>Version %@</source>
        <translation>Version %@</translation>
    </message>
    <message>
        <source>Wait until it does, or end it, then start Velumora again.</source>
        <translation>Abwarten, bis es antwortet, oder es beenden und Velumora dann neu starten.</translation>
    </message>
    <message>
        <source>Warning: No Notes Data Found in 'respondWithContent:'</source>
        <translation>Keine Notizen gefunden</translation>
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
        <source>When the Notification Center reminder appears, click on it to open the note with Velumora</source>
        <translation>Wenn die Erinnerung erscheint, öffnet ein Klick auf sie die Notiz in Velumora</translation>
    </message>
    <message>
        <source>Which notes to show</source>
        <translation>Welche Notizen angezeigt werden</translation>
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
