<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>CSVExporter</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Invoice Number</source>
        <translation>Rechnungsnummer</translation>
    </message>
    <message>
        <source>Net</source>
        <translation>Netto</translation>
    </message>
    <message>
        <source>VAT</source>
        <translation>USt.</translation>
    </message>
    <message>
        <source>Gross</source>
        <translation>Brutto</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>Währung</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
</context>
<context>
    <name>Choices</name>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>VAT Reverse Charge</source>
        <translation>Reverse Charge</translation>
    </message>
    <message>
        <source>VAT Exemption Small Business</source>
        <translation>Kleinunternehmer</translation>
    </message>
    <message>
        <source>VAT Exemption Educational Services</source>
        <translation>Bildungsleistungen</translation>
    </message>
    <message>
        <source>VAT Exemption Medical Services</source>
        <translation>Heilbehandlungen</translation>
    </message>
    <message>
        <source>VAT Exemption Insurance Financial</source>
        <translation>Versicherungen, Finanzen</translation>
    </message>
    <message>
        <source>VAT Exemption Residential Rental</source>
        <translation>Wohnraumvermietung</translation>
    </message>
    <message>
        <source>English</source>
        <translation>Englisch</translation>
    </message>
    <message>
        <source>German</source>
        <translation>Deutsch</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Hell</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message>
        <source>PDF</source>
        <translation>PDF</translation>
    </message>
    <message>
        <source>ZUGFeRD PDF</source>
        <translation>ZUGFeRD-PDF</translation>
    </message>
    <message>
        <source>XRechnung</source>
        <translation>XRechnung</translation>
    </message>
    <message>
        <source>HTML</source>
        <translation>HTML</translation>
    </message>
    <message>
        <source>Daily</source>
        <translation>Täglich</translation>
    </message>
    <message>
        <source>Every 3 Days</source>
        <translation>Alle 3 Tage</translation>
    </message>
    <message>
        <source>Weekly</source>
        <translation>Wöchentlich</translation>
    </message>
    <message>
        <source>Monthly</source>
        <translation>Monatlich</translation>
    </message>
    <message>
        <source>10 Backups</source>
        <translation>10 Sicherungen</translation>
    </message>
    <message>
        <source>20 Backups</source>
        <translation>20 Sicherungen</translation>
    </message>
    <message>
        <source>30 Backups</source>
        <translation>30 Sicherungen</translation>
    </message>
    <message>
        <source>50 Backups</source>
        <translation>50 Sicherungen</translation>
    </message>
    <message>
        <source>100 Backups</source>
        <translation>100 Sicherungen</translation>
    </message>
    <message>
        <source>All Backups</source>
        <translation>Alle Sicherungen</translation>
    </message>
    <message>
        <source>Yearly</source>
        <translation>Jährlich</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Nie</translation>
    </message>
    <message>
        <source>A4</source>
        <translation>A4</translation>
    </message>
    <message>
        <source>US Letter</source>
        <translation>US Letter</translation>
    </message>
    <message>
        <source>Most Important Info</source>
        <translation>Wichtigste Angaben</translation>
    </message>
    <message>
        <source>Labels</source>
        <translation>Beschriftungen</translation>
    </message>
    <message>
        <source>Logo</source>
        <translation>Logo</translation>
    </message>
    <message>
        <source>Headline</source>
        <translation>Überschrift</translation>
    </message>
    <message>
        <source>Dots</source>
        <translation>Punkte</translation>
    </message>
    <message>
        <source>Frame</source>
        <translation>Rahmen</translation>
    </message>
    <message>
        <source>Single</source>
        <translation>Einfach</translation>
    </message>
    <message>
        <source>Double</source>
        <translation>Doppelt</translation>
    </message>
    <message>
        <source>Dotted</source>
        <translation>Gepunktet</translation>
    </message>
    <message>
        <source>Dashed</source>
        <translation>Gestrichelt</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Forest</source>
        <translation>Wald</translation>
    </message>
    <message>
        <source>Paper</source>
        <translation>Papier</translation>
    </message>
</context>
<context>
    <name>ConsoleText</name>
    <message>
        <source>Error saving invoice: %1</source>
        <translation>Die Rechnung konnte nicht gespeichert werden: %1</translation>
    </message>
    <message>
        <source>Error saving reminder: %1</source>
        <translation>Die Mahnung konnte nicht gespeichert werden: %1</translation>
    </message>
    <message>
        <source>Error saving styling: %1</source>
        <translation>Der Stil konnte nicht gespeichert werden: %1</translation>
    </message>
    <message>
        <source>Error saving profile: %1</source>
        <translation>Das Profil konnte nicht gespeichert werden: %1</translation>
    </message>
    <message>
        <source>Error renaming profile folder: %1</source>
        <translation>Der Ordner des Profils konnte nicht umbenannt werden: %1</translation>
    </message>
    <message>
        <source>Error loading invoices: %1</source>
        <translation>Die Rechnungen konnten nicht geladen werden: %1</translation>
    </message>
    <message>
        <source>Error loading invoice from %1: %2</source>
        <translation>Die Rechnung in %1 konnte nicht geladen werden: %2</translation>
    </message>
    <message>
        <source>Error loading reminder from %1: %2</source>
        <translation>Die Mahnung in %1 konnte nicht geladen werden: %2</translation>
    </message>
    <message>
        <source>Error loading profiles: %1</source>
        <translation>Die Profile konnten nicht geladen werden: %1</translation>
    </message>
    <message>
        <source>Error loading profile from %1: %2</source>
        <translation>Das Profil in %1 konnte nicht geladen werden: %2</translation>
    </message>
    <message>
        <source>Error loading styling from %1: %2</source>
        <translation>Der Stil in %1 konnte nicht geladen werden: %2</translation>
    </message>
    <message>
        <source>Error loading logo content: %1</source>
        <translation>Das Logo konnte nicht geladen werden: %1</translation>
    </message>
    <message>
        <source>Error loading CSS content: %1</source>
        <translation>Das Stylesheet konnte nicht geladen werden: %1</translation>
    </message>
    <message>
        <source>%1: a second file of the record in %2; it is left as it is</source>
        <translation>%1: eine zweite Datei des Belegs in %2; sie bleibt, wie sie ist</translation>
    </message>
    <message>
        <source>BackupManager: Backup failed: %1</source>
        <translation>Die Datensicherung ist fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>Failed to create PDF: %1</source>
        <translation>Das PDF konnte nicht erstellt werden: %1</translation>
    </message>
    <message>
        <source>Error saving profile: directory not found</source>
        <translation>Das Profil konnte nicht gespeichert werden: sein Ordner ist nicht da</translation>
    </message>
    <message>
        <source>Error renaming profile folder: source not found</source>
        <translation>Der Ordner des Profils konnte nicht umbenannt werden: er ist nicht da</translation>
    </message>
    <message>
        <source>Error renaming profile folder: destination already exists</source>
        <translation>Der Ordner des Profils konnte nicht umbenannt werden: einen Ordner dieses Namens gibt es schon</translation>
    </message>
    <message>
        <source>BackupManager: Failed to remove excess backups: %1</source>
        <translation>Die ältesten Datensicherungen konnten nicht entfernt werden: %1</translation>
    </message>
    <message>
        <source>a profile needs a name</source>
        <translation>ein Profil braucht einen Namen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be a profile&apos;s name: it names a folder</source>
        <translation>„%1“ kann kein Profilname sein: Er ist auch der Name eines Ordners</translation>
    </message>
    <message>
        <source>the name is too long for a folder</source>
        <translation>der Name ist zu lang für einen Ordner</translation>
    </message>
    <message>
        <source>the profile has no folder</source>
        <translation>das Profil hat keinen Ordner</translation>
    </message>
    <message>
        <source>the last profile cannot be deleted</source>
        <translation>das letzte Profil lässt sich nicht löschen</translation>
    </message>
    <message>
        <source>no such file</source>
        <translation>Datei oder Ordner fehlt</translation>
    </message>
    <message>
        <source>the folder is gone</source>
        <translation>der Ordner ist verschwunden</translation>
    </message>
    <message>
        <source>the folder cannot be made</source>
        <translation>der Ordner kann nicht angelegt werden</translation>
    </message>
</context>
<context>
    <name>DocumentLook</name>
    <message>
        <source>Classic</source>
        <translation>Klassisch</translation>
    </message>
    <message>
        <source>A serif letter with figures that stand in columns</source>
        <translation>Serifenschrift, Ziffern genau untereinander</translation>
    </message>
    <message>
        <source>Letter</source>
        <translation>Brief</translation>
    </message>
    <message>
        <source>One typeface, fine lines and nothing at the margin</source>
        <translation>Eine Schrift, feine Linien, nichts am Rand</translation>
    </message>
    <message>
        <source>Studio</source>
        <translation>Studio</translation>
    </message>
    <message>
        <source>Typewriter</source>
        <translation>Schreibmaschine</translation>
    </message>
    <message>
        <source>All in one width, with dots behind it</source>
        <translation>Eine Schrift fester Breite auf gepunktetem Grund</translation>
    </message>
    <message>
        <source>A heavy headline in color, within a frame</source>
        <translation>Eine kräftige farbige Überschrift in einem Rahmen</translation>
    </message>
</context>
<context>
    <name>ExportFlow</name>
    <message>
        <source>Export as PDF</source>
        <translation>Als PDF exportieren</translation>
    </message>
    <message>
        <source>Export as ZUGFeRD PDF</source>
        <translation>Als ZUGFeRD-PDF exportieren</translation>
    </message>
    <message>
        <source>Export as XRechnung</source>
        <translation>Als XRechnung exportieren</translation>
    </message>
    <message>
        <source>Export as HTML</source>
        <translation>Als HTML exportieren</translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>und %n weiterer</numerusform>
            <numerusform>und %n weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>Exported: %1</source>
        <translation>Exportiert: %1</translation>
    </message>
    <message numerus="yes">
        <source>%n documents exported</source>
        <translation>
            <numerusform>%n Beleg exportiert</numerusform>
            <numerusform>%n Belege exportiert</numerusform>
        </translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Zeigen</translation>
    </message>
    <message>
        <source>ZUGFeRD Export Failed</source>
        <translation>ZUGFeRD-Export fehlgeschlagen</translation>
    </message>
    <message>
        <source>Export cancelled</source>
        <translation>Export abgebrochen</translation>
    </message>
    <message>
        <source>“%1” exists already.</source>
        <translation>„%1“ ist bereits vorhanden.</translation>
    </message>
    <message numerus="yes">
        <source>%n of the files exist already.</source>
        <translation>
            <numerusform>%n der Dateien ist bereits vorhanden.</numerusform>
            <numerusform>%n der Dateien sind bereits vorhanden.</numerusform>
        </translation>
    </message>
    <message>
        <source>Replacing a file in “%1” overwrites what is in it.</source>
        <translation>Beim Ersetzen einer Datei in „%1“ wird ihr Inhalt überschrieben.</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Keep Both</source>
        <translation>Beide behalten</translation>
    </message>
    <message numerus="yes">
        <source>%n documents were not exported:</source>
        <translation>
            <numerusform>%n Beleg wurde nicht exportiert:</numerusform>
            <numerusform>%n Belege wurden nicht exportiert:</numerusform>
        </translation>
    </message>
    <message>
        <source>Before you send them:</source>
        <translation>Vor dem Versenden:</translation>
    </message>
</context>
<context>
    <name>FailureTexts</name>
    <message>
        <source>Could not open the selected PDF.</source>
        <translation>Das ausgewählte PDF konnte nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>Only PDFs exported by Ledra can be reimported.</source>
        <translation>Nur von Ledra exportierte PDFs können wieder importiert werden.</translation>
    </message>
    <message>
        <source>There is already another version of this invoice. If you still want to import it, you must first delete the existing one.</source>
        <translation>Es gibt bereits eine andere Version dieser Rechnung. Wenn Sie sie trotzdem importieren möchten, müssen Sie zuerst die vorhandene löschen.</translation>
    </message>
    <message>
        <source>Could not read the selected XML file.</source>
        <translation>Die ausgewählte Datei konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <source>This file does not appear to be a valid e-invoice.</source>
        <translation>Diese Datei scheint keine gültige E-Rechnung zu sein.</translation>
    </message>
    <message>
        <source>The selected file is not a valid Ledra Data file.</source>
        <translation>Die ausgewählte Datei ist keine gültige Ledra-Datendatei.</translation>
    </message>
    <message>
        <source>Failed to extract the Ledra Data file.</source>
        <translation>Die Ledra-Datendatei konnte nicht entpackt werden.</translation>
    </message>
    <message>
        <source>No valid profiles found in the Ledra Data file.</source>
        <translation>In der Ledra-Datendatei wurden keine gültigen Profile gefunden.</translation>
    </message>
    <message>
        <source>Profile has no name</source>
        <translation>Das Profil hat keinen Namen</translation>
    </message>
    <message>
        <source>Profile directory not found: </source>
        <translation>Profilordner nicht gefunden: </translation>
    </message>
    <message>
        <source>The selected file is not a valid Style file.</source>
        <translation>Die ausgewählte Datei ist keine gültige Stildatei.</translation>
    </message>
    <message>
        <source>Failed to extract the Style file.</source>
        <translation>Die Stildatei konnte nicht entpackt werden.</translation>
    </message>
    <message>
        <source>The Style file doesn’t contain any styling.</source>
        <translation>Die Stildatei enthält keine Gestaltung.</translation>
    </message>
    <message>
        <source>The profile could not be found.</source>
        <translation>Das Profil wurde nicht gefunden.</translation>
    </message>
    <message>
        <source>This profile has no styling to export yet.</source>
        <translation>Dieses Profil hat noch keine Gestaltung, die exportiert werden könnte.</translation>
    </message>
    <message>
        <source>Failed to create the Style file.</source>
        <translation>Die Stildatei konnte nicht erstellt werden.</translation>
    </message>
</context>
<context>
    <name>FilePanels</name>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
