#include "ui/reminders/variable_chip.h"

#include "ui/look/status_colors.h"

#include <QCoreApplication>
#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>

namespace ledra {

namespace {

constexpr int variableProperty = QTextFormat::UserProperty + 1;
constexpr int inset = 7;  // from the chip's ends to its label
constexpr int margin = 1; // around the chip

QFont chipFont(const QTextDocument& document)
{
    constexpr double smaller = 0.92;
    QFont font = document.defaultFont();
    font.setPointSizeF(font.pointSizeF() * smaller);
    font.setWeight(QFont::Medium);
    return font;
}

/// Where the text of the chip's line stands. The layout hands over a place at the top of the line, whatever
/// else the line holds.
double baselineOf(const QTextDocument& document, int position, double top)
{
    const QTextBlock block = document.findBlock(position);
    return top + block.layout()->lineForTextPosition(position - block.position()).ascent();
}

QString labelOf(const QTextFormat& format)
{
    const std::optional<ReminderVariable> variable = VariableChip::variable(format);
    return variable ? variableLabel(*variable) : QString();
}

} // namespace

QString variableLabel(ReminderVariable variable)
{
    return QCoreApplication::translate("ReminderVariable", enumText(variable).displayText.data());
}

QTextCharFormat VariableChip::format(ReminderVariable variable)
{
    QTextCharFormat format;
    format.setObjectType(objectType);
    format.setProperty(variableProperty, static_cast<int>(variable));
    format.setVerticalAlignment(QTextCharFormat::AlignBaseline);
    return format;
}

std::optional<ReminderVariable> VariableChip::variable(const QTextFormat& format)
{
    if (format.objectType() != objectType)
        return std::nullopt;
    return static_cast<ReminderVariable>(format.intProperty(variableProperty));
}

QSizeF VariableChip::intrinsicSize(QTextDocument* document, int, const QTextFormat& format)
{
    const QFontMetricsF label(chipFont(*document));
    return {label.horizontalAdvance(labelOf(format)) + 2 * (inset + margin),
            QFontMetricsF(document->defaultFont()).lineSpacing()};
}

void VariableChip::drawObject(QPainter* painter, const QRectF& rect, QTextDocument* document, int position,
                              const QTextFormat& format)
{
    constexpr double radius = 5;
    const QFontMetricsF metrics(document->defaultFont());
    const double baseline = baselineOf(*document, position, rect.top());
    const QRectF ground(rect.left() + margin, baseline - metrics.ascent(), rect.width() - 2 * margin,
                        metrics.height());
    const StatusLook& look = statusLook(Status::sent);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    // Over what is selected the layout lays a veil in the selection's colour, which a ground would break.
    const bool isSelected = format.hasProperty(QTextFormat::ForegroundBrush);
    painter->setBrush(isSelected ? QBrush(Qt::NoBrush) : QBrush(look.ground()));
    painter->drawRoundedRect(ground, radius, radius);
    painter->setFont(chipFont(*document));
    painter->setPen(isSelected ? format.foreground().color() : look.ink());
    painter->drawText(QPointF(ground.left() + inset, baseline), labelOf(format));
    painter->restore();
}

} // namespace ledra
