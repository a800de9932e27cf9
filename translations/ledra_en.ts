<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>ExportFlow</name>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>and %n more</numerusform>
            <numerusform>and %n more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n documents exported</source>
        <translation>
            <numerusform>%n document exported</numerusform>
            <numerusform>%n documents exported</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n of the files exist already.</source>
        <translation>
            <numerusform>%n of the files exists already.</numerusform>
            <numerusform>%n of the files exist already.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n documents were not exported:</source>
        <translation>
            <numerusform>%n document was not exported:</numerusform>
            <numerusform>%n documents were not exported:</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MissingFields</name>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>and %n more</numerusform>
            <numerusform>and %n more</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>OutputSaving</name>
    <message numerus="yes">
        <source>%n of the files exist already.</source>
        <translation>
            <numerusform>%n of the files exists already.</numerusform>
            <numerusform>%n of the files exist already.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PluginWords</name>
    <message numerus="yes">
        <source>Updates invoices every %n minutes while the window is open</source>
        <translation>
            <numerusform>Updates invoices every minute while the window is open</numerusform>
            <numerusform>Updates invoices every %n minutes while the window is open</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RecordCommands</name>
    <message numerus="yes">
        <source>%n of the selected records left the house already. Others may hold them, and numbers must have no gaps. They can be taken out of the trash again.</source>
        <translation>
            <numerusform>%n of the selected records left the house already. Others may hold it, and numbers must have no gaps. It can be taken out of the trash again.</numerusform>
            <numerusform>%n of the selected records left the house already. Others may hold them, and numbers must have no gaps. They can be taken out of the trash again.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Reminders</name>
    <message numerus="yes">
        <source>%n days</source>
        <translation>
            <numerusform>%n day</numerusform>
            <numerusform>%n days</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ledra::DocumentPrinter</name>
    <message numerus="yes">
        <source>%n documents</source>
        <translation>
            <numerusform>%n document</numerusform>
            <numerusform>%n documents</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ledra::FileImporter</name>
    <message numerus="yes">
        <source>%n documents imported. “Undo” takes them out again.</source>
        <translation>
            <numerusform>%n document imported. “Undo” takes it out again.</numerusform>
            <numerusform>%n documents imported. “Undo” takes them out again.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>and %n more</numerusform>
            <numerusform>and %n more</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ledra::MainWindow</name>
    <message numerus="yes">
        <source>%n invoices selected</source>
        <translation>
            <numerusform>%n invoice selected</numerusform>
            <numerusform>%n invoices selected</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ledra::PluginRuns</name>
    <message numerus="yes">
        <source>%n records were not exported. %1</source>
        <translation>
            <numerusform>%n record was not exported. %1</numerusform>
            <numerusform>%n records were not exported. %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n drafts were made</source>
        <translation>
            <numerusform>%n draft was made</numerusform>
            <numerusform>%n drafts were made</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n records were changed</source>
        <translation>
            <numerusform>%n record was changed</numerusform>
            <numerusform>%n records were changed</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1; %n parts of it were refused</source>
        <translation>
            <numerusform>%1; %n part of it was refused</numerusform>
            <numerusform>%1; %n parts of it were refused</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ledra::ReminderExport</name>
    <message numerus="yes">
        <source>%n reminders saved</source>
        <translation>
            <numerusform>%n reminder saved</numerusform>
            <numerusform>%n reminders saved</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ledra::TextToInvoice</name>
    <message numerus="yes">
        <source>%n fields so far …</source>
        <translation>
            <numerusform>%n field so far …</numerusform>
            <numerusform>%n fields so far …</numerusform>
        </translation>
    </message>
</context>
</TS>