</context>
<context>
    <name>FontFaces</name>
    <message>
        <source>Extra Light</source>
        <translation>Extraleicht</translation>
    </message>
    <message>
        <source>Ultra Light</source>
        <translation>Ultraleicht</translation>
    </message>
    <message>
        <source>Semi Condensed</source>
        <translation>Halbschmal</translation>
    </message>
    <message>
        <source>Semi Bold</source>
        <translation>Halbfett</translation>
    </message>
    <message>
        <source>Demi Bold</source>
        <translation>Halbfett</translation>
    </message>
    <message>
        <source>Extra Bold</source>
        <translation>Extrafett</translation>
    </message>
    <message>
        <source>Ultra Bold</source>
        <translation>Ultrafett</translation>
    </message>
    <message>
        <source>Thin</source>
        <translation>Dünn</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Leicht</translation>
    </message>
    <message>
        <source>Regular</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>Book</source>
        <translation>Buch</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>Mittel</translation>
    </message>
    <message>
        <source>Semibold</source>
        <translation>Halbfett</translation>
    </message>
    <message>
        <source>Bold</source>
        <translation>Fett</translation>
    </message>
    <message>
        <source>Heavy</source>
        <translation>Extrafett</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>Schwarz</translation>
    </message>
    <message>
        <source>Italic</source>
        <translation>Kursiv</translation>
    </message>
    <message>
        <source>Oblique</source>
        <translation>Schräg</translation>
    </message>
    <message>
        <source>Condensed</source>
        <translation>Schmal</translation>
    </message>
</context>
<context>
    <name>HelpCommands</name>
    <message>
        <source>No program for e-mail could be opened.</source>
        <translation>Es konnte kein E-Mail-Programm geöffnet werden.</translation>
    </message>
    <message>
        <source>What happened, and what did you expect?</source>
        <translation>Was ist geschehen, und was haben Sie erwartet?</translation>
    </message>
    <message>
        <source>Problem with Ledra</source>
        <translation>Problem mit Ledra</translation>
    </message>
    <message>
        <source>Terms of Use</source>
        <translation>Nutzungsbedingungen</translation>
    </message>
    <message>
        <source>Privacy Policy</source>
        <translation>Datenschutz</translation>
    </message>
    <message>
        <source>About Ledra</source>
        <translation>Über Ledra</translation>
    </message>
    <message>
        <source>Invoicing for freelancers and small firms.</source>
        <translation>Rechnungen für Freiberufler und kleine Firmen.</translation>
    </message>
    <message>
        <source>Your data are plain files on your own computer.</source>
        <translation>Ihre Daten sind einfache Dateien auf Ihrem eigenen Computer.</translation>
    </message>
</context>
<context>
    <name>IdentifierChecks</name>
    <message>
        <source>An IBAN begins with two letters and two digits: DE89 3704 0044 0532 0130 00</source>
        <translation>Eine IBAN beginnt mit zwei Buchstaben und zwei Ziffern: DE89 3704 0044 0532 0130 00</translation>
    </message>
    <message>
        <source>IBANs of this country have another length</source>
        <translation>IBANs dieses Landes haben eine andere Länge</translation>
    </message>
    <message>
        <source>The check digits do not fit: a character is wrong, or two are swapped</source>
        <translation>Die Prüfziffern passen nicht: Ein Zeichen ist falsch, oder zwei sind vertauscht</translation>
    </message>
    <message>
        <source>A BIC has 8 or 11 letters and digits: COBADEFFXXX</source>
        <translation>Eine BIC hat 8 oder 11 Buchstaben und Ziffern: COBADEFFXXX</translation>
    </message>
    <message>
        <source>The fifth and sixth letter name no country</source>
        <translation>Der fünfte und sechste Buchstabe nennen kein Land</translation>
    </message>
    <message>
        <source>German tax numbers have 10 to 13 digits: 29/815/08154</source>
        <translation>Deutsche Steuernummern haben 10 bis 13 Ziffern: 29/815/08154</translation>
    </message>
    <message>
        <source>A VAT ID begins with the letters of its country</source>
        <translation>Eine USt-IdNr. beginnt mit den Buchstaben ihres Landes</translation>
    </message>
    <message>
        <source>VAT IDs of this country look different</source>
        <translation>USt-IdNrn. dieses Landes sehen anders aus</translation>
    </message>
    <message>
        <source>The check digit does not fit: a character is wrong, or two are swapped</source>
        <translation>Die Prüfziffer passt nicht: Ein Zeichen ist falsch, oder zwei sind vertauscht</translation>
    </message>
</context>
<context>
    <name>MissingFields</name>
    <message>
        <source>The following required fields for e-invoices are empty:</source>
        <translation>Die folgenden Pflichtfelder für E-Rechnungen sind leer:</translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>und %n weiterer</numerusform>
            <numerusform>und %n weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>The exported invoices may not be valid.</source>
        <translation>Die exportierten Rechnungen sind möglicherweise nicht gültig.</translation>
    </message>
    <message>
        <source>Description for item %1</source>
        <translation>Beschreibung von Posten %1</translation>
    </message>
    <message>
        <source>The exported invoice may not be valid.</source>
        <translation>Die exportierte Rechnung ist möglicherweise nicht gültig.</translation>
    </message>
    <message>
        <source>Missing Required Fields</source>
        <translation>Pflichtfelder fehlen</translation>
    </message>
    <message>
        <source>Sender name</source>
        <translation>Name des Absenders</translation>
    </message>
    <message>
        <source>Sender email</source>
        <translation>E-Mail des Absenders</translation>
    </message>
    <message>
        <source>Sender phone number</source>
        <translation>Telefonnummer des Absenders</translation>
    </message>
    <message>
        <source>Sender postcode</source>
        <translation>Postleitzahl des Absenders</translation>
    </message>
    <message>
        <source>Sender city</source>
        <translation>Ort des Absenders</translation>
    </message>
    <message>
        <source>Sender IBAN</source>
        <translation>IBAN des Absenders</translation>
    </message>
    <message>
        <source>Sender BIC</source>
        <translation>BIC des Absenders</translation>
    </message>
    <message>
        <source>Recipient name</source>
        <translation>Name des Empfängers</translation>
    </message>
    <message>
        <source>Recipient email</source>
        <translation>E-Mail des Empfängers</translation>
    </message>
    <message>
        <source>Recipient postcode</source>
        <translation>Postleitzahl des Empfängers</translation>
    </message>
    <message>
        <source>Recipient city</source>
        <translation>Ort des Empfängers</translation>
    </message>
    <message>
        <source>Sender tax number or VAT ID</source>
        <translation>Steuernummer oder USt-IdNr. des Absenders</translation>
    </message>
    <message>
        <source>At least one invoice item</source>
        <translation>Mindestens ein Posten</translation>
    </message>
</context>
<context>
    <name>NumberFormatChecks</name>
    <message>
        <source>An empty format is not kept: the one before stays in force</source>
        <translation>Ein leeres Format wird nicht übernommen: Das vorige gilt weiter</translation>
    </message>
    <message>
        <source>Without “Number” all invoices have the same number</source>
        <translation>Ohne „Nummer“ haben alle Rechnungen dieselbe Nummer</translation>
    </message>
    <message>
        <source>Numbers begin anew each year: without the year they repeat</source>
        <translation>Die Zählung beginnt jedes Jahr neu: Ohne das Jahr wiederholen sich die Nummern</translation>
    </message>
    <message>
        <source>“%1” is no variable and is printed as it stands</source>
        <translation>„%1“ ist keine Variable und wird so gedruckt, wie es dasteht</translation>
    </message>
</context>
<context>
    <name>NumberFormatChips</name>
    <message>
        <source>Year</source>
        <translation>Jahr</translation>
    </message>
    <message>
        <source>Month</source>
        <translation>Monat</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Tag</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Number %1</source>
        <translation>Nummer %1</translation>
    </message>
    <message>
        <source>Per-Invoice Variable</source>
        <translation>Variable je Rechnung</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
</context>
<context>
    <name>OutputSaving</name>
    <message>
        <source>All Files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message numerus="yes">
        <source>%n of the files exist already.</source>
        <translation>
            <numerusform>%n der Dateien gibt es schon.</numerusform>
            <numerusform>%n der Dateien gibt es schon.</numerusform>
        </translation>
    </message>
    <message>
        <source>Replacing a file in “%1” overwrites what is in it.</source>
        <translation>Beim Ersetzen einer Datei in „%1“ wird ihr Inhalt überschrieben.</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Keep Both</source>
        <translation>Beide behalten</translation>
    </message>
</context>
<context>
    <name>PluginWords</name>
    <message>
        <source>Export Selected…</source>
        <translation>Auswahl exportieren…</translation>
    </message>
    <message>
        <source>Export Selected in One File…</source>
        <translation>Auswahl in eine Datei exportieren…</translation>
    </message>
    <message>
        <source>Export All in One File…</source>
        <translation>Alle in eine Datei exportieren…</translation>
    </message>
    <message>
        <source>Import from File…</source>
        <translation>Aus Datei importieren…</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Update Selected</source>
        <translation>Auswahl aktualisieren</translation>
    </message>
    <message>
        <source>Update All</source>
        <translation>Alle aktualisieren</translation>
    </message>
    <message>
        <source>Update All from File…</source>
        <translation>Alle aus Datei aktualisieren…</translation>
    </message>
    <message>
        <source>exports single invoices</source>
        <translation>exportiert einzelne Rechnungen</translation>
    </message>
    <message>
        <source>exports lists of invoices</source>
        <translation>exportiert Listen von Rechnungen</translation>
    </message>
    <message>
        <source>imports invoices</source>
        <translation>importiert Rechnungen</translation>
    </message>
    <message>
        <source>updates invoices</source>
        <translation>aktualisiert Rechnungen</translation>
    </message>
    <message>
        <source>Updates invoices when the window opens</source>
        <translation>Aktualisiert Rechnungen, wenn das Fenster geöffnet wird</translation>
    </message>
    <message>
        <source>May call your own script LedraConnector.scpt</source>
        <translation>Darf Ihr eigenes Skript LedraConnector.scpt aufrufen</translation>
    </message>
    <message>
        <source>%1 (not known to this Ledra)</source>
        <translation>%1 (dieser Ledra-Version unbekannt)</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>nichts</translation>
    </message>
    <message numerus="yes">
        <source>Updates invoices every %n minutes while the window is open</source>
        <translation>
            <numerusform>Aktualisiert Rechnungen jede Minute, solange das Fenster offen ist</numerusform>
            <numerusform>Aktualisiert Rechnungen alle %n Minuten, solange das Fenster offen ist</numerusform>
        </translation>
    </message>
    <message>
        <source>By %1</source>
        <translation>Von %1</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Version %1 by %2</source>
        <translation>Version %1 von %2</translation>
    </message>
</context>
<context>
    <name>ProfileExport</name>
    <message>
        <source>Export Failed</source>
        <translation>Export fehlgeschlagen</translation>
    </message>
    <message>
        <source>Exported: %1</source>
        <translation>Exportiert: %1</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Zeigen</translation>
    </message>
    <message>
        <source>Ledra Data (*%1)</source>
        <translation>Ledra-Daten (*%1)</translation>
    </message>
    <message>
        <source>Export All Profiles</source>
        <translation>Alle Profile exportieren</translation>
    </message>
    <message>
        <source>Export Profile</source>
        <translation>Profil exportieren</translation>
    </message>
</context>
<context>
    <name>ProfileForms</name>
    <message>
        <source>Person</source>
        <translation>Person</translation>
    </message>
    <message>
        <source>Company</source>
        <translation>Unternehmen</translation>
    </message>
    <message>
        <source>Office</source>
        <translation>Büro</translation>
    </message>
    <message>
        <source>Workshop</source>
        <translation>Werkstatt</translation>
    </message>
    <message>
        <source>Studio</source>
        <translation>Studio</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Kamera</translation>
    </message>
    <message>
        <source>Computer</source>
        <translation>Computer</translation>
    </message>
    <message>
        <source>Book</source>
        <translation>Buch</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Musik</translation>
    </message>
    <message>
        <source>House</source>
        <translation>Haus</translation>
    </message>
    <message>
        <source>Star</source>
        <translation>Stern</translation>
    </message>
    <message>
        <source>Profile Information</source>
        <translation>Profilangaben</translation>
    </message>
    <message>
        <source>Financial Information</source>
        <translation>Finanzangaben</translation>
    </message>
    <message>
        <source>Invoice Numbering</source>
        <translation>Rechnungsnummern</translation>
    </message>
    <message>
        <source>Presets</source>
        <translation>Vorgaben</translation>
    </message>
    <message>
        <source>Reminder</source>
        <translation>Mahnung</translation>
    </message>
    <message>
        <source>Profile name</source>
        <translation>Profilname</translation>
    </message>
    <message>
        <source>Symbol</source>
        <translation>Symbol</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Business</source>
        <translation>Firma</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Postcode</source>
        <translation>PLZ</translation>
    </message>
    <message>
        <source>City</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Bundesland</translation>
    </message>
    <message>
        <source>Country</source>
        <translation>Land</translation>
    </message>
    <message>
        <source>Phone</source>
        <translation>Telefon</translation>
    </message>
    <message>
        <source>Website</source>
        <translation>Website</translation>
    </message>
    <message>
        <source>Additional</source>
        <translation>Zusatz</translation>
    </message>
    <message>
        <source>IBAN</source>
        <translation>IBAN</translation>
    </message>
    <message>
        <source>BIC</source>
        <translation>BIC</translation>
    </message>
    <message>
        <source>Tax number</source>
        <translation>Steuernummer</translation>
    </message>
    <message>
        <source>VAT ID</source>
        <translation>USt-IdNr.</translation>
    </message>
    <message>
        <source>Further numbers</source>
        <translation>Weitere Nummern</translation>
    </message>
    <message>
        <source>Taxed in</source>
        <translation>Steuerpflichtig in</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>Währung</translation>
    </message>
    <message>
        <source>Begins in</source>
        <translation>Startjahr</translation>
    </message>
    <message>
        <source>Any year</source>
        <translation>Beliebig</translation>
    </message>
    <message>
        <source>Number format</source>
        <translation>Nummernformat</translation>
    </message>
    <message>
        <source>Invoice %1, quote %2, cancellation %3</source>
        <translation>Rechnung %1, Angebot %2, Storno %3</translation>
    </message>
    <message>
        <source>Prefix of quotes</source>
        <translation>Präfix für Angebote</translation>
    </message>
    <message>
        <source>Prefix of cancellations</source>
        <translation>Präfix für Stornos</translation>
    </message>
    <message>
        <source>First number</source>
        <translation>Erste Nummer</translation>
    </message>
    <message>
        <source>Begins anew</source>
        <translation>Zählung beginnt neu</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Days to pay</source>
        <translation>Zahlungsziel (Tage)</translation>
    </message>
    <message>
        <source>VAT</source>
        <translation>USt.</translation>
    </message>
    <message>
        <source>Documents without VAT</source>
        <translation>Belege ohne USt.</translation>
    </message>
    <message>
        <source>Exemption</source>
        <translation>Steuerbefreiung</translation>
    </message>
    <message>
        <source>Hourly rate</source>
        <translation>Stundensatz</translation>
    </message>
    <message>
        <source>Daily rate</source>
        <translation>Tagessatz</translation>
    </message>
    <message>
        <source>Weekly rate</source>
        <translation>Wochensatz</translation>
    </message>
    <message>
        <source>Note at the margin</source>
        <translation>Randnotiz</translation>
    </message>
    <message>
        <source>Show documents dark in dark windows</source>
        <translation>Belege in dunklen Fenstern dunkel zeigen</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Empty: the text that Ledra brings along</source>
        <translation>Leer: der Text, den Ledra mitbringt</translation>
    </message>
    <message>
        <source>Begin with a friendly reminder, without interest and fee</source>
        <translation>Mit einer Zahlungserinnerung beginnen, ohne Zinsen und Mahnkosten</translation>
    </message>
    <message>
        <source>Interest</source>
        <translation>Zinsen</translation>
    </message>
    <message>
        <source>% per year</source>
        <translation>% pro Jahr</translation>
    </message>
    <message>
        <source>Fee</source>
        <translation>Mahnkosten</translation>
    </message>
    <message>
        <source>Address 2</source>
        <translation>Adresszeile 2</translation>
    </message>
    <message>
        <source>E-mail</source>
        <translation>E-Mail</translation>
    </message>
    <message>
        <source>Another profile has this name.</source>
        <translation>Ein anderes Profil hat diesen Namen.</translation>
    </message>
