#include "ui/look/color_keeper.h"

#include "ui/look/status_colors.h"

#include <QEvent>
#include <QWidget>

namespace ledra {

namespace {

class ColorKeeper final : public QObject
{
public:
    ColorKeeper(QWidget& widget, const StatusLook& look) : QObject(&widget), widget_(widget), look_(look)
    {
        widget.installEventFilter(this);
        apply();
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched == &widget_ && event->type() == QEvent::PaletteChange)
            apply(); // the same colours once more change nothing, so that this comes to an end
        return false;
    }

private:
    void apply()
    {
        QPalette own;
        own.setColor(QPalette::Window, look_.ground());
        own.setColor(QPalette::WindowText, look_.ink());
        widget_.setPalette(own);
    }

    QWidget& widget_;
    const StatusLook& look_;
};

} // namespace

void keepColors(QWidget& widget, const StatusLook& look)
{
    new ColorKeeper(widget, look); // which the widget owns
}

} // namespace ledra
