#pragma once

#include "app/export_batch.h"

#include <QWidget>

namespace ledra {

/// Goes on with an export: at once, or where an e-invoice lacks what it needs, if the user wants it all the
/// same. Then the order says that the user knows.
///
/// @param action what the export is called ("Export as XRechnung")
void askAboutMissingFields(QWidget& window, const QString& action, ExportOrder order,
                           const std::function<void(ExportOrder)>& goOn);

} // namespace ledra