</context>
<context>
    <name>ProfileImport</name>
    <message>
        <source>Successfully imported %1 profile(s).</source>
        <translation>%1 Profil(e) erfolgreich importiert.</translation>
    </message>
    <message>
        <source>Failed to import %1 profile(s).</source>
        <translation>%1 Profil(e) konnten nicht importiert werden.</translation>
    </message>
    <message>
        <source>Import Completed with Issues</source>
        <translation>Import mit Problemen abgeschlossen</translation>
    </message>
    <message>
        <source>Use</source>
        <translation>Verwenden</translation>
    </message>
    <message>
        <source>Take Back</source>
        <translation>Zurücknehmen</translation>
    </message>
    <message>
        <source>Choose the Ledra Data file you want to import</source>
        <translation>Wählen Sie die Ledra-Datendatei, die Sie importieren möchten</translation>
    </message>
    <message>
        <source>Ledra Data (*%1)</source>
        <translation>Ledra-Daten (*%1)</translation>
    </message>
    <message>
        <source>Do you want to import profiles from “%1”?</source>
        <translation>Möchten Sie Profile aus „%1“ importieren?</translation>
    </message>
    <message>
        <source>They are added beside the profiles that you have.</source>
        <translation>Sie kommen zu den Profilen hinzu, die Sie haben.</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Import Failed</source>
        <translation>Import fehlgeschlagen</translation>
    </message>
    <message>
        <source>Imported profiles: %1</source>
        <translation>Importierte Profile: %1</translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Ja</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Nein</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
</context>
<context>
    <name>ReceivedFile</name>
    <message>
        <source>Could not read the selected XML file.</source>
        <translation>Die ausgewählte Datei konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <source>This file does not appear to be a valid e-invoice.</source>
        <translation>Diese Datei scheint keine gültige E-Rechnung zu sein.</translation>
    </message>
</context>
<context>
    <name>RecordCommands</name>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Delete invoices that were sent?</source>
        <translation>Versendete Rechnungen löschen?</translation>
    </message>
    <message numerus="yes">
        <source>%n of the selected records left the house already. Others may hold them, and numbers must have no gaps. They can be taken out of the trash again.</source>
        <translation>
            <numerusform>%n der ausgewählten Belege wurde bereits versendet. Andere haben ihn vielleicht schon, und Nummern dürfen keine Lücken haben. Aus dem Papierkorb können Sie ihn zurückholen.</numerusform>
            <numerusform>%n der ausgewählten Belege wurden bereits versendet. Andere haben sie vielleicht schon, und Nummern dürfen keine Lücken haben. Aus dem Papierkorb können Sie sie zurückholen.</numerusform>
        </translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
</context>
<context>
    <name>ReminderHeadline</name>
    <message>
        <source>Friendly Reminder</source>
        <translation>Zahlungserinnerung</translation>
    </message>
    <message>
        <source>Payment Reminder</source>
        <translation>Mahnung</translation>
    </message>
    <message>
        <source>Second Payment Reminder</source>
        <translation>Zweite Mahnung</translation>
    </message>
    <message>
        <source>Final Payment Reminder</source>
        <translation>Letzte Mahnung</translation>
    </message>
</context>
<context>
    <name>ReminderVariable</name>
    <message>
        <source>Recipient</source>
        <translation>Empfänger</translation>
    </message>
    <message>
        <source>Invoice Number</source>
        <translation>Rechnungsnummer</translation>
    </message>
    <message>
        <source>Invoice Date</source>
        <translation>Rechnungsdatum</translation>
    </message>
    <message>
        <source>Amount Due</source>
        <translation>Offener Betrag</translation>
    </message>
    <message>
        <source>Payment Deadline</source>
        <translation>Zahlungsfrist</translation>
    </message>
    <message>
        <source>Due Date</source>
        <translation>Fälligkeit</translation>
    </message>
    <message>
        <source>Interest Amount</source>
        <translation>Zinsbetrag</translation>
    </message>
    <message>
        <source>Interest Rate</source>
        <translation>Zinssatz</translation>
    </message>
    <message>
        <source>Late Payment Fee</source>
        <translation>Mahnkosten</translation>
    </message>
</context>
<context>
    <name>Reminders</name>
    <message>
        <source>It is a draft: nobody has been asked to pay it.</source>
        <translation>Sie ist ein Entwurf: Niemand wurde bisher um Zahlung gebeten.</translation>
    </message>
    <message>
        <source>It has been paid.</source>
        <translation>Sie ist bezahlt.</translation>
    </message>
    <message>
        <source>It has been cancelled.</source>
        <translation>Sie ist storniert.</translation>
    </message>
    <message>
        <source>Create Payment Reminder</source>
        <translation>Mahnung erstellen</translation>
    </message>
    <message>
        <source>This invoice is not overdue.</source>
        <translation>Diese Rechnung ist nicht überfällig.</translation>
    </message>
    <message>
        <source>Create Anyway</source>
        <translation>Trotzdem erstellen</translation>
    </message>
    <message>
        <source>Delete Reminders</source>
        <translation>Mahnungen löschen</translation>
    </message>
    <message numerus="yes">
        <source>%n days</source>
        <translation>
            <numerusform>%n Tag</numerusform>
            <numerusform>%n Tage</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>StatusLook</name>
    <message>
        <source>Draft</source>
        <translation>Entwurf</translation>
    </message>
    <message>
        <source>Sent</source>
        <translation>Versendet</translation>
    </message>
    <message>
        <source>Paid</source>
        <translation>Bezahlt</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Storniert</translation>
    </message>
    <message>
        <source>Overdue</source>
        <translation>Überfällig</translation>
    </message>
</context>
<context>
    <name>StyleExchange</name>
    <message>
        <source>Ledra Style (*%1)</source>
        <translation>Ledra-Stil (*%1)</translation>
    </message>
    <message>
        <source>Export Failed</source>
        <translation>Export fehlgeschlagen</translation>
    </message>
    <message>
        <source>Exported: %1</source>
        <translation>Exportiert: %1</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Zeigen</translation>
    </message>
    <message>
        <source>Import Failed</source>
        <translation>Import fehlgeschlagen</translation>
    </message>
    <message>
        <source>The style of “%1” is in use. “Undo” takes it back.</source>
        <translation>Der Stil aus „%1“ ist in Gebrauch. „Rückgängig“ nimmt ihn zurück.</translation>
    </message>
    <message>
        <source>Export Style</source>
        <translation>Stil exportieren</translation>
    </message>
    <message>
        <source>Choose the Style file you want to import</source>
        <translation>Wählen Sie die Stildatei, die Sie importieren möchten</translation>
    </message>
    <message>
        <source>Do you want to use the style of “%1”?</source>
        <translation>Möchten Sie den Stil von „%1“ verwenden?</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>It replaces fonts, colors, page layout, logo and style sheet of the profile “%1”, for documents of the past as well. An earlier logo and style sheet go to the trash.</source>
        <translation>Er ersetzt Schriften, Farben, Seitenlayout, Logo und Stylesheet des Profils „%1“, auch für frühere Belege. Bisheriges Logo und Stylesheet kommen in den Papierkorb.</translation>
    </message>
</context>
<context>
    <name>TextParser</name>
    <message>
        <source>The on-device model isn’t available right now.</source>
        <translation>Das Modell auf diesem Computer ist gerade nicht verfügbar.</translation>
    </message>
    <message>
        <source>The on-device model is still downloading or preparing. Try again in a little while.</source>
        <translation>Das Modell auf diesem Computer wird noch geladen oder vorbereitet. Versuchen Sie es bald noch einmal.</translation>
    </message>
    <message>
        <source>the model server did not answer with a stream of events</source>
        <translation>Der Modellserver hat nicht mit einem Strom von Ereignissen geantwortet.</translation>
    </message>
    <message>
        <source>the model’s answer was cut off</source>
        <translation>Die Antwort des Modells ist abgebrochen.</translation>
    </message>
    <message>
        <source>name “%1”</source>
        <translation>Name „%1“</translation>
    </message>
    <message>
        <source>business “%1”</source>
        <translation>Firma „%1“</translation>
    </message>
    <message>
        <source>e-mail “%1”</source>
        <translation>E-Mail „%1“</translation>
    </message>
    <message>
        <source>address “%1”</source>
        <translation>Adresse „%1“</translation>
    </message>
    <message>
        <source>address line 2 “%1”</source>
        <translation>Adresszeile 2 „%1“</translation>
    </message>
    <message>
        <source>postcode “%1”</source>
        <translation>PLZ „%1“</translation>
    </message>
    <message>
        <source>city “%1”</source>
        <translation>Ort „%1“</translation>
    </message>
    <message>
        <source>state “%1”</source>
        <translation>Region „%1“</translation>
    </message>
    <message>
        <source>country “%1”</source>
        <translation>Land „%1“</translation>
    </message>
    <message>
        <source>currency “%1”</source>
        <translation>Währung „%1“</translation>
    </message>
    <message>
        <source>start of service “%1”</source>
        <translation>Leistung von „%1“</translation>
    </message>
    <message>
        <source>end of service “%1”</source>
        <translation>Leistung bis „%1“</translation>
    </message>
    <message>
        <source>VAT rate “%1”</source>
        <translation>Steuersatz „%1“</translation>
    </message>
    <message>
        <source>%1 items</source>
        <translation>%1 Positionen</translation>
    </message>
    <message>
        <source>note “%1”</source>
        <translation>Notiz „%1“</translation>
    </message>
    <message>
        <source>reference “%1”</source>
        <translation>Referenz „%1“</translation>
    </message>
    <message>
        <source>there is no such code</source>
        <translation>Diesen Code gibt es nicht</translation>
    </message>
    <message>
        <source>the invoice has another one</source>
        <translation>die Rechnung hat schon einen anderen Eintrag</translation>
    </message>
    <message>
        <source>not a date such as 2026-03-05</source>
        <translation>kein Datum wie 2026-03-05</translation>
    </message>
    <message>
        <source>there is no start</source>
        <translation>der Anfang fehlt</translation>
    </message>
    <message>
        <source>before the start</source>
        <translation>liegt vor dem Anfang</translation>
    </message>
    <message>
        <source>not from 0 to 100</source>
        <translation>nicht zwischen 0 und 100</translation>
    </message>
    <message>
        <source>the invoice has some already</source>
        <translation>die Rechnung hat schon welche</translation>
    </message>
    <message>
        <source>their prices are net, those of the invoice gross</source>
        <translation>ihre Preise sind netto, die der Rechnung brutto</translation>
    </message>
    <message>
        <source>the model’s answer cannot be used: %1</source>
        <translation>Die Antwort des Modells ist nicht verwendbar: %1</translation>
    </message>
    <message>
        <source>the model server answered with status %1: %2</source>
        <translation>Der Modellserver hat mit dem Status %1 geantwortet: %2</translation>
    </message>
    <message>
        <source>the model server reports an error: %1</source>
        <translation>Der Modellserver meldet einen Fehler: %1</translation>
    </message>
    <message>
        <source>no reason given</source>
        <translation>kein Grund genannt</translation>
    </message>
    <message>
        <source>the model server sent something that is not valid JSON</source>
        <translation>Der Modellserver hat etwas gesendet, das kein gültiges JSON ist</translation>
    </message>
    <message>
        <source>the model’s answer is not valid JSON</source>
        <translation>Die Antwort des Modells ist kein gültiges JSON</translation>
    </message>
    <message>
        <source>the model’s answer holds no JSON</source>
        <translation>Die Antwort des Modells enthält kein JSON</translation>
    </message>
    <message>
        <source>the model’s answer is longer than 1 MiB</source>
        <translation>Die Antwort des Modells ist länger als 1 MiB</translation>
    </message>
    <message>
        <source>the model’s answer was cut off because it got too long</source>
        <translation>Die Antwort des Modells wurde abgebrochen, weil sie zu lang wurde</translation>
    </message>
    <message>
        <source>the text is longer than %1 characters</source>
        <translation>Der Text ist länger als %1 Zeichen</translation>
    </message>
    <message>
        <source>is not a text</source>
        <translation>ist kein Text</translation>
    </message>
    <message>
        <source>is not a number</source>
        <translation>ist keine Zahl</translation>
    </message>
    <message>
        <source>is not an object</source>
        <translation>ist kein Objekt</translation>
    </message>
    <message>
        <source>is not a list</source>
        <translation>ist keine Liste</translation>
    </message>
    <message>
        <source>is out of range</source>
        <translation>liegt außerhalb des möglichen Bereichs</translation>
    </message>
    <message>
        <source>is longer than %1 characters</source>
        <translation>ist länger als %1 Zeichen</translation>
    </message>
    <message>
        <source>is longer than %1 items</source>
        <translation>hat mehr als %1 Einträge</translation>
    </message>
    <message>
        <source>Unexpected rawValue &quot;%1&quot; for ExtractedUnit</source>
        <translation>Unerwarteter Wert „%1“ für ExtractedUnit</translation>
    </message>
    <message>
        <source>is not on this computer</source>
        <translation>ist nicht auf diesem Computer</translation>
    </message>
    <message>
        <source>is no address such as %1</source>
        <translation>ist keine Adresse wie %1</translation>
    </message>
    <message>
        <source>%1 is not on this computer</source>
        <translation>%1 ist nicht auf diesem Computer</translation>
    </message>
    <message>
        <source>%1 is no address such as %2</source>
        <translation>%1 ist keine Adresse wie %2</translation>
    </message>
