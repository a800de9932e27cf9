#pragma once

#include "app/document_export.h"

namespace ledra {

class MainWindow;

// What the commands on files do in a window.
void exportSelected(MainWindow& window, ExportFormat format);
void exportInDefaultFormat(MainWindow& window);
void exportFullList(MainWindow& window, ExportFormat format);
void exportFilteredList(MainWindow& window, ExportFormat format);
void exportFullCsv(MainWindow& window);
void exportFilteredCsv(MainWindow& window);
void printRecords(MainWindow& window);
void sendRecordByMail(MainWindow& window);
void copyRecordsAsFiles(MainWindow& window);
void revealRecords(MainWindow& window);
void importPDFs(MainWindow& window);
void importEInvoices(MainWindow& window);
void exportProfiles(MainWindow& window);

/// Adds to the menus what takes profiles and styles in and writes a style.
void addArchiveCommands(MainWindow& window);

/// Adds the export of the active profile, which is called by its name, to the menu for that.
void addActiveProfileExport(MainWindow& window);

} // namespace ledra
