#pragma once

#include "app/bare_files.h"
#include "app/export_batch.h"
#include "app/ledra_app.h"

#include <vector>

namespace ledra {

/// The documents of bare files. What the files leave open comes from the profile, the look from the styling;
/// the invoice that a cancellation names is looked up beside it. A document is named after its file.
std::vector<ExportSource> fileSources(const QStringList& paths, BareFiles& files, const Profile& profile,
                                      const Styling& styling);

/// The documents of records, with the active profile and its styling. A document is named by its number; of
/// two with one number the second gets the beginning of its id as well.
///
/// @param wordKey a label that stands before the number, in the document's language; empty for none
std::vector<ExportSource> recordSources(const std::vector<InvoicePtr>& records, LedraApp& app,
                                        const QString& wordKey = {});

/// The letters of reminders, each named by its headline and the number of its invoice, which must be loaded.
std::vector<ExportSource> reminderSources(const std::vector<ReminderPtr>& reminders, LedraApp& app);

/// A displayed number as a file name: what separates folders, or means something to other systems, becomes
/// "-".
QString fileNameOf(const QString& number);

} // namespace ledra
