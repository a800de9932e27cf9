#include "ui/viewer/drop_zone.h"

#include "ui/look/appearance.h"

#include <QPainter>

namespace ledra {

DropZone::DropZone(QWidget* parent) : EmptyState(parent)
{
    setContent("e-invoice", tr("Drop e-invoices here"),
               tr("XML files, and PDFs that carry one (ZUGFeRD, Factur-X, XRechnung)"),
               tr("Select E-Invoices…"));
    setAccessibleName(tr("Drop e-invoices here"));
}

void DropZone::setMarked(bool isMarked)
{
    isMarked_ = isMarked;
    update();
}

void DropZone::paintEvent(QPaintEvent* event)
{
    constexpr int margin = 24;
    constexpr double radius = 12;
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QPalette::ColorRole line = isDarkAppearance() ? QPalette::Mid : QPalette::Dark;
        QPen pen(palette().color(isMarked_ ? QPalette::Highlight : line), isMarked_ ? 2 : 1.5);
        pen.setStyle(Qt::DashLine);
        painter.setPen(pen);
        painter.setBrush(isMarked_ ? palette().brush(QPalette::AlternateBase) : QBrush(Qt::NoBrush));
        painter.drawRoundedRect(QRectF(rect()).adjusted(margin, margin, -margin, -margin), radius, radius);
    }
    EmptyState::paintEvent(event);
}

} // namespace ledra
