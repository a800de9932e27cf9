#include "ui/look/status_colors.h"

#include "ui/look/appearance.h"

#include <QCoreApplication>

#include <array>

namespace ledra {

namespace {

// In the order of Status, then what is overdue.
constexpr std::array looks = {
    StatusLook{QT_TRANSLATE_NOOP("StatusLook", "Draft"), 0xffe9e9ee, 0xff48484d, 0xff3d3e44, 0xffd6d6dc,
               "drafts"},
    StatusLook{QT_TRANSLATE_NOOP("StatusLook", "Sent"), 0xffdfeafd, 0xff1b449c, 0xff1f3a60, 0xffb1d1ff,
               "sent"},
    StatusLook{QT_TRANSLATE_NOOP("StatusLook", "Paid"), 0xffdcf5e5, 0xff15603a, 0xff1d472f, 0xffabe9c0,
               "paid"},
    StatusLook{QT_TRANSLATE_NOOP("StatusLook", "Cancelled"), 0xfff2ebe4, 0xff6a4a30, 0xff45372a, 0xffe8cdb5,
               "cancelled"},
    StatusLook{QT_TRANSLATE_NOOP("StatusLook", "Overdue"), 0xfffde4e3, 0xff97201b, 0xff592626, 0xffffbcb7,
               "overdue"},
};

} // namespace

QString StatusLook::displayText() const
{
    return QCoreApplication::translate("StatusLook", text);
}

QColor StatusLook::ground() const
{
    return QColor(isDarkAppearance() ? darkGround : lightGround);
}

QColor StatusLook::ink() const
{
    return QColor(isDarkAppearance() ? darkText : lightText);
}

const StatusLook& statusLook(const Invoice& invoice, Timestamp now)
{
    const bool isOverdue = invoice.type != InvoiceType::quote && invoice.isOverdue(now);
    return isOverdue ? looks.back() : statusLook(invoice.status);
}

const StatusLook& statusLook(Status status)
{
    return looks.at(static_cast<std::size_t>(status));
}

const StatusLook& warningLook()
{
    return looks.back();
}

std::span<const StatusLook> statusLooks()
{
    return looks;
}

} // namespace ledra