</context>
<context>
    <name>UndoText</name>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>New Quote</source>
        <translation>Neues Angebot</translation>
    </message>
    <message>
        <source>New Invoice</source>
        <translation>Neue Rechnung</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>Make Invoice</source>
        <translation>Rechnung erstellen</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Cancel Invoice</source>
        <translation>Rechnung stornieren</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Edit Reminder</source>
        <translation>Mahnung bearbeiten</translation>
    </message>
    <message>
        <source>Create Payment Reminder</source>
        <translation>Mahnung erstellen</translation>
    </message>
    <message>
        <source>Delete Reminder</source>
        <translation>Mahnung löschen</translation>
    </message>
    <message>
        <source>Import with %1</source>
        <translation>Import mit %1</translation>
    </message>
    <message>
        <source>Update with %1</source>
        <translation>Aktualisierung mit %1</translation>
    </message>
    <message>
        <source>Styling</source>
        <translation>Gestaltung</translation>
    </message>
</context>
<context>
    <name>Viewer</name>
    <message>
        <source>Open…</source>
        <translation>Öffnen…</translation>
    </message>
    <message>
        <source>Import as Invoice</source>
        <translation>Als Rechnung importieren</translation>
    </message>
    <message>
        <source>Save as PDF…</source>
        <translation>Als PDF speichern…</translation>
    </message>
    <message>
        <source>Print…</source>
        <translation>Drucken…</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Actual Size</source>
        <translation>Originalgröße</translation>
    </message>
    <message>
        <source>Close Tab</source>
        <translation>Tab schließen</translation>
    </message>
    <message>
        <source>Next Tab</source>
        <translation>Nächster Tab</translation>
    </message>
    <message>
        <source>Previous Tab</source>
        <translation>Vorheriger Tab</translation>
    </message>
    <message>
        <source>Saved: %1</source>
        <translation>Gesichert: %1</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Zeigen</translation>
    </message>
    <message>
        <source>No PDF could be made of %1.</source>
        <translation>Aus %1 konnte kein PDF gemacht werden.</translation>
    </message>
    <message>
        <source>Save as PDF</source>
        <translation>Als PDF speichern</translation>
    </message>
    <message>
        <source>PDF (*.pdf)</source>
        <translation>PDF (*.pdf)</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
</context>
<context>
    <name>WindowCommands</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Full List</source>
        <translation>Vollständige Liste</translation>
    </message>
    <message>
        <source>Filtered List</source>
        <translation>Gefilterte Liste</translation>
    </message>
    <message>
        <source>Export Profiles…</source>
        <translation>Profile exportieren…</translation>
    </message>
    <message>
        <source>Profile</source>
        <translation>Profil</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Invoice</source>
        <translation>&amp;Rechnung</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>New Invoice</source>
        <translation>Neue Rechnung</translation>
    </message>
    <message>
        <source>New Quote</source>
        <translation>Neues Angebot</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>Cancel Invoice</source>
        <translation>Rechnung stornieren</translation>
    </message>
    <message>
        <source>Create Payment Reminder</source>
        <translation>Mahnung erstellen</translation>
    </message>
    <message>
        <source>Make Invoice of Quote</source>
        <translation>Rechnung aus Angebot erstellen</translation>
    </message>
    <message>
        <source>Open in Separate Window</source>
        <translation>In eigenem Fenster öffnen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Draft</source>
        <translation>Entwurf</translation>
    </message>
    <message>
        <source>Sent</source>
        <translation>Versendet</translation>
    </message>
    <message>
        <source>Paid</source>
        <translation>Bezahlt</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Storniert</translation>
    </message>
    <message>
        <source>Import PDF…</source>
        <translation>PDF importieren…</translation>
    </message>
    <message>
        <source>Import E-Invoices…</source>
        <translation>E-Rechnungen importieren…</translation>
    </message>
    <message>
        <source>Export as PDF…</source>
        <translation>Als PDF exportieren…</translation>
    </message>
    <message>
        <source>Export as ZUGFeRD PDF…</source>
        <translation>Als ZUGFeRD-PDF exportieren…</translation>
    </message>
    <message>
        <source>Export as XRechnung…</source>
        <translation>Als XRechnung exportieren…</translation>
    </message>
    <message>
        <source>CSV…</source>
        <translation>CSV…</translation>
    </message>
    <message>
        <source>PDFs…</source>
        <translation>PDFs…</translation>
    </message>
    <message>
        <source>ZUGFeRD PDFs…</source>
        <translation>ZUGFeRD-PDFs…</translation>
    </message>
    <message>
        <source>XRechnungs…</source>
        <translation>XRechnungen…</translation>
    </message>
    <message>
        <source>All Profiles</source>
        <translation>Alle Profile</translation>
    </message>
    <message>
        <source>Print…</source>
        <translation>Drucken…</translation>
    </message>
    <message>
        <source>Send by E-Mail…</source>
        <translation>Per E-Mail senden…</translation>
    </message>
    <message>
        <source>Copy as File</source>
        <translation>Als Datei kopieren</translation>
    </message>
    <message>
        <source>Reveal in Finder</source>
        <translation>Im Dateimanager zeigen</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtern</translation>
    </message>
    <message>
        <source>Search Commands…</source>
        <translation>Befehle suchen…</translation>
    </message>
    <message>
        <source>Editor</source>
        <translation>Editor</translation>
    </message>
    <message>
        <source>Side Bar</source>
        <translation>Seitenleiste</translation>
    </message>
    <message>
        <source>Search Bar</source>
        <translation>Suchleiste</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Actual Size</source>
        <translation>Originalgröße</translation>
    </message>
    <message>
        <source>Fit Width</source>
        <translation>Seitenbreite</translation>
    </message>
    <message>
        <source>Write a Message…</source>
        <translation>Nachricht schreiben…</translation>
    </message>
    <message>
        <source>Report Problem…</source>
        <translation>Problem melden…</translation>
    </message>
    <message>
        <source>Terms of Use</source>
        <translation>Nutzungsbedingungen</translation>
    </message>
    <message>
        <source>Privacy Policy</source>
        <translation>Datenschutz</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>Nach Updates suchen…</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über Ledra</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Invoice Styling…</source>
        <translation>Rechnungsstil…</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>New Invoice from Text…</source>
        <translation>Neue Rechnung aus Text…</translation>
    </message>
    <message>
        <source>Open E-Invoice Viewer…</source>
        <translation>E-Rechnungen ansehen…</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Set Up Ledra…</source>
        <translation>Ledra einrichten…</translation>
    </message>
    <message>
        <source>Import Profiles…</source>
        <translation>Profile importieren…</translation>
    </message>
    <message>
        <source>Import Style…</source>
        <translation>Stil importieren…</translation>
    </message>
    <message>
        <source>Export Style…</source>
        <translation>Stil exportieren…</translation>
    </message>
    <message>
        <source>&amp;Plugins</source>
        <translation>&amp;Plugins</translation>
    </message>
</context>
<context>
    <name>ledra::AttachmentStrip</name>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Save…</source>
        <translation>Speichern…</translation>
    </message>
    <message>
        <source>Attachments</source>
        <translation>Anlagen</translation>
    </message>
    <message>
        <source>Files of this kind are not opened from here. They can be saved.</source>
        <translation>Dateien dieser Art werden von hier aus nicht geöffnet. Sie können gesichert werden.</translation>
    </message>
    <message>
        <source>%1 cannot be taken out of %2.</source>
        <translation>%1 lässt sich nicht aus %2 herausnehmen.</translation>
    </message>
    <message>
        <source>%1 is not what its name says and is not opened.</source>
        <translation>%1 ist nicht, was der Name sagt, und wird nicht geöffnet.</translation>
    </message>
    <message>
        <source>There is no program that shows %1.</source>
        <translation>Es gibt kein Programm, das %1 zeigt.</translation>
    </message>
    <message>
        <source>Save Attachment</source>
        <translation>Anlage speichern</translation>
    </message>
    <message>
        <source>All Files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
</context>
<context>
    <name>ledra::BackupsTab</name>
    <message>
        <source>Backups</source>
        <translation>Sicherungen</translation>
    </message>
    <message>
        <source>Made</source>
        <translation>Erstellt</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>Häufigkeit</translation>
    </message>
    <message>
        <source>Kept</source>
        <translation>Aufbewahren</translation>
    </message>
    <message>
        <source>Back Up Now</source>
        <translation>Jetzt sichern</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>The backup could not be made; the main window says why.</source>
        <translation>Die Sicherung ist fehlgeschlagen; den Grund nennt das Hauptfenster.</translation>
    </message>
    <message>
        <source>There is a backup of today already.</source>
        <translation>Für heute gibt es bereits eine Sicherung.</translation>
    </message>
</context>
<context>
    <name>ledra::BusyBar</name>
    <message>
        <source>At work</source>
        <translation>In Arbeit</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>ledra::ColorField</name>
    <message>
        <source>Pick “%1”</source>
        <translation>„%1“ wählen</translation>
    </message>
    <message>
        <source>Pick a color</source>
        <translation>Farbe wählen</translation>
    </message>
    <message>
        <source>“%1” is no color. Colors have six digits from 0 to F, such as 68977C.</source>
        <translation>„%1“ ist keine Farbe. Farben haben sechs Stellen von 0 bis F, etwa 68977C.</translation>
    </message>
</context>
<context>
    <name>ledra::ColorsSection</name>
    <message>
        <source>Colors</source>
        <translation>Farben</translation>
    </message>
    <message>
        <source>Primary color</source>
        <translation>Hauptfarbe</translation>
    </message>
    <message>
        <source>Accent color</source>
        <translation>Akzentfarbe</translation>
    </message>
    <message>
        <source>The accent color is used for</source>
        <translation>Die Akzentfarbe gilt für</translation>
    </message>
    <message>
        <source>Accent color: %1</source>
        <translation>Akzentfarbe: %1</translation>
    </message>
</context>
<context>
    <name>ledra::CommandSearch</name>
    <message>
        <source>Search Commands</source>
        <translation>Befehle suchen</translation>
    </message>
    <message>
        <source>What do you want to do?</source>
        <translation>Was möchten Sie tun?</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Befehle</translation>
    </message>
</context>
<context>
    <name>ledra::ConflictsTab</name>
    <message>
        <source>Conflicts</source>
        <translation>Konflikte</translation>
    </message>
    <message>
        <source>Kept</source>
        <translation>Aufbewahrt</translation>
    </message>
    <message>
        <source>What</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Beleg</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Zeigen</translation>
    </message>
    <message>
        <source>Take This Version</source>
        <translation>Diese Version übernehmen</translation>
    </message>
    <message>
        <source>Drop</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Second file</source>
        <translation>Zweite Datei</translation>
    </message>
    <message>
        <source>Other version</source>
        <translation>Andere Version</translation>
    </message>
    <message>
        <source>The kept version</source>
        <translation>Die aufbewahrte Version</translation>
    </message>
</context>
<context>
    <name>ledra::CsvDialog</name>
    <message>
        <source>Exported: %1</source>
        <translation>Exportiert: %1</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Zeigen</translation>
    </message>
    <message>
        <source>Protect against formulas in spreadsheets</source>
        <translation>Vor Formeln in Tabellen schützen</translation>
    </message>
    <message>
        <source>Export as CSV</source>
        <translation>Als CSV exportieren</translation>
    </message>
    <message>
        <source>Invoices</source>
        <translation>Rechnungen</translation>
    </message>
    <message>
        <source>CSV (*.csv)</source>
        <translation>CSV (*.csv)</translation>
    </message>
    <message>
        <source>Include:</source>
        <translation>Spalten:</translation>
    </message>
    <message>
        <source>Puts an apostrophe before texts that a spreadsheet would run as a formula.</source>
        <translation>Setzt ein Hochkomma vor Texte, die eine Tabellenkalkulation als Formel ausführen würde.</translation>
    </message>
</context>
<context>
    <name>ledra::DataPage</name>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Backups</source>
        <translation>Sicherungen</translation>
    </message>
    <message>
        <source>Trash</source>
        <translation>Papierkorb</translation>
    </message>
    <message>
        <source>Conflicts</source>
        <translation>Konflikte</translation>
    </message>
</context>
<context>
    <name>ledra::DatesSection</name>
    <message>
        <source>Dates</source>
        <translation>Datumsangaben</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Days to pay</source>
        <translation>Zahlungsziel (Tage)</translation>
    </message>
    <message>
        <source>Due on %1</source>
        <translation>Fällig am %1</translation>
    </message>
    <message>
        <source>Service date</source>
        <translation>Leistungsdatum</translation>
    </message>
    <message>
        <source>Service period until</source>
        <translation>Zeitraum bis</translation>
    </message>
    <message>
        <source>End of the service period</source>
        <translation>Ende des Leistungszeitraums</translation>
    </message>
    <message>
        <source>The service period ends before it begins</source>
        <translation>Der Leistungszeitraum endet, bevor er beginnt</translation>
    </message>
</context>
<context>
    <name>ledra::DayLine</name>
    <message>
        <source>Calendar (F4)</source>
        <translation>Kalender (F4)</translation>
    </message>
    <message>
        <source>“%1” is not a date</source>
        <translation>„%1“ ist kein Datum</translation>
    </message>
</context>
<context>
    <name>ledra::DocumentActions</name>
    <message>
        <source>Send by E-Mail</source>
        <translation>Per E-Mail senden</translation>
    </message>
    <message>
        <source>Copy as File</source>
        <translation>Als Datei kopieren</translation>
    </message>
    <message>
        <source>Copied. Paste it into a folder or a letter.</source>
        <translation>Kopiert. Zum Einfügen in einen Ordner oder eine E-Mail.</translation>
    </message>
