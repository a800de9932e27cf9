#include "ui/look/toast.h"

#include <QEvent>

namespace ledra {

Toast::Toast(QWidget* window) : QLabel(window)
{
    setTextFormat(Qt::PlainText);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setStyleSheet(QStringLiteral("background: palette(tool-tip-base); color: palette(tool-tip-text); "
                                 "border-radius: 8px; padding: 8px 14px;"));
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
