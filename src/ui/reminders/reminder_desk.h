#pragma once

#include "ui/window_parts.h"

#include <QObject>
#include <QUuid>

namespace ledra {

class InvoiceRemindersBar;
class PreviewPanel;
class ReminderEditor;
class ReminderPanel;
class SideBar;

/// The reminders in the main window: their list takes the place of that of the invoices, their letters that
/// of the documents, and a bar above an invoice's document says what was and what can be sent.
class ReminderDesk : public QObject
{
    Q_OBJECT

public:
    ReminderDesk(const WindowParts& parts, SideBar& sideBar, PreviewPanel& preview);

    // For the window to lay out.
    ReminderPanel& panel() { return *panel_; }
    ReminderEditor& editor() { return *editor_; }
    InvoiceRemindersBar& bar() { return *bar_; }

    bool isShown() const { return isShown_; }
    void remind(const QUuid& invoiceId); ///< makes a reminder and goes to it
    void reveal(const QUuid& reminderId);

Q_SIGNALS:
    void shownChanged(bool isShown);
    void invoiceWanted(const QUuid& id);

private:
    void show(bool isShown);
    void showSelected();
    void showLetter(bool isOther);

    const WindowParts& parts_;
    SideBar& sideBar_;
    PreviewPanel& preview_;
    ReminderPanel* panel_;
    ReminderEditor* editor_;
    InvoiceRemindersBar* bar_;
    bool isShown_ = false;
};

} // namespace ledra