</context>
<context>
    <name>ledra::DocumentPrinter</name>
    <message numerus="yes">
        <source>%n documents</source>
        <translation>
            <numerusform>%n Beleg</numerusform>
            <numerusform>%n Belege</numerusform>
        </translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Drucken</translation>
    </message>
    <message>
        <source>Nothing can be printed: the command “lp” of CUPS (package cups-client) is not there.</source>
        <translation>Drucken ist nicht möglich: Der Befehl „lp“ von CUPS (Paket cups-client) fehlt.</translation>
    </message>
    <message>
        <source>Show File</source>
        <translation>Datei zeigen</translation>
    </message>
    <message>
        <source>Sent to the printer: %1</source>
        <translation>An den Drucker gesendet: %1</translation>
    </message>
    <message>
        <source>%1 was not printed: %2</source>
        <translation>%1 wurde nicht gedruckt: %2</translation>
    </message>
    <message>
        <source>Printed to: %1</source>
        <translation>In Datei gedruckt: %1</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Zeigen</translation>
    </message>
</context>
<context>
    <name>ledra::DropZone</name>
    <message>
        <source>Drop e-invoices here</source>
        <translation>E-Rechnungen hier ablegen</translation>
    </message>
    <message>
        <source>XML files, and PDFs that carry one (ZUGFeRD, Factur-X, XRechnung)</source>
        <translation>XML-Dateien, und PDFs, die eine enthalten (ZUGFeRD, Factur-X, XRechnung)</translation>
    </message>
    <message>
        <source>Select E-Invoices…</source>
        <translation>E-Rechnungen auswählen…</translation>
    </message>
</context>
<context>
    <name>ledra::EditorPanel</name>
    <message>
        <source>Invoice</source>
        <translation>Rechnung</translation>
    </message>
    <message>
        <source>Cancellation</source>
        <translation>Stornorechnung</translation>
    </message>
    <message>
        <source>Quote</source>
        <translation>Angebot</translation>
    </message>
    <message>
        <source>Close Editor</source>
        <translation>Editor schließen</translation>
    </message>
    <message>
        <source>Edit anyway</source>
        <translation>Trotzdem bearbeiten</translation>
    </message>
    <message>
        <source>This document has left the house and is read-only. Note and reference can still be changed.</source>
        <translation>Dieser Beleg wurde versendet und ist schreibgeschützt. Anmerkung und Referenz können Sie noch ändern.</translation>
    </message>
    <message>
        <source>Others may hold this document as it was. What you change here differs from theirs.</source>
        <translation>Andere haben diesen Beleg vielleicht in alter Fassung. Was Sie hier ändern, weicht davon ab.</translation>
    </message>
    <message>
        <source>Cancel and duplicate</source>
        <translation>Stornieren und duplizieren</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
</context>
<context>
    <name>ledra::ExportPage</name>
    <message>
        <source>Automatic export</source>
        <translation>Automatischer Export</translation>
    </message>
    <message>
        <source>Invoices that are sent are written into a folder by themselves, as</source>
        <translation>Versendete Rechnungen automatisch in einen Ordner schreiben als</translation>
    </message>
    <message>
        <source>PDF</source>
        <translation>PDF</translation>
    </message>
    <message>
        <source>XRechnung (XML)</source>
        <translation>XRechnung (XML)</translation>
    </message>
    <message>
        <source>ZUGFeRD PDF</source>
        <translation>ZUGFeRD-PDF</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Choose Folder…</source>
        <translation>Ordner wählen…</translation>
    </message>
    <message>
        <source>%1 (profile “%2”)</source>
        <translation>%1 (Profil „%2“)</translation>
    </message>
    <message>
        <source>None is chosen for the profile “%1”, or it is gone.</source>
        <translation>Für das Profil „%1“ ist keiner gewählt, oder er fehlt.</translation>
    </message>
    <message>
        <source>Choose Folder</source>
        <translation>Ordner wählen</translation>
    </message>
    <message>
        <source>Export All Now</source>
        <translation>Jetzt alle exportieren</translation>
    </message>
    <message>
        <source>Writes all invoices of the profile that were sent, the earlier ones too</source>
        <translation>Schreibt alle versendeten Rechnungen des Profils, auch die früheren</translation>
    </message>
    <message>
        <source>No invoice has been sent yet</source>
        <translation>Es wurde noch keine Rechnung versendet</translation>
    </message>
</context>
<context>
    <name>ledra::ExportProgress</name>
    <message>
        <source>Export</source>
        <translation>Export</translation>
    </message>
    <message>
        <source>%1 of %2 documents</source>
        <translation>%1 von %2 Belegen</translation>
    </message>
</context>
<context>
    <name>ledra::ExtractedFieldsView</name>
    <message>
        <source>Field</source>
        <translation>Feld</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Fields that were found</source>
        <translation>Gefundene Felder</translation>
    </message>
    <message>
        <source>Document</source>
        <translation>Beleg</translation>
    </message>
    <message>
        <source>Recipient</source>
        <translation>Empfänger</translation>
    </message>
    <message>
        <source>Item %1</source>
        <translation>Position %1</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Business</source>
        <translation>Firma</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Postcode</source>
        <translation>PLZ</translation>
    </message>
    <message>
        <source>City</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Bundesland</translation>
    </message>
    <message>
        <source>Country</source>
        <translation>Land</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>Menge</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>Price</source>
        <translation>Einzelpreis</translation>
    </message>
    <message>
        <source>VAT in percent</source>
        <translation>USt. in Prozent</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Anmerkung</translation>
    </message>
    <message>
        <source>Reference</source>
        <translation>Referenz</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>Währung</translation>
    </message>
    <message>
        <source>Service from</source>
        <translation>Leistung von</translation>
    </message>
    <message>
        <source>Service until</source>
        <translation>Leistung bis</translation>
    </message>
    <message>
        <source>E-mail</source>
        <translation>E-Mail</translation>
    </message>
    <message>
        <source>Address 2</source>
        <translation>Adresse 2</translation>
    </message>
</context>
<context>
    <name>ledra::FieldForm</name>
    <message>
        <source>“%1” is not a number</source>
        <translation>„%1“ ist keine Zahl</translation>
    </message>
    <message>
        <source>One from the list is needed</source>
        <translation>Ein Eintrag der Liste ist nötig</translation>
    </message>
    <message>
        <source>“%1” is not in the list</source>
        <translation>„%1“ steht nicht in der Liste</translation>
    </message>
    <message>
        <source>“%1” is less than zero</source>
        <translation>„%1“ ist kleiner als null</translation>
    </message>
</context>
<context>
    <name>ledra::FileImporter</name>
    <message>
        <source>Import PDF</source>
        <translation>PDF importieren</translation>
    </message>
    <message>
        <source>PDF (*.pdf)</source>
        <translation>PDF (*.pdf)</translation>
    </message>
    <message>
        <source>Import E-Invoices</source>
        <translation>E-Rechnungen importieren</translation>
    </message>
    <message>
        <source>E-Invoices (*.xml *.pdf)</source>
        <translation>E-Rechnungen (*.xml *.pdf)</translation>
    </message>
    <message>
        <source>%1 is no file of this computer.</source>
        <translation>%1 ist keine Datei auf diesem Computer.</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Import Failed</source>
        <translation>Import fehlgeschlagen</translation>
    </message>
    <message>
        <source>%1: the document states another total: %2</source>
        <translation>%1: Das Dokument nennt eine andere Summe: %2</translation>
    </message>
    <message>
        <source>Imported. “Undo” takes it out again.</source>
        <translation>Importiert. „Rückgängig“ nimmt es wieder heraus.</translation>
    </message>
    <message numerus="yes">
        <source>%n documents imported. “Undo” takes them out again.</source>
        <translation>
            <numerusform>%n Beleg importiert. „Rückgängig“ nimmt ihn wieder heraus.</numerusform>
            <numerusform>%n Belege importiert. „Rückgängig“ nimmt sie wieder heraus.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>und %n weiterer</numerusform>
            <numerusform>und %n weitere</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ledra::FilterBar</name>
    <message>
        <source>This month</source>
        <translation>Dieser Monat</translation>
    </message>
    <message>
        <source>Last month</source>
        <translation>Letzter Monat</translation>
    </message>
    <message>
        <source>This quarter</source>
        <translation>Dieses Quartal</translation>
    </message>
    <message>
        <source>Last quarter</source>
        <translation>Letztes Quartal</translation>
    </message>
    <message>
        <source>This year</source>
        <translation>Dieses Jahr</translation>
    </message>
    <message>
        <source>Last year</source>
        <translation>Letztes Jahr</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Period</source>
        <translation>Zeitraum</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Von</translation>
    </message>
    <message>
        <source>To</source>
        <translation>Bis</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>Währung</translation>
    </message>
    <message>
        <source>Clear Filter</source>
        <translation>Filter löschen</translation>
    </message>
    <message>
        <source>All types</source>
        <translation>Alle Arten</translation>
    </message>
    <message>
        <source>Invoices</source>
        <translation>Rechnungen</translation>
    </message>
    <message>
        <source>Cancellations</source>
        <translation>Stornorechnungen</translation>
    </message>
    <message>
        <source>Quotes</source>
        <translation>Angebote</translation>
    </message>
    <message>
        <source>Any status</source>
        <translation>Jeder Status</translation>
    </message>
    <message>
        <source>Any time</source>
        <translation>Jeder Zeitraum</translation>
    </message>
    <message>
        <source>From … to …</source>
        <translation>Von … bis …</translation>
    </message>
    <message>
        <source>All currencies</source>
        <translation>Alle Währungen</translation>
    </message>
</context>
<context>
    <name>ledra::FirstStartAssistant</name>
    <message>
        <source>Set Up Ledra</source>
        <translation>Ledra einrichten</translation>
    </message>
    <message>
        <source>Terms of use</source>
        <translation>Nutzungsbedingungen</translation>
    </message>
    <message>
        <source>I agree to the terms of use</source>
        <translation>Ich stimme den Nutzungsbedingungen zu</translation>
    </message>
    <message>
        <source>Welcome to Ledra</source>
        <translation>Willkommen bei Ledra</translation>
    </message>
    <message>
        <source>A few questions lead to your first invoice. Each of them can be skipped and answered later in the settings.</source>
        <translation>Ein paar Fragen führen zu Ihrer ersten Rechnung. Jede lässt sich überspringen und später in den Einstellungen beantworten.</translation>
    </message>
    <message>
        <source>Set Up Later</source>
        <translation>Später einrichten</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>Überspringen</translation>
    </message>
    <message>
        <source>Step %1 of %2</source>
        <translation>Schritt %1 von %2</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Create First Invoice</source>
        <translation>Erste Rechnung anlegen</translation>
    </message>
    <message>
        <source>Finish</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Keep what you have entered?</source>
        <translation>Eingaben behalten?</translation>
    </message>
    <message>
        <source>It goes into your profile. You can go on in the settings.</source>
        <translation>Sie kommen in Ihr Profil. In den Einstellungen können Sie weitermachen.</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Behalten</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Who sends the invoices?</source>
        <translation>Wer schreibt die Rechnungen?</translation>
    </message>
    <message>
        <source>This stands at the head of your documents. The country decides which currency, VAT rate and language Ledra proposes.</source>
        <translation>Das steht im Kopf Ihrer Belege. Das Land entscheidet, welche Währung, welchen Steuersatz und welche Sprache Ledra vorschlägt.</translation>
    </message>
    <message>
        <source>Where are you paid?</source>
        <translation>Wohin wird bezahlt?</translation>
    </message>
    <message>
        <source>The account stands on your invoices; e-invoices carry it for the customer’s bank.</source>
        <translation>Das Konto steht auf Ihren Rechnungen; E-Rechnungen enthalten es für die Bank des Kunden.</translation>
    </message>
    <message>
        <source>How are you taxed?</source>
        <translation>Wie werden Sie besteuert?</translation>
    </message>
    <message>
        <source>Invoices need a tax number or a VAT ID. New lines take the rate; small businesses write documents without VAT.</source>
        <translation>Rechnungen brauchen eine Steuernummer oder eine USt-IdNr. Neue Positionen übernehmen den Satz; Kleinunternehmer schreiben Belege ohne Umsatzsteuer.</translation>
    </message>
    <message>
        <source>What should your documents look like?</source>
        <translation>Wie sollen Ihre Belege aussehen?</translation>
    </message>
    <message>
        <source>Choose a look and your colors. All of it can be changed later, down to each font.</source>
        <translation>Wählen Sie ein Aussehen und Ihre Farben. Alles lässt sich später ändern, bis zur einzelnen Schrift.</translation>
    </message>
</context>
<context>
    <name>ledra::FolderTab</name>
    <message>
        <source>Use the Usual Folder</source>
        <translation>Standardordner verwenden</translation>
    </message>
    <message>
        <source>All profiles with their invoices lie in</source>
        <translation>Alle Profile mit ihren Rechnungen liegen in</translation>
    </message>
    <message>
        <source>Data folder</source>
        <translation>Datenordner</translation>
    </message>
    <message>
        <source>Move…</source>
        <translation>Verschieben…</translation>
    </message>
    <message>
        <source>A folder that other computers share will do: changes of others are seen, and what two have changed at once is kept twice.</source>
        <translation>Auch ein mit anderen Computern geteilter Ordner ist möglich: Änderungen anderer werden erkannt, und was zwei zugleich geändert haben, wird doppelt aufbewahrt.</translation>
    </message>
    <message>
        <source>%1 stays where it is, since the other folder holds one of that name</source>
        <translation>%1 bleibt am alten Ort, da der andere Ordner diesen Namen schon enthält</translation>
    </message>
    <message>
        <source>Move the Data</source>
        <translation>Daten verschieben</translation>
    </message>
</context>
<context>
    <name>ledra::FontList</name>
    <message>
        <source>Select Font</source>
        <translation>Schrift auswählen</translation>
    </message>
    <message>
        <source>Search fonts</source>
        <translation>Schriften suchen</translation>
    </message>
    <message>
        <source>Fonts</source>
        <translation>Schriften</translation>
    </message>
    <message>
        <source>Featured</source>
        <translation>Empfohlen</translation>
    </message>
    <message>
        <source>On this Mac</source>
        <translation>Auf diesem Computer</translation>
    </message>
</context>
<context>
    <name>ledra::FontPicker</name>
    <message>
        <source>Select Font</source>
        <translation>Schrift auswählen</translation>
    </message>
