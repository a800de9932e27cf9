#pragma once

#include "exchange/archive_error.h"

#include <QWidget>

namespace ledra {

/// What an import or an export of files says, in the language of the windows.
QString failureText(const QString& english);

/// Says in an alert why a file that holds profiles or a style was not taken in or written; what exactly, on
/// demand.
void alert(QWidget& window, const QString& title, const ArchiveFailure& failure);

} // namespace ledra
