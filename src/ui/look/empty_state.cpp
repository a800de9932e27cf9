#include "ui/look/empty_state.h"

#include "ui/look/icons.h"

#include <QEvent>
#include <QVBoxLayout>

namespace ledra {

EmptyState::EmptyState(QWidget* parent)
    : QWidget(parent),
      icon_(new QLabel(this)),
      title_(new QLabel(this)),
      text_(new QLabel(this)),
      button_(new QPushButton(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 24, 24, 24);
    layout->addStretch();
    for (QLabel* label : {icon_, title_, text_}) {
        label->setAlignment(Qt::AlignCenter);
        label->setWordWrap(true);
        layout->addWidget(label);
    }
    QFont font = title_->font();
    constexpr double larger = 1.3;
    font.setPointSizeF(font.pointSizeF() * larger);
    font.setWeight(QFont::DemiBold);
    title_->setFont(font);
    text_->setForegroundRole(QPalette::PlaceholderText);
    button_->setDefault(true);
    layout->addSpacing(8);
    layout->addWidget(button_, 0, Qt::AlignCenter);
    layout->addStretch();
    connect(button_, &QPushButton::clicked, this, &EmptyState::clicked);
}

void EmptyState::setContent(const char* icon, const QString& title, const QString& text,
                            const QString& button)
{
    drawing_ = icon;
    icon_->setPixmap(lineIcon(icon, palette().color(QPalette::PlaceholderText))
                         .pixmap(QSize(44, 44), devicePixelRatioF()));
    title_->setText(title);
    text_->setText(text);
    text_->setVisible(!text.isEmpty());
    button_->setText(button);
    button_->setVisible(!button.isEmpty());
}

void EmptyState::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        icon_->setPixmap(lineIcon(drawing_, palette().color(QPalette::PlaceholderText))
                             .pixmap(QSize(44, 44), devicePixelRatioF()));
}

} // namespace ledra
