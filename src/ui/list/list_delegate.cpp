#include "ui/list/list_delegate.h"

#include "ui/list/invoice_table_model.h"
#include "ui/look/status_colors.h"

#include <QPainter>

namespace ledra {

namespace {

constexpr int margin = 8;

void paintHeading(QPainter& painter, const QStyleOptionViewItem& option, const QString& text)
{
    QFont font = option.font;
    font.setWeight(QFont::DemiBold);
    painter.save();
    painter.fillRect(option.rect, option.palette.color(QPalette::AlternateBase));
    painter.setFont(font);
    painter.setPen(option.palette.color(QPalette::PlaceholderText));
    painter.drawText(option.rect.adjusted(margin, 0, -margin, -4), Qt::AlignLeft | Qt::AlignBottom, text);
    painter.restore();
}

} // namespace

void paintStatus(QPainter& painter, const QRect& place, const StatusLook& look, const QFont& font)
{
    constexpr double smaller = 0.92;
    constexpr int height = 21;
    QFont small = font;
    small.setPointSizeF(font.pointSizeF() * smaller);
    small.setWeight(QFont::Medium);
    const QString text = look.displayText();
    const int width = std::min(QFontMetrics(small).horizontalAdvance(text) + 2 * margin, place.width());
    const QRect ground(place.left(), place.center().y() - height / 2, width, height);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(look.ground());
    painter.drawRoundedRect(ground, height / 2.0, height / 2.0);
    painter.setFont(small);
    painter.setPen(look.ink());
    painter.drawText(ground, Qt::AlignCenter, text);
    painter.restore();
}

void ListDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const
{
    if (model_.isHeading(index.row())) {
        paintHeading(*painter, option, index.data().toString());
        return;
    }
    QStyleOptionViewItem item = option;
    item.state.setFlag(QStyle::State_HasFocus, false); // rows are chosen as a whole
    initStyleOption(&item, index);
    const bool isStatus = index.column() == InvoiceTableModel::status;
    const QString text = std::exchange(item.text, QString());
    item.widget->style()->drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);
    if (!isStatus) {
        const bool isSelected = option.state.testFlag(QStyle::State_Selected);
        painter->setPen(option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
        const QRect place = option.rect.adjusted(margin, 0, -margin, 0);
        painter->drawText(place, static_cast<int>(item.displayAlignment),
                          option.fontMetrics.elidedText(text, Qt::ElideRight, place.width()));
    } else {
        const StatusLook& look = statusLooks()[static_cast<std::size_t>(index.data(Qt::UserRole).toInt())];
        paintStatus(*painter, option.rect.adjusted(margin / 2, 0, -margin / 2, 0), look, option.font);
    }
}

} // namespace ledra
