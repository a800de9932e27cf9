#include "ui/reminders/invoice_reminders_bar.h"

#include "ui/look/icons.h"
#include "ui/look/status_colors.h"
#include "ui/reminders/reminder_words.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>

namespace ledra {

InvoiceRemindersBar::InvoiceRemindersBar(LedraApp& app, QWidget* parent)
    : QWidget(parent),
      app_(app),
      icon_(new QLabel(this)),
      text_(new QLabel(this)),
      links_(new QLabel(this)),
      create_(new QPushButton(tr("Create Reminder"), this))
{
    auto* texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addWidget(text_);
    texts->addWidget(links_);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(12, 6, 12, 6);
    layout->setSpacing(10);
    layout->addWidget(icon_, 0, Qt::AlignTop);
    layout->addLayout(texts, 1);
    layout->addWidget(create_);
    text_->setTextFormat(Qt::PlainText);
    text_->setWordWrap(true);
    links_->setTextFormat(Qt::RichText);
    links_->setWordWrap(true);
    links_->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    links_->setAccessibleName(tr("Reminders of this invoice"));
    connect(create_, &QPushButton::clicked, this, [this] { Q_EMIT createWanted((*invoice_)->id); });
    connect(links_, &QLabel::linkActivated, this,
            [this](const QString& id) { Q_EMIT reminderPicked(QUuid(id)); });
    connect(&app.reminderManager(), &ReminderManager::refreshed, this, &InvoiceRemindersBar::refresh);
    constexpr int aMoment = 150; // milliseconds
    pause_.setSingleShot(true);
    pause_.setInterval(aMoment);
    connect(&pause_, &QTimer::timeout, this, [this] {
        countsReminders_ = true;
        refresh();
    });
    pause_.start();
    refresh();
}

void InvoiceRemindersBar::setInvoice(const InvoicePtr& invoice)
{
    invoice_ = invoice;
    observation_ = invoice ? invoice->observe([this](const Changes<Invoice>&) { refresh(); }) : nullptr;
    refresh();
}

void InvoiceRemindersBar::refresh()
{
    const bool isOverdue =
        invoice_ && (*invoice_)->type == InvoiceType::invoice && (*invoice_)->isOverdue(app_.clock().now());
    setLook(isOverdue);
    text_->setText(isOverdue ? overdueText() : QString());
    text_->setVisible(isOverdue);
    create_->setVisible(isOverdue);
    const QString links = linksText(links_->palette().color(QPalette::WindowText).name());
    links_->setText(links);
    links_->setVisible(!links.isEmpty());
    setVisible(isOverdue || !links.isEmpty());
}

void InvoiceRemindersBar::setLook(bool isOverdue)
{
    const StatusLook& look = isOverdue ? warningLook() : statusLook(Status::draft);
    ground_ = look.ground();
    for (QLabel* label : {text_, links_}) {
        QPalette palette = label->palette();
        palette.setColor(QPalette::WindowText, look.ink());
        label->setPalette(palette);
    }
    icon_->setPixmap(
        lineIcon(isOverdue ? "warning" : "reminder", look.ink()).pixmap(QSize(18, 18), devicePixelRatioF()));
    update();
}

QString InvoiceRemindersBar::overdueText() const
{
    const QDate today = app_.clock().now().localDate();
    const QDate due = (*invoice_)->dueDay();
    return tr("Overdue since %1 (%2)").arg(nearDayText(due, today), daysText(due.daysTo(today)));
}

QString InvoiceRemindersBar::linksText(const QString& color) const
{
    if (!invoice_ || !countsReminders_)
        return {};
    const QDate today = app_.clock().now().localDate();
    QStringList links;
    for (const ReminderPtr& reminder : app_.reminderManager().remindersOf((*invoice_)->id))
        links += QStringLiteral("<a href=\"%1\" style=\"color: %2\">%3, %4</a>")
                     .arg((*reminder)->id.toString(QUuid::WithoutBraces), color,
                          headlineText((*reminder)->number), nearDayText((*reminder)->date, today));
    return links.join(QStringLiteral(" · "));
}

void InvoiceRemindersBar::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), ground_);
}

void InvoiceRemindersBar::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        refresh();
}

} // namespace ledra
