#include "ui/chips/token_button.h"

#include "ui/chips/chip_text_edit.h"

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>

namespace ledra {

TokenButton::TokenButton(const QString& token, const QString& text, ChipTextEdit& edit, QWidget* parent)
    : QToolButton(parent), token_(token)
{
    setText(text);
    setAccessibleName(tr("Insert %1").arg(text));
    setToolTip(tr("Click to insert it at the cursor, or drag it to its place."));
    setFocusPolicy(Qt::TabFocus); // a click leaves the cursor in the text
    setStyleSheet(QStringLiteral("QToolButton { border: 1px solid palette(mid); padding: 3px; }"
                                 "QToolButton[popupMode=\"1\"] { padding-right: 20px; }"
                                 "QToolButton:focus { border-color: palette(highlight); }"
                                 "QToolButton::menu-button { border: 0; width: 16px; }"));
    connect(this, &QToolButton::clicked, &edit, [&edit, token] {
        edit.insertToken(token);
        edit.setFocus();
    });
}

std::unique_ptr<QMimeData> TokenButton::dragData() const
{
    auto carried = std::make_unique<QMimeData>();
    carried->setData(QString::fromLatin1(draggedTokenFormat), token_.toUtf8());
    return carried;
}

void TokenButton::mousePressEvent(QMouseEvent* event)
{
    QToolButton::mousePressEvent(event);
    pressedAt_ = isDown() ? std::optional(event->pos()) : std::nullopt;
}

void TokenButton::mouseMoveEvent(QMouseEvent* event)
{
    const bool isHeld = pressedAt_ && event->buttons() & Qt::LeftButton;
    if (isHeld && (event->pos() - *pressedAt_).manhattanLength() >= QApplication::startDragDistance())
        startDrag(*std::exchange(pressedAt_, std::nullopt));
    else
        QToolButton::mouseMoveEvent(event);
}

/// Returns when the drag is over; the button may be gone then.
void TokenButton::startDrag(const QPoint& place)
{
    setDown(false);               // letting go is no click
    auto* drag = new QDrag(this); // which deletes itself
    drag->setMimeData(dragData().release());
    drag->setPixmap(grab());
    drag->setHotSpot(place);
    drag->exec(Qt::CopyAction);
}

} // namespace ledra