</context>
<context>
    <name>ledra::FontsSection</name>
    <message>
        <source>Fonts</source>
        <translation>Schriften</translation>
    </message>
    <message>
        <source>Headline</source>
        <translation>Überschrift</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Secondary text</source>
        <translation>Nebentext</translation>
    </message>
    <message>
        <source>Label text</source>
        <translation>Beschriftung</translation>
    </message>
    <message>
        <source>Labels in small capitals</source>
        <translation>Beschriftungen in Kapitälchen</translation>
    </message>
    <message>
        <source>Face: %1</source>
        <translation>Schnitt: %1</translation>
    </message>
</context>
<context>
    <name>ledra::GeneralPage</name>
    <message>
        <source>Appearance</source>
        <translation>Darstellung</translation>
    </message>
    <message>
        <source>Windows</source>
        <translation>Farbschema</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Belege</translation>
    </message>
    <message>
        <source>Usual export</source>
        <translation>Standardexport</translation>
    </message>
    <message>
        <source>Reminder deadline</source>
        <translation>Mahnfrist</translation>
    </message>
    <message>
        <source> days</source>
        <translation> Tage</translation>
    </message>
    <message>
        <source>Privacy</source>
        <translation>Datenschutz</translation>
    </message>
    <message>
        <source>Keep signs of usage in a file of your own</source>
        <translation>Nutzungsdaten in einer eigenen Datei speichern</translation>
    </message>
    <message>
        <source>They say which functions are used and never leave this computer.</source>
        <translation>Sie sagen, welche Funktionen verwendet werden, und verlassen diesen Computer nie.</translation>
    </message>
    <message>
        <source>Show What Is Kept</source>
        <translation>Gespeichertes zeigen</translation>
    </message>
    <message>
        <source>What is kept</source>
        <translation>Gespeichertes</translation>
    </message>
    <message>
        <source>Nothing is kept.</source>
        <translation>Nichts gespeichert.</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Icon</source>
        <translation>Symbol</translation>
    </message>
    <message>
        <source>Show Badge Count</source>
        <translation>Anzahl am Symbol anzeigen</translation>
    </message>
</context>
<context>
    <name>ledra::InstallDialog</name>
    <message>
        <source>Install Plugin</source>
        <translation>Plugin installieren</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Install</source>
        <translation>Installieren</translation>
    </message>
    <message>
        <source>Install the plugin “%1”?</source>
        <translation>Das Plugin „%1“ installieren?</translation>
    </message>
    <message>
        <source>It replaces the plugin “%1” that is installed.</source>
        <translation>Es ersetzt das installierte Plugin „%1“.</translation>
    </message>
    <message>
        <source>It replaces the plugin “%1” that is installed, version %2.</source>
        <translation>Es ersetzt das installierte Plugin „%1“, Version %2.</translation>
    </message>
    <message>
        <source>It does not use the network.</source>
        <translation>Es benutzt das Netzwerk nicht.</translation>
    </message>
    <message>
        <source>It wants to send and receive data, your invoices among them, over the network:</source>
        <translation>Es möchte Daten, darunter Ihre Rechnungen, über das Netzwerk senden und empfangen:</translation>
    </message>
    <message>
        <source>Hosts</source>
        <translation>Server</translation>
    </message>
    <message>
        <source>Let it talk to these hosts</source>
        <translation>Verbindungen zu diesen Servern erlauben</translation>
    </message>
</context>
<context>
    <name>ledra::InvoiceListView</name>
    <message>
        <source>Invoices</source>
        <translation>Rechnungen</translation>
    </message>
</context>
<context>
    <name>ledra::InvoiceRemindersBar</name>
    <message>
        <source>Create Reminder</source>
        <translation>Mahnung erstellen</translation>
    </message>
    <message>
        <source>Reminders of this invoice</source>
        <translation>Mahnungen zu dieser Rechnung</translation>
    </message>
    <message>
        <source>Overdue since %1 (%2)</source>
        <translation>Überfällig seit dem %1 (%2)</translation>
    </message>
</context>
<context>
    <name>ledra::InvoiceTableModel</name>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Recipient</source>
        <translation>Empfänger</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Due</source>
        <translation>Fällig</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>Gesamt</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
</context>
<context>
    <name>ledra::ItemDelegate</name>
    <message>
        <source>“%1” is not a number</source>
        <translation>„%1“ ist keine Zahl</translation>
    </message>
</context>
<context>
    <name>ledra::ItemsModel</name>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Qty</source>
        <translation>Menge</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>Price</source>
        <translation>Einzelpreis</translation>
    </message>
    <message>
        <source>VAT</source>
        <translation>USt.</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>Gesamt</translation>
    </message>
    <message>
        <source>Add item…</source>
        <translation>Position hinzufügen…</translation>
    </message>
    <message>
        <source>Drag to reorder</source>
        <translation>Zum Umordnen ziehen</translation>
    </message>
    <message>
        <source>Gross price</source>
        <translation>Bruttopreis</translation>
    </message>
    <message>
        <source>The items cannot be pasted: %1</source>
        <translation>Die Positionen können nicht eingefügt werden: %1</translation>
    </message>
    <message>
        <source>line %1 has no description</source>
        <translation>Zeile %1 hat keine Beschreibung</translation>
    </message>
    <message>
        <source>in line %1 a quotation mark is not closed</source>
        <translation>in Zeile %1 ist ein Anführungszeichen nicht geschlossen</translation>
    </message>
    <message>
        <source>line %1 has more than description, quantity, unit, price and VAT</source>
        <translation>Zeile %1 hat mehr als Beschreibung, Menge, Einheit, Preis und USt.</translation>
    </message>
    <message>
        <source>“%2” in line %1 is none of the units %3</source>
        <translation>„%2“ in Zeile %1 ist keine der Einheiten %3</translation>
    </message>
    <message>
        <source>“%2” in line %1 (%3) is not a number</source>
        <translation>„%2“ in Zeile %1 (%3) ist keine Zahl</translation>
    </message>
</context>
<context>
    <name>ledra::ItemsSection</name>
    <message>
        <source>Subtotal</source>
        <translation>Zwischensumme</translation>
    </message>
    <message>
        <source>Discount</source>
        <translation>Rabatt</translation>
    </message>
    <message>
        <source>VAT %1</source>
        <translation>USt. %1</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>Gesamtbetrag</translation>
    </message>
    <message>
        <source>Items</source>
        <translation>Positionen</translation>
    </message>
    <message>
        <source>Totals</source>
        <translation>Summen</translation>
    </message>
    <message>
        <source>Prices include VAT</source>
        <translation>Preise inkl. USt.</translation>
    </message>
    <message>
        <source>Add Item</source>
        <translation>Position hinzufügen</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keiner</translation>
    </message>
    <message>
        <source>Percent</source>
        <translation>Prozent</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>Betrag</translation>
    </message>
    <message>
        <source>Kind of discount</source>
        <translation>Art des Rabatts</translation>
    </message>
</context>
<context>
    <name>ledra::ItemsView</name>
    <message>
        <source>Items</source>
        <translation>Positionen</translation>
    </message>
    <message>
        <source>Copy Items</source>
        <translation>Positionen kopieren</translation>
    </message>
    <message>
        <source>Paste Items</source>
        <translation>Positionen einfügen</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Delete Items</source>
        <translation>Positionen löschen</translation>
    </message>
</context>
<context>
    <name>ledra::ListPanel</name>
    <message>
        <source>Search number, name, e-mail, item…</source>
        <translation>Suche: Nummer, Name, E-Mail, Position…</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtern</translation>
    </message>
    <message>
        <source>No invoices yet</source>
        <translation>Noch keine Rechnungen</translation>
    </message>
    <message>
        <source>Write your first one, or drop an e-invoice or an exported PDF here.</source>
        <translation>Schreiben Sie Ihre erste, oder ziehen Sie eine E-Rechnung oder ein exportiertes PDF hierher.</translation>
    </message>
    <message>
        <source>New Invoice</source>
        <translation>Neue Rechnung</translation>
    </message>
    <message>
        <source>Nothing found</source>
        <translation>Nichts gefunden</translation>
    </message>
    <message>
        <source>No record in this list fits the search.</source>
        <translation>Kein Beleg in dieser Liste passt zur Suche.</translation>
    </message>
    <message>
        <source>Clear Search and Filter</source>
        <translation>Suche und Filter löschen</translation>
    </message>
    <message>
        <source>This list is empty</source>
        <translation>Diese Liste ist leer</translation>
    </message>
</context>
<context>
    <name>ledra::LogoSection</name>
    <message>
        <source>Logo</source>
        <translation>Logo</translation>
    </message>
    <message>
        <source>Choose Logo…</source>
        <translation>Logo wählen…</translation>
    </message>
    <message>
        <source>Remove Logo</source>
        <translation>Logo entfernen</translation>
    </message>
    <message>
        <source>In the color of the document</source>
        <translation>In der Farbe des Belegs</translation>
    </message>
    <message>
        <source>Only drawings (SVG) can take another color</source>
        <translation>Nur Zeichnungen (SVG) können eine andere Farbe annehmen</translation>
    </message>
    <message>
        <source>Choose Logo</source>
        <translation>Logo wählen</translation>
    </message>
    <message>
        <source>Images (*.svg *.png *.jpg *.jpeg *.webp)</source>
        <translation>Bilder (*.svg *.png *.jpg *.jpeg *.webp)</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>Height of the logo</source>
        <translation>Höhe des Logos</translation>
    </message>
    <message>
        <source>%1 cm</source>
        <translation>%1 cm</translation>
    </message>
</context>
<context>
    <name>ledra::LogoWell</name>
    <message>
        <source>Logo</source>
        <translation>Logo</translation>
    </message>
    <message>
        <source>Drop an image here, or press Enter to choose one</source>
        <translation>Bild hierher ziehen oder mit der Eingabetaste wählen</translation>
    </message>
    <message>
        <source>The logo cannot be shown here</source>
        <translation>Das Logo kann hier nicht gezeigt werden</translation>
    </message>
    <message>
        <source>Drop a logo here, or click to choose one
SVG, PNG, JPEG, WebP</source>
        <translation>Logo hierher ziehen oder zum Wählen klicken
SVG, PNG, JPEG, WebP</translation>
    </message>
</context>
<context>
    <name>ledra::LookStep</name>
    <message>
        <source>Example in the chosen look</source>
        <translation>Beispiel im gewählten Aussehen</translation>
    </message>
    <message>
        <source>Primary color</source>
        <translation>Hauptfarbe</translation>
    </message>
    <message>
        <source>Accent color</source>
        <translation>Akzentfarbe</translation>
    </message>
    <message>
        <source>Paper</source>
        <translation>Papier</translation>
    </message>
    <message>
        <source>Column at the margin</source>
        <translation>Spalte am Rand</translation>
    </message>
</context>
<context>
    <name>ledra::MailSender</name>
    <message>
        <source>No mail program can be opened: neither the desktop&apos;s mail portal nor xdg-email (package xdg-utils) is there.</source>
        <translation>Es kann kein E-Mail-Programm geöffnet werden: Weder das Mail-Portal des Desktops noch xdg-email (Paket xdg-utils) ist vorhanden.</translation>
    </message>
    <message>
        <source>The mail program could not be opened.</source>
        <translation>Das E-Mail-Programm konnte nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>Show File</source>
        <translation>Datei zeigen</translation>
    </message>
</context>
<context>
    <name>ledra::MainWindow</name>
    <message>
        <source>The preview had stopped and was started again. Nothing is lost.</source>
        <translation>Die Vorschau war ausgefallen und wurde neu gestartet. Nichts ist verloren.</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig:</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen:</translation>
    </message>
    <message>
        <source>No invoice selected</source>
        <translation>Kein Beleg ausgewählt</translation>
    </message>
    <message numerus="yes">
        <source>%n invoices selected</source>
        <translation>
            <numerusform>%n Beleg ausgewählt</numerusform>
            <numerusform>%n Belege ausgewählt</numerusform>
        </translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Some changes could not be saved.</source>
        <translation>Einige Änderungen konnten nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>%1

They are lost when the window is closed now.</source>
        <translation>%1

Sie gehen verloren, wenn das Fenster jetzt geschlossen wird.</translation>
    </message>
    <message>
        <source>Close Anyway</source>
        <translation>Trotzdem schließen</translation>
    </message>
    <message>
        <source>Imported as a draft. “Undo” takes it out again.</source>
        <translation>Als Entwurf importiert. „Rückgängig“ nimmt ihn wieder heraus.</translation>
    </message>
    <message>
        <source>“%1” was changed by somebody else meanwhile. That version is kept as conflict %2.</source>
        <translation>„%1“ wurde inzwischen von jemand anderem geändert. Diese Fassung ist als Konflikt %2 aufgehoben.</translation>
    </message>
    <message>
        <source>Show Conflicts</source>
        <translation>Konflikte anzeigen</translation>
    </message>
</context>
<context>
    <name>ledra::MessageBar</name>
    <message>
        <source>Automatic export: %1</source>
        <translation>Automatischer Export: %1</translation>
    </message>
    <message>
        <source>%1 cannot be written to</source>
        <translation>In %1 kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>Close Message</source>
        <translation>Meldung schließen</translation>
    </message>
</context>
<context>
    <name>ledra::NoteSection</name>
    <message>
        <source>Note</source>
        <translation>Anmerkung</translation>
    </message>
    <message>
        <source>A few words below the items</source>
        <translation>Einige Worte unter den Positionen</translation>
    </message>
    <message>
        <source>Bold</source>
        <translation>Fett</translation>
    </message>
    <message>
        <source>Italic</source>
        <translation>Kursiv</translation>
    </message>
    <message>
        <source>Reference</source>
        <translation>Referenz</translation>
    </message>
</context>
<context>
    <name>ledra::NumberField</name>
    <message>
        <source>“%1” is not a number</source>
        <translation>„%1“ ist keine Zahl</translation>
    </message>
</context>
<context>
    <name>ledra::NumberFormatEdit</name>
    <message>
        <source>Number format</source>
        <translation>Nummernformat</translation>
    </message>
    <message>
        <source>Variables are chips among free text. Alt and an arrow key move a chip.</source>
        <translation>Variablen stehen als Marken im freien Text. Alt und eine Pfeiltaste verschieben eine Marke.</translation>
    </message>
