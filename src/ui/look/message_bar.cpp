#include "ui/look/message_bar.h"

#include "ui/look/color_keeper.h"
#include "ui/look/icons.h"
#include "ui/look/status_colors.h"
#include "ui/look/tab_place.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

namespace ledra {

namespace {

void tint(QWidget& row, const StatusLook& look)
{
    keepColors(row, look);
    row.setAutoFillBackground(true);
}

} // namespace

MessageBar::MessageBar(QWidget* parent) : QWidget(parent), layout_(new QVBoxLayout(this))
{
    layout_->setContentsMargins(0, 0, 0, 0);
    layout_->setSpacing(1);
    hide();
}

void MessageBar::warn(const QString& line, const std::vector<Remedy>& remedies)
{
    addRow(line, remedies, "warning", warningLook());
}

void MessageBar::inform(const QString& line, const std::vector<Remedy>& remedies)
{
    constexpr int milliseconds = 20'000;
    if (QFrame* row = addRow(line, remedies, "information", statusLook(Status::sent)))
        QTimer::singleShot(milliseconds, row, [this, row] { remove(row); });
}

/// Nothing where the line stands already.
QFrame* MessageBar::addRow(const QString& line, const std::vector<Remedy>& remedies, const char* iconName,
                           const StatusLook& look)
{
    constexpr std::size_t most = 4; // older ones make room
    if (lines().contains(line))
        return nullptr;
    if (rows_.size() == most)
        remove(rows_.front().second);
    auto* row = new QFrame(this);
    tint(*row, look);
    auto* parts = new QHBoxLayout(row);
    parts->setContentsMargins(12, 6, 8, 6);
    auto* icon = new QLabel(row);
    icon->setPixmap(lineIcon(iconName, look.ink()).pixmap(QSize(18, 18), devicePixelRatioF()));
    parts->addWidget(icon, 0, Qt::AlignVCenter);
    auto* text = new QLabel(row);
    text->setTextFormat(Qt::PlainText);
    text->setText(line);
    text->setWordWrap(true);
    text->setMinimumWidth(1); // a long path does not widen the window
    text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    parts->addWidget(text, 1);
    QWidget* before = this; // after which Tab comes to the buttons
    if (!rows_.empty())
        before = rows_.back().second->findChild<QToolButton*>();
    for (const Remedy& remedy : remedies) {
        auto* button = new QPushButton(remedy.text, row);
        connect(button, &QPushButton::clicked, this, [this, row, run = remedy.run] {
            remove(row);
            run();
        });
        parts->addWidget(button);
        setTabPlace(*std::exchange(before, button), *button);
    }
    auto* close = new QToolButton(row);
    close->setIcon(lineIcon("close", look.ink()));
    close->setAccessibleName(tr("Close Message"));
    close->setToolTip(tr("Close Message"));
    connect(close, &QToolButton::clicked, this, [this, row] { remove(row); });
    parts->addWidget(close, 0, Qt::AlignTop);
    setTabPlace(*before, *close);
    layout_->addWidget(row);
    rows_.emplace_back(line, row);
    show();
    return row;
}

QStringList MessageBar::lines() const
{
    QStringList lines;
    for (const auto& [line, row] : rows_)
        lines += line;
    return lines;
}

void MessageBar::clear()
{
    while (!rows_.empty())
        remove(rows_.front().second);
}

void MessageBar::remove(QFrame* row)
{
    std::erase_if(rows_, [&](const auto& each) { return each.second == row; });
    row->hide();
    row->deleteLater(); // its button may have been clicked
    setVisible(!rows_.empty());
}

} // namespace ledra
