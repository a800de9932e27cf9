#pragma once

#include "app/ledra_app.h"

#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QWidget>

namespace ledra {

/// Says above an invoice that it is overdue, offers to remind of it, and names the reminders that were sent.
/// Hidden where there is nothing to say.
class InvoiceRemindersBar : public QWidget
{
    Q_OBJECT

public:
    explicit InvoiceRemindersBar(LedraApp& app, QWidget* parent = nullptr);

    /// Speaks of a record; null for none.
    void setInvoice(const InvoicePtr& invoice);

Q_SIGNALS:
    void createWanted(const QUuid& invoiceId);
    void reminderPicked(const QUuid& id);

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void refresh();
    void setLook(bool isOverdue);
    QString overdueText() const;
    QString linksText(const QString& color) const;

    LedraApp& app_;
    InvoicePtr invoice_;
    Observation observation_;
    QLabel* icon_;
    QLabel* text_;
    QLabel* links_;
    QPushButton* create_;
    QTimer pause_;
    QColor ground_;
    bool countsReminders_ = false; ///< reading their files waits until the window stands
};

} // namespace ledra