</context>
<context>
    <name>ledra::NumberSection</name>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>Free text</source>
        <translation>Freier Text</translation>
    </message>
    <message>
        <source>Printed as %1</source>
        <translation>Gedruckt als %1</translation>
    </message>
    <message>
        <source>As in the profile</source>
        <translation>Wie im Profil</translation>
    </message>
    <message>
        <source>“%1” is no variable and is printed as it stands</source>
        <translation>„%1“ ist keine Variable und wird so gedruckt, wie es dasteht</translation>
    </message>
</context>
<context>
    <name>ledra::PackageUpdater</name>
    <message>
        <source>PackageKit is not available here. Look for updates where you got Ledra from.</source>
        <translation>PackageKit ist hier nicht verfügbar. Suchen Sie Updates dort, woher Sie Ledra haben.</translation>
    </message>
    <message>
        <source>The package manager could not look for updates.</source>
        <translation>Die Paketverwaltung konnte nicht nach Updates suchen.</translation>
    </message>
    <message>
        <source>Ledra is up to date.</source>
        <translation>Ledra ist auf dem neuesten Stand.</translation>
    </message>
    <message>
        <source>Ledra %1 is available from your package manager.</source>
        <translation>Ledra %1 ist über Ihre Paketverwaltung verfügbar.</translation>
    </message>
</context>
<context>
    <name>ledra::PageSection</name>
    <message>
        <source>Page</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>Paper</source>
        <translation>Papier</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Hintergrund</translation>
    </message>
    <message>
        <source>Page headline</source>
        <translation>Seitenüberschrift</translation>
    </message>
    <message>
        <source>Sender above the recipient</source>
        <translation>Absender über dem Empfänger</translation>
    </message>
    <message>
        <source>Column at the margin</source>
        <translation>Randspalte</translation>
    </message>
    <message>
        <source>Sender details stand in it; without it they stand in the footer</source>
        <translation>Enthält die Absenderangaben; ohne sie stehen diese in der Fußzeile</translation>
    </message>
</context>
<context>
    <name>ledra::PluginDetail</name>
    <message>
        <source>Details</source>
        <translation>Einzelheiten</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Author</source>
        <translation>Autor</translation>
    </message>
    <message>
        <source>Repository</source>
        <translation>Quellcode</translation>
    </message>
    <message>
        <source>Offers</source>
        <translation>Funktionen</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>Last error</source>
        <translation>Letzter Fehler</translation>
    </message>
    <message>
        <source>Does not use the network</source>
        <translation>Benutzt das Netzwerk nicht</translation>
    </message>
    <message>
        <source>What it does by itself</source>
        <translation>Von sich aus</translation>
    </message>
    <message>
        <source>May talk to %1</source>
        <translation>Darf sich mit %1 verbinden</translation>
    </message>
    <message>
        <source>One KEY=VALUE in each line; the plugin’s own description says which it knows.</source>
        <translation>Je Zeile ein SCHLÜSSEL=WERT; welche es gibt, sagt die Beschreibung des Plugins.</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Nothing yet since Ledra was started.</source>
        <translation>Seit dem Start von Ledra noch nichts.</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keiner</translation>
    </message>
    <message>
        <source>Nothing while it is switched off</source>
        <translation>Keine, solange es ausgeschaltet ist</translation>
    </message>
    <message>
        <source>Not loaded yet</source>
        <translation>Noch nicht geladen</translation>
    </message>
</context>
<context>
    <name>ledra::PluginMenu</name>
    <message>
        <source>Manage Plugins…</source>
        <translation>Plugins verwalten…</translation>
    </message>
</context>
<context>
    <name>ledra::PluginRuns</name>
    <message>
        <source>All Files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>%1 is at work…</source>
        <translation>%1 arbeitet…</translation>
    </message>
    <message>
        <source>%1: %2 of %3</source>
        <translation>%1: %2 von %3</translation>
    </message>
    <message>
        <source>%1: cancelled</source>
        <translation>%1: abgebrochen</translation>
    </message>
    <message numerus="yes">
        <source>%n records were not exported. %1</source>
        <translation>
            <numerusform>%n Beleg wurde nicht exportiert. %1</numerusform>
            <numerusform>%n Belege wurden nicht exportiert. %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n drafts were made</source>
        <translation>
            <numerusform>%n Entwurf wurde angelegt</numerusform>
            <numerusform>%n Entwürfe wurden angelegt</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n records were changed</source>
        <translation>
            <numerusform>%n Beleg wurde geändert</numerusform>
            <numerusform>%n Belege wurden geändert</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>nothing has changed</source>
        <translation>nichts hat sich geändert</translation>
    </message>
    <message>
        <source>%1. %2</source>
        <translation>%1. %2</translation>
    </message>
    <message numerus="yes">
        <source>%1; %n parts of it were refused</source>
        <translation>
            <numerusform>%1; %n Teil davon wurde abgelehnt</numerusform>
            <numerusform>%1; %n Teile davon wurden abgelehnt</numerusform>
        </translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Anzeigen</translation>
    </message>
    <message>
        <source>Show Plugin</source>
        <translation>Plugin anzeigen</translation>
    </message>
</context>
<context>
    <name>ledra::PluginsPage</name>
    <message>
        <source>Update</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>Check for Updates</source>
        <translation>Nach Updates suchen</translation>
    </message>
    <message>
        <source>Reveal</source>
        <translation>Im Ordner zeigen</translation>
    </message>
    <message>
        <source>Remove…</source>
        <translation>Entfernen…</translation>
    </message>
    <message>
        <source>Check for updates when Ledra starts, and install them</source>
        <translation>Beim Start von Ledra nach Updates suchen und sie installieren</translation>
    </message>
    <message>
        <source>Plugins</source>
        <translation>Plugins</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>Author</source>
        <translation>Autor</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>%1, switched on</source>
        <translation>%1, eingeschaltet</translation>
    </message>
    <message>
        <source>%1, switched off</source>
        <translation>%1, ausgeschaltet</translation>
    </message>
    <message>
        <source>No plugins installed.
Add a .ledraplugin folder to get started.</source>
        <translation>Keine Plugins installiert.
Fügen Sie einen .ledraplugin-Ordner hinzu, um zu beginnen.</translation>
    </message>
    <message>
        <source>Choose Folder…</source>
        <translation>Ordner wählen…</translation>
    </message>
    <message>
        <source>Install…</source>
        <translation>Installieren…</translation>
    </message>
    <message>
        <source>From Folder…</source>
        <translation>Aus Ordner…</translation>
    </message>
    <message>
        <source>From Archive…</source>
        <translation>Aus Archiv…</translation>
    </message>
    <message>
        <source>Install the newest version of the chosen plugin’s repository</source>
        <translation>Die neueste Version aus dem Quellcode-Archiv des gewählten Plugins installieren</translation>
    </message>
    <message>
        <source>Show the chosen plugin’s folder</source>
        <translation>Den Ordner des gewählten Plugins zeigen</translation>
    </message>
    <message>
        <source>Asks the repositories of the plugins. A new version may talk to no more hosts than you have allowed.</source>
        <translation>Fragt bei den Quellen der Plugins nach. Eine neue Version darf sich nur mit den Servern verbinden, die Sie erlaubt haben.</translation>
    </message>
    <message>
        <source>Install Plugin</source>
        <translation>Plugin installieren</translation>
    </message>
    <message>
        <source>Install</source>
        <translation>Installieren</translation>
    </message>
    <message>
        <source>Plugins (*.ledraplugin.zip)</source>
        <translation>Plugins (*.ledraplugin.zip)</translation>
    </message>
    <message>
        <source>%1 is installed</source>
        <translation>%1 ist installiert</translation>
    </message>
    <message>
        <source>%1 is no file of this computer.</source>
        <translation>%1 ist keine Datei auf diesem Computer.</translation>
    </message>
    <message>
        <source>Remove Plugin</source>
        <translation>Plugin entfernen</translation>
    </message>
    <message>
        <source>Remove the plugin “%1”?</source>
        <translation>Das Plugin „%1“ entfernen?</translation>
    </message>
    <message>
        <source>Its folder goes to the trash. What it has done to your invoices stays.</source>
        <translation>Sein Ordner kommt in den Papierkorb. Was es an Ihren Rechnungen getan hat, bleibt.</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>No plugin names a repository to update from.</source>
        <translation>Kein Plugin nennt eine Quelle für Updates.</translation>
    </message>
    <message>
        <source>%1 was updated to %2</source>
        <translation>%1 wurde auf %2 aktualisiert</translation>
    </message>
    <message>
        <source>There is nothing newer.</source>
        <translation>Es gibt nichts Neueres.</translation>
    </message>
</context>
<context>
    <name>ledra::PreviewPanel</name>
    <message>
        <source>Page</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Fit Width</source>
        <translation>Seitenbreite</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Seite %1 von %2</translation>
    </message>
    <message>
        <source>Document</source>
        <translation>Dokument</translation>
    </message>
</context>
<context>
    <name>ledra::ProfilesPage</name>
    <message>
        <source>Use</source>
        <translation>Verwenden</translation>
    </message>
    <message>
        <source>Delete…</source>
        <translation>Löschen…</translation>
    </message>
    <message>
        <source>Profiles</source>
        <translation>Profile</translation>
    </message>
    <message>
        <source>New Profile</source>
        <translation>Neues Profil</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Show the invoices of this profile</source>
        <translation>Rechnungen dieses Profils zeigen</translation>
    </message>
    <message>
        <source>%1 (in use)</source>
        <translation>%1 (in Verwendung)</translation>
    </message>
    <message>
        <source>Delete Profile</source>
        <translation>Profil löschen</translation>
    </message>
    <message>
        <source>Delete the profile “%1”?</source>
        <translation>Profil „%1“ löschen?</translation>
    </message>
    <message>
        <source>All its invoices and reminders go to the trash with it. From there the whole folder can be brought back.</source>
        <translation>Alle seine Rechnungen und Mahnungen kommen mit in den Papierkorb. Von dort können Sie den ganzen Ordner zurückholen.</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
</context>
<context>
    <name>ledra::RecipientSection</name>
    <message>
        <source>Recipient</source>
        <translation>Empfänger</translation>
    </message>
    <message>
        <source>Business</source>
        <translation>Firma</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Address 2</source>
        <translation>Adresszeile 2</translation>
    </message>
    <message>
        <source>Postcode</source>
        <translation>PLZ</translation>
    </message>
    <message>
        <source>City</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Bundesland</translation>
    </message>
    <message>
        <source>Country</source>
        <translation>Land</translation>
    </message>
    <message>
        <source>E-mail</source>
        <translation>E-Mail</translation>
    </message>
    <message>
        <source>The dropped contact holds neither a name nor an address.</source>
        <translation>Der abgelegte Kontakt enthält weder Namen noch Adresse.</translation>
    </message>
    <message>
        <source>Area</source>
        <translation>Gebiet</translation>
    </message>
    <message>
        <source>Atoll</source>
        <translation>Atoll</translation>
    </message>
    <message>
        <source>Canton</source>
        <translation>Kanton</translation>
    </message>
    <message>
        <source>County</source>
        <translation>Grafschaft</translation>
    </message>
    <message>
        <source>Department</source>
        <translation>Departement</translation>
    </message>
    <message>
        <source>District</source>
        <translation>Bezirk</translation>
    </message>
    <message>
        <source>Division</source>
        <translation>Division</translation>
    </message>
    <message>
        <source>Emirate</source>
        <translation>Emirat</translation>
    </message>
    <message>
        <source>Entity</source>
        <translation>Entität</translation>
    </message>
    <message>
        <source>Governorate</source>
        <translation>Gouvernement</translation>
    </message>
    <message>
        <source>Island</source>
        <translation>Insel</translation>
    </message>
    <message>
        <source>Locality</source>
        <translation>Ortschaft</translation>
    </message>
    <message>
        <source>Municipality</source>
        <translation>Gemeinde</translation>
    </message>
    <message>
        <source>Oblast</source>
        <translation>Oblast</translation>
    </message>
    <message>
        <source>Parish</source>
        <translation>Gemeinde</translation>
    </message>
    <message>
        <source>Prefecture</source>
        <translation>Präfektur</translation>
    </message>
    <message>
        <source>Province</source>
        <translation>Provinz</translation>
    </message>
    <message>
        <source>Quarter</source>
        <translation>Quartier</translation>
    </message>
    <message>
        <source>Region</source>
        <translation>Region</translation>
    </message>
    <message>
        <source>Village</source>
        <translation>Dorf</translation>
    </message>
    <message>
        <source>Voivodeship</source>
        <translation>Woiwodschaft</translation>
    </message>
</context>
<context>
    <name>ledra::RecordWindow</name>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig:</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen:</translation>
    </message>
    <message>
        <source>Editor</source>
        <translation>Editor</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>ledra::ReminderDesk</name>
    <message>
        <source>No reminder selected</source>
        <translation>Keine Mahnung ausgewählt</translation>
    </message>
    <message>
        <source>The invoice has been deleted.</source>
        <translation>Die Rechnung wurde gelöscht.</translation>
    </message>
    <message>
        <source>Without it there is no letter.</source>
        <translation>Ohne sie gibt es kein Schreiben.</translation>
    </message>
</context>
<context>
    <name>ledra::ReminderEditor</name>
    <message>
        <source>Interest rate</source>
        <translation>Zinssatz</translation>
    </message>
    <message>
        <source>Late payment fee</source>
        <translation>Mahnkosten</translation>
    </message>
    <message>
        <source>Reset Text</source>
        <translation>Text zurücksetzen</translation>
    </message>
    <message>
        <source>pay by %1</source>
        <translation>zahlbar bis %1</translation>
    </message>
    <message>
        <source>The invoice has been deleted.</source>
        <translation>Die Rechnung wurde gelöscht.</translation>
    </message>
    <message>
        <source>Invoice %1, %2, due on %3</source>
        <translation>Rechnung %1, %2, fällig am %3</translation>
    </message>
    <message>
        <source>%1 for %2</source>
        <translation>%1 für %2</translation>
    </message>
    <message>
        <source>altogether %1</source>
        <translation>insgesamt %1</translation>
    </message>
    <message>
        <source>Stage</source>
        <translation>Mahnstufe</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Write the usual letter of this stage again</source>
        <translation>Den üblichen Text dieser Mahnstufe neu schreiben</translation>
    </message>
    <message>
        <source>&amp;Text</source>
        <translation>&amp;Text</translation>
    </message>
    <message>
        <source>Insert:</source>
        <translation>Einfügen:</translation>
    </message>
