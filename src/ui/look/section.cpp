#include "ui/look/section.h"

namespace ledra {

Section::Section(const QString& title, bool folds, QWidget* parent)
    : QWidget(parent), titleRow_(new QHBoxLayout), content_(new QVBoxLayout)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addLayout(titleRow_);
    auto* body = new QWidget(this);
    body->setLayout(content_);
    content_->setContentsMargins(0, 0, 0, 0);
    content_->setSpacing(6);
    layout->addWidget(body);
    QFont font = this->font();
    font.setWeight(QFont::DemiBold);
    if (!folds) {
        auto* label = new QLabel(title, this);
        label->setFont(font);
        titleRow_->addWidget(label);
    } else {
        auto* toggle = new QToolButton(this);
        toggle->setText(title);
        toggle->setFont(font);
        toggle->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        toggle->setArrowType(Qt::RightArrow);
        toggle->setCheckable(true);
        toggle->setStyleSheet(QStringLiteral("QToolButton { padding: 2px 0; }"
                                             "QToolButton:checked { background: transparent; }"));
        body->hide();
        connect(toggle, &QToolButton::toggled, body, &QWidget::setVisible);
        connect(toggle, &QToolButton::toggled, toggle,
                [toggle](bool isOpen) { toggle->setArrowType(isOpen ? Qt::DownArrow : Qt::RightArrow); });
        titleRow_->addWidget(toggle);
    }
    titleRow_->addStretch();
}

} // namespace ledra
