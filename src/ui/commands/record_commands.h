#pragma once

#include "model/enumerations.h"

namespace ledra {

class MainWindow;

// What the commands on records do in a window.
void newInvoice(MainWindow& window);
void newQuote(MainWindow& window);
void openInSeparateWindow(MainWindow& window);
void duplicateRecord(MainWindow& window);
void cancelInvoice(MainWindow& window);
void makeInvoiceOfQuote(MainWindow& window);
void remindOfInvoice(MainWindow& window);
void deleteRecords(MainWindow& window);
void setStatusOfRecords(MainWindow& window, Status status);

} // namespace ledra
