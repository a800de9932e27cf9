#pragma once

#include "model/invoice.h"

#include <QColor>
#include <QString>

#include <span>

namespace ledra {

/// How the state of a record is shown: its word on a tinted ground. All pairs have the contrast that WCAG 2.1
/// asks of small text (4.5 to 1).
struct StatusLook
{
    const char* text; ///< English, to be translated in the context "StatusLook"
    QRgb lightGround;
    QRgb lightText;
    QRgb darkGround;
    QRgb darkText;
    const char* icon;

    QString displayText() const;
    QColor ground() const; ///< in the appearance in force
    QColor ink() const;
};

/// That of a record: its status, or that it is overdue. Quotes are never overdue.
const StatusLook& statusLook(const Invoice& invoice, Timestamp now);
const StatusLook& statusLook(Status status);

/// The colours of what went wrong.
const StatusLook& warningLook();

/// All of them.
std::span<const StatusLook> statusLooks();

} // namespace ledra
