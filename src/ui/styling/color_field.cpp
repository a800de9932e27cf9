#include "ui/styling/color_field.h"

#include "render/color.h"
#include "ui/look/appearance.h"
#include "ui/look/status_colors.h"

#include <QColorDialog>
#include <QHBoxLayout>
#include <QPainter>

namespace ledra {

ColorField::ColorField(const QString& label, QWidget* parent)
    : QWidget(parent), swatch_(new QToolButton(this)), digits_(new QLineEdit(this))
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(swatch_);
    row->addWidget(digits_);
    row->addStretch();
    constexpr int width = 110;
    digits_->setFixedWidth(width);
    digits_->setAccessibleName(label);
    digits_->setPlaceholderText(QStringLiteral("68977C"));
    swatch_->setAccessibleName(tr("Pick “%1”").arg(label));
    swatch_->setToolTip(tr("Pick a color"));
    swatch_->setIconSize(QSize(30, 16));
    swatch_->setFocusPolicy(Qt::StrongFocus);
    setFocusProxy(digits_);
    connect(swatch_, &QToolButton::clicked, this, &ColorField::openDialog);
    connect(digits_, &QLineEdit::textEdited, this, &ColorField::take);
    connect(digits_, &QLineEdit::editingFinished, this, &ColorField::endTyping);
}

/// A field that has the focus when it goes ends its typing.
ColorField::~ColorField()
{
    digits_->disconnect(this);
}

void ColorField::setColor(const QString& text)
{
    color_ = text;
    showSwatch();
    const std::optional<RgbColor> shown = parseColor(digits_->text());
    if (digits_->hasFocus() && (!shown || shown == parseColor(text)))
        return; // somebody types it
    digits_->setText(text);
    digits_->setPalette(QPalette());
}

void ColorField::take(const QString& text)
{
    const std::optional<RgbColor> color = parseColor(text);
    QPalette ink;
    if (!color)
        ink.setColor(QPalette::Text, warningLook().ink());
    digits_->setPalette(ink);
    if (color)
        Q_EMIT picked(hexText(*color));
}

/// What is no colour goes back to the one that holds.
void ColorField::endTyping()
{
    const QString typed = digits_->text();
    const bool isColor = parseColor(typed).has_value();
    digits_->setText(color_);
    digits_->setPalette(QPalette());
    if (!isColor && typed != color_)
        Q_EMIT refused(
            tr("“%1” is no color. Colors have six digits from 0 to F, such as 68977C.").arg(typed));
}

void ColorField::openDialog()
{
    auto* dialog = new QColorDialog(QColor(u'#' + color_), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setOption(QColorDialog::DontUseNativeDialog);
    connect(dialog, &QColorDialog::currentColorChanged, this,
            [this](const QColor& color) { Q_EMIT picked(color.name().mid(1).toUpper()); });
    connect(dialog, &QColorDialog::rejected, this, [this, before = color_] { Q_EMIT picked(before); });
    dialog->open();
}

void ColorField::showSwatch()
{
    QPixmap pixmap(swatch_->iconSize() * devicePixelRatioF());
    pixmap.setDevicePixelRatio(devicePixelRatioF());
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette().color(isDarkAppearance() ? QPalette::Mid : QPalette::Dark));
    const std::optional<RgbColor> color = parseColor(color_);
    painter.setBrush(color ? QColor(color->red, color->green, color->blue) : QColor(Qt::transparent));
    constexpr double radius = 4;
    painter.drawRoundedRect(QRectF(QPointF(), swatch_->iconSize()).adjusted(0.5, 0.5, -0.5, -0.5), radius,
                            radius);
    swatch_->setIcon(pixmap);
}

} // namespace ledra
