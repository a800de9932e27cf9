#include "ui/chips/chip_object.h"

#include "ui/look/status_colors.h"

#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>

namespace ledra {

namespace {

constexpr int tokenProperty = QTextFormat::UserProperty + 1;
constexpr int labelProperty = QTextFormat::UserProperty + 2;
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

} // namespace

QTextCharFormat ChipObject::format(const QString& token, const QString& label)
{
    QTextCharFormat format;
    format.setObjectType(objectType);
    format.setProperty(tokenProperty, token);
    format.setProperty(labelProperty, label);
    format.setVerticalAlignment(QTextCharFormat::AlignBaseline);
    return format;
}

QString ChipObject::token(const QTextFormat& format)
{
    return format.objectType() == objectType ? format.stringProperty(tokenProperty) : QString();
}

QSizeF ChipObject::intrinsicSize(QTextDocument* document, int, const QTextFormat& format)
{
    const QFontMetricsF label(chipFont(*document));
    return {label.horizontalAdvance(format.stringProperty(labelProperty)) + 2 * (inset + margin),
            QFontMetricsF(document->defaultFont()).lineSpacing()};
}

void ChipObject::drawObject(QPainter* painter, const QRectF& rect, QTextDocument* document, int position,
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
    // Over what is selected the layout lays a veil in the selection's colour, through which the label is read
    // on the darkest ground only. It ends where the object does.
    const bool isSelected = format.hasProperty(QTextFormat::ForegroundBrush);
    painter->setBrush(isSelected ? QColor(Qt::black) : look.ground());
    painter->drawRoundedRect(isSelected ? ground.intersected(rect) : ground, radius, radius);
    painter->setFont(chipFont(*document));
    painter->setPen(isSelected ? format.foreground().color() : look.ink());
    painter->drawText(QPointF(ground.left() + inset, baseline), format.stringProperty(labelProperty));
    painter->restore();
}

} // namespace ledra