</context>
<context>
    <name>ledra::ReminderExport</name>
    <message>
        <source>Saved as %1</source>
        <translation>Gespeichert als %1</translation>
    </message>
    <message numerus="yes">
        <source>%n reminders saved</source>
        <translation>
            <numerusform>%n Mahnung gespeichert</numerusform>
            <numerusform>%n Mahnungen gespeichert</numerusform>
        </translation>
    </message>
    <message>
        <source>Export as PDF</source>
        <translation>Als PDF exportieren</translation>
    </message>
    <message>
        <source>PDF files (*.pdf)</source>
        <translation>PDF-Dateien (*.pdf)</translation>
    </message>
    <message>
        <source>Letters whose invoice has been deleted were left out.</source>
        <translation>Schreiben zu gelöschten Rechnungen wurden ausgelassen.</translation>
    </message>
</context>
<context>
    <name>ledra::ReminderListView</name>
    <message>
        <source>Reminders</source>
        <translation>Mahnungen</translation>
    </message>
</context>
<context>
    <name>ledra::ReminderPanel</name>
    <message>
        <source>No reminders yet</source>
        <translation>Noch keine Mahnungen</translation>
    </message>
    <message>
        <source>Choose a sent invoice that is overdue, then “Create Payment Reminder”. The letter is written for you, and you can change every word of it.</source>
        <translation>Wählen Sie eine versendete, überfällige Rechnung und dann „Mahnung erstellen“. Das Schreiben wird für Sie verfasst, und Sie können jedes Wort ändern.</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Show Invoice</source>
        <translation>Rechnung zeigen</translation>
    </message>
    <message>
        <source>Export as PDF…</source>
        <translation>Als PDF exportieren…</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
</context>
<context>
    <name>ledra::ReminderTableModel</name>
    <message>
        <source>Reminder</source>
        <translation>Mahnung</translation>
    </message>
    <message>
        <source>Recipient</source>
        <translation>Empfänger</translation>
    </message>
    <message>
        <source>Pay by</source>
        <translation>Zahlbar bis</translation>
    </message>
    <message>
        <source>Stage of the reminder</source>
        <translation>Mahnstufe</translation>
    </message>
    <message>
        <source>Number of the invoice</source>
        <translation>Rechnungsnummer</translation>
    </message>
    <message>
        <source>Date of the reminder</source>
        <translation>Datum der Mahnung</translation>
    </message>
    <message>
        <source>Payment deadline</source>
        <translation>Zahlungsfrist</translation>
    </message>
    <message>
        <source>Total of the invoice with interest and fee</source>
        <translation>Rechnungsbetrag mit Zinsen und Mahnkosten</translation>
    </message>
    <message>
        <source>Deleted</source>
        <translation>Gelöscht</translation>
    </message>
    <message>
        <source>The payment deadline has passed.</source>
        <translation>Die Zahlungsfrist ist abgelaufen.</translation>
    </message>
    <message>
        <source>Invoice</source>
        <translation>Rechnung</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>To pay</source>
        <translation>Zu zahlen</translation>
    </message>
</context>
<context>
    <name>ledra::SenderSection</name>
    <message>
        <source>Sender</source>
        <translation>Absender</translation>
    </message>
    <message>
        <source>Business</source>
        <translation>Firma</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Address 2</source>
        <translation>Adresszeile 2</translation>
    </message>
    <message>
        <source>Postcode</source>
        <translation>PLZ</translation>
    </message>
    <message>
        <source>City</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Bundesland</translation>
    </message>
    <message>
        <source>E-mail</source>
        <translation>E-Mail</translation>
    </message>
    <message>
        <source>Phone</source>
        <translation>Telefon</translation>
    </message>
    <message>
        <source>Website</source>
        <translation>Website</translation>
    </message>
    <message>
        <source>Additional</source>
        <translation>Zusatz</translation>
    </message>
    <message>
        <source>IBAN</source>
        <translation>IBAN</translation>
    </message>
    <message>
        <source>BIC</source>
        <translation>BIC</translation>
    </message>
    <message>
        <source>Tax number</source>
        <translation>Steuernummer</translation>
    </message>
    <message>
        <source>VAT ID</source>
        <translation>USt-IdNr.</translation>
    </message>
    <message>
        <source>Further numbers</source>
        <translation>Weitere Nummern</translation>
    </message>
    <message>
        <source>Country</source>
        <translation>Land</translation>
    </message>
    <message>
        <source>Take From Profile</source>
        <translation>Aus Profil übernehmen</translation>
    </message>
</context>
<context>
    <name>ledra::SettingsWindow</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Seiten</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Profiles</source>
        <translation>Profile</translation>
    </message>
    <message>
        <source>Data</source>
        <translation>Daten</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Export</translation>
    </message>
    <message>
        <source>Plugins</source>
        <translation>Plugins</translation>
    </message>
    <message>
        <source>Text Parser</source>
        <translation>Texterkennung</translation>
    </message>
</context>
<context>
    <name>ledra::ShortcutSheet</name>
    <message>
        <source>No command is called that.</source>
        <translation>Kein Befehl heißt so.</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Search commands and keys</source>
        <translation>Befehle und Tasten suchen</translation>
    </message>
    <message>
        <source>Commands and their shortcuts</source>
        <translation>Befehle und ihre Tastenkürzel</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation>Kürzel</translation>
    </message>
</context>
<context>
    <name>ledra::SideBar</name>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Drafts</source>
        <translation>Entwürfe</translation>
    </message>
    <message>
        <source>Sent</source>
        <translation>Versendet</translation>
    </message>
    <message>
        <source>Overdue</source>
        <translation>Überfällig</translation>
    </message>
    <message>
        <source>Paid</source>
        <translation>Bezahlt</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Storniert</translation>
    </message>
    <message>
        <source>Quotes</source>
        <translation>Angebote</translation>
    </message>
    <message>
        <source>Profile</source>
        <translation>Profil</translation>
    </message>
    <message>
        <source>Lists</source>
        <translation>Listen</translation>
    </message>
    <message>
        <source>Reminders</source>
        <translation>Mahnungen</translation>
    </message>
</context>
<context>
    <name>ledra::StyleFileSection</name>
    <message>
        <source>Style file</source>
        <translation>Stildatei</translation>
    </message>
    <message>
        <source>Import Style…</source>
        <translation>Stil importieren…</translation>
    </message>
    <message>
        <source>Takes over a whole look, with its logo and its style sheet</source>
        <translation>Übernimmt ein ganzes Aussehen mit Logo und Stylesheet</translation>
    </message>
    <message>
        <source>Export Style…</source>
        <translation>Stil exportieren…</translation>
    </message>
    <message>
        <source>Writes this look into a file, for another profile or another computer</source>
        <translation>Schreibt dieses Aussehen in eine Datei, für ein anderes Profil oder einen anderen Rechner</translation>
    </message>
</context>
<context>
    <name>ledra::StyleSheetSection</name>
    <message>
        <source>Style sheet</source>
        <translation>Stylesheet</translation>
    </message>
    <message>
        <source>Remove Style Sheet</source>
        <translation>Stylesheet entfernen</translation>
    </message>
    <message>
        <source>Import Style Sheet…</source>
        <translation>Stylesheet importieren…</translation>
    </message>
    <message>
        <source>Import Style Sheet</source>
        <translation>Stylesheet importieren</translation>
    </message>
    <message>
        <source>Style sheets (*.css)</source>
        <translation>Stylesheets (*.css)</translation>
    </message>
</context>
<context>
    <name>ledra::StylingPanel</name>
    <message>
        <source>Invoice Styling</source>
        <translation>Rechnungsstil</translation>
    </message>
    <message>
        <source>Reset to Defaults</source>
        <translation>Auf Standard zurücksetzen</translation>
    </message>
    <message>
        <source>Everything but the logo and the style sheet</source>
        <translation>Alles außer Logo und Stylesheet</translation>
    </message>
    <message>
        <source>Close Styling</source>
        <translation>Stil schließen</translation>
    </message>
</context>
<context>
    <name>ledra::TableSection</name>
    <message>
        <source>Item table</source>
        <translation>Positionstabelle</translation>
    </message>
    <message>
        <source>Tinted rows</source>
        <translation>Getönte Zeilen</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>Linien</translation>
    </message>
    <message>
        <source>Lines stand between rows that are not tinted</source>
        <translation>Linien stehen zwischen nicht getönten Zeilen</translation>
    </message>
    <message>
        <source>Fill the page with empty rows</source>
        <translation>Seite mit leeren Zeilen füllen</translation>
    </message>
</context>
<context>
    <name>ledra::TermsSection</name>
    <message>
        <source>Terms</source>
        <translation>Konditionen</translation>
    </message>
    <message>
        <source>VAT exemption</source>
        <translation>Steuerbefreiung</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>Währung</translation>
    </message>
    <message>
        <source>As in the profile</source>
        <translation>Wie im Profil</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Marginal note</source>
        <translation>Randnotiz</translation>
    </message>
</context>
<context>
    <name>ledra::TextParserPage</name>
    <message>
        <source>This address %1</source>
        <translation>Adresse ungültig: %1</translation>
    </message>
    <message>
        <source>Model on this computer</source>
        <translation>Modell auf diesem Computer</translation>
    </message>
    <message>
        <source>A model server on this computer turns texts into invoices. Nothing leaves the computer.</source>
        <translation>Ein Modellserver auf diesem Computer macht aus Texten Rechnungen. Nichts verlässt den Computer.</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>The first that the server has</source>
        <translation>Das erste auf dem Server</translation>
    </message>
    <message>
        <source>Time limit</source>
        <translation>Zeitlimit</translation>
    </message>
    <message>
        <source> seconds</source>
        <translation> Sekunden</translation>
    </message>
    <message>
        <source>Test</source>
        <translation>Testen</translation>
    </message>
    <message>
        <source>Asking the server…</source>
        <translation>Server wird gefragt…</translation>
    </message>
    <message>
        <source>The model is available.</source>
        <translation>Das Modell ist verfügbar.</translation>
    </message>
</context>
<context>
    <name>ledra::TextToInvoice</name>
    <message>
        <source>New Invoice from Text</source>
        <translation>Neue Rechnung aus Text</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>Text Parser Settings…</source>
        <translation>Einstellungen der Texterkennung…</translation>
    </message>
    <message>
        <source>Paste or drop an e-mail, a note, an address or a list of services here.</source>
        <translation>Fügen Sie hier eine E-Mail, eine Notiz, eine Adresse oder eine Liste von Leistungen ein.</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>A model on this computer reads the text. Nothing leaves the computer.</source>
        <translation>Ein Modell auf diesem Computer liest den Text. Nichts verlässt den Computer.</translation>
    </message>
    <message>
        <source>Read Text</source>
        <translation>Text lesen</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>What becomes of it</source>
        <translation>Was daraus wird</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Use</source>
        <translation>Übernehmen</translation>
    </message>
    <message>
        <source>The model is reading …</source>
        <translation>Das Modell liest…</translation>
    </message>
    <message numerus="yes">
        <source>%n fields so far …</source>
        <translation>
            <numerusform>Bisher %n Feld …</numerusform>
            <numerusform>Bisher %n Felder …</numerusform>
        </translation>
    </message>
    <message>
        <source>Stopped. Nothing was changed.</source>
        <translation>Angehalten. Nichts wurde geändert.</translation>
    </message>
    <message>
        <source>Nothing was found in the text.</source>
        <translation>Im Text wurde nichts gefunden.</translation>
    </message>
    <message>
        <source>Models err: look at the fields. Each can be changed or emptied.</source>
        <translation>Modelle irren sich: Sehen Sie die Felder durch. Jedes lässt sich ändern oder leeren.</translation>
    </message>
    <message>
        <source>New invoice</source>
        <translation>Neue Rechnung</translation>
    </message>
    <message>
        <source>Draft %1: fill what is empty</source>
        <translation>Entwurf %1: Leeres ausfüllen</translation>
    </message>
    <message>
        <source>Cannot be used:</source>
        <translation>Nicht verwendbar:</translation>
    </message>
</context>
<context>
    <name>ledra::Toast</name>
    <message>
        <source>Message</source>
        <translation>Meldung</translation>
    </message>
</context>
<context>
    <name>ledra::TokenButton</name>
    <message>
        <source>Insert %1</source>
        <translation>%1 einfügen</translation>
    </message>
    <message>
        <source>Click to insert it at the cursor, or drag it to its place.</source>
        <translation>Klicken fügt es an der Schreibmarke ein; oder ziehen Sie es an seinen Platz.</translation>
    </message>
</context>
<context>
    <name>ledra::TrashTab</name>
    <message>
        <source>Trash</source>
        <translation>Papierkorb</translation>
    </message>
    <message>
        <source>Deleted</source>
        <translation>Gelöscht</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Wiederherstellen</translation>
    </message>
</context>
<context>
    <name>ledra::ViewerTab</name>
    <message>
        <source>Notice</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>The document itself states another total. %1</source>
        <translation>Das Dokument selbst nennt eine andere Summe. %1</translation>
    </message>
    <message>
        <source>Document</source>
        <translation>Dokument</translation>
    </message>
</context>
<context>
    <name>ledra::ViewerWebView</name>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
</context>
<context>
    <name>ledra::ViewerWindow</name>
    <message>
        <source>Opened e-invoices</source>
        <translation>Geöffnete E-Rechnungen</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Select E-Invoices</source>
        <translation>E-Rechnungen auswählen</translation>
    </message>
    <message>
        <source>E-Invoices (*.xml *.pdf);;All Files (*)</source>
        <translation>E-Rechnungen (*.xml *.pdf);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Import E-Invoices</source>
        <translation>E-Rechnungen importieren</translation>
    </message>
    <message>
        <source>The selected files could not be read as e-invoices.</source>
        <translation>Die ausgewählten Dateien konnten nicht als E-Rechnungen gelesen werden.</translation>
    </message>
    <message>
        <source>Close %1</source>
        <translation>%1 schließen</translation>
    </message>
    <message>
        <source>%1 – E-Invoice Viewer</source>
        <translation>%1 – E-Rechnungen</translation>
    </message>
    <message>
        <source>E-Invoice Viewer</source>
        <translation>E-Rechnungen</translation>
    </message>
    <message>
        <source>%1 is no file of this computer.</source>
        <translation>%1 ist keine Datei dieses Computers.</translation>
    </message>
    <message>
        <source>Import Failed</source>
        <translation>Import fehlgeschlagen</translation>
    </message>
</context>
</TS>
