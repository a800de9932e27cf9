#include "ui/look/toast.h"

#include <QEvent>
#include <QPainter>

namespace ledra {

Toast::Toast(QWidget* window) : QLabel(window)
{
    setTextFormat(Qt::PlainText);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setContentsMargins(14, 8, 14, 8);
    setForegroundRole(QPalette::ToolTipText);
    setAccessibleName(tr("Message"));
    hide();
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &QWidget::hide);
    window->installEventFilter(this);
}

void Toast::say(const QString& line)
{
    constexpr int leastTime = 4000;
    constexpr int timePerLetter = 45; // so that it can be read
    setText(line);
    place();
    show();
    raise();
    timer_.start(leastTime + timePerLetter * static_cast<int>(line.size()));
}

void Toast::paintEvent(QPaintEvent* event)
{
    constexpr double radius = 8;
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().brush(QPalette::ToolTipBase));
        painter.drawRoundedRect(rect(), radius, radius);
    }
    QLabel::paintEvent(event);
}

void Toast::place()
{
    constexpr int margin = 24;
    const QWidget* window = parentWidget();
    setWordWrap(false);
    adjustSize();
    if (width() > window->width() - 2 * margin) {
        setWordWrap(true);
        resize(window->width() - 2 * margin, heightForWidth(window->width() - 2 * margin));
    }
    move((window->width() - width()) / 2, window->height() - height() - 2 * margin);
}

bool Toast::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::Resize && isVisible())
        place();
    return false;
}

} // namespace ledra
