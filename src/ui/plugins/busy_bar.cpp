#include "ui/plugins/busy_bar.h"

#include <QHBoxLayout>
#include <QProgressBar>
#include <QPushButton>

namespace ledra {

BusyBar::BusyBar(QWidget* parent) : QFrame(parent), text_(new QLabel(this))
{
    constexpr int delay = 500; // milliseconds
    constexpr int barWidth = 140;
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::AlternateBase);
    text_->setTextFormat(Qt::PlainText);
    auto* bar = new QProgressBar(this);
    bar->setRange(0, 0);
    bar->setTextVisible(false);
    bar->setFixedWidth(barWidth);
    bar->setAccessibleName(tr("At work"));
    auto* cancel = new QPushButton(tr("Cancel"), this);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(12, 6, 8, 6);
    layout->addWidget(text_, 1);
    layout->addWidget(bar);
    layout->addWidget(cancel);
    hide();
    delay_.setSingleShot(true);
    delay_.setInterval(delay);
    connect(&delay_, &QTimer::timeout, this, &QWidget::show);
    connect(cancel, &QPushButton::clicked, this, &BusyBar::cancelled);
}

void BusyBar::say(const QString& line)
{
    text_->setText(line);
    if (line.isEmpty()) {
        delay_.stop();
        hide();
    } else if (isHidden() && !delay_.isActive()) {
        delay_.start();
    }
}

} // namespace ledra
