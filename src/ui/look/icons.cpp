#include "ui/look/icons.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace ledra {

namespace {

class LineIconEngine final : public QIconEngine
{
public:
    LineIconEngine(QString name, QByteArray drawing, QColor color)
        : name_(std::move(name)), drawing_(std::move(drawing)), color_(color)
    {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        const double scale = painter->device()->devicePixelRatioF();
        QPixmap drawn = pixmap((QSizeF(rect.size()) * scale).toSize(), mode, state);
        drawn.setDevicePixelRatio(scale);
        painter->drawPixmap(rect.topLeft(), drawn);
    }

    /// Drawn once for each size and colour: reading a drawing takes longer than painting a list.
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override
    {
        const QByteArray color = colorIn(mode).name().toLatin1();
        const QString key = QStringLiteral("%1 %2 %3x%4")
                                .arg(name_, QLatin1StringView(color))
                                .arg(size.width())
                                .arg(size.height());
        QPixmap pixmap;
        if (QPixmapCache::find(key, &pixmap))
            return pixmap;
        pixmap = QPixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        QByteArray colored = drawing_;
        QSvgRenderer(colored.replace("currentColor", color)).render(&painter);
        painter.end();
        QPixmapCache::insert(key, pixmap);
        return pixmap;
    }

    QIconEngine* clone() const override { return new LineIconEngine(*this); }

private:
    QColor colorIn(QIcon::Mode mode) const
    {
        const QPalette palette = QApplication::palette();
        if (mode == QIcon::Disabled)
            return palette.color(QPalette::Disabled, QPalette::WindowText);
        if (mode == QIcon::Selected)
            return palette.color(QPalette::HighlightedText);
        return color_.isValid() ? color_ : palette.color(QPalette::WindowText);
    }

    QString name_;
    QByteArray drawing_;
    QColor color_;
};

} // namespace

QIcon lineIcon(const char* name)
{
    return lineIcon(name, QColor());
}

QIcon lineIcon(const char* name, const QColor& color)
{
    const QString path = QStringLiteral(":/icons/%1.svg").arg(QString::fromLatin1(name));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("There is no drawing %s", name); // a slip in the program, found by opening the window once
    return QIcon(new LineIconEngine(path, file.readAll(), color)); // which the icon owns
}

} // namespace ledra
