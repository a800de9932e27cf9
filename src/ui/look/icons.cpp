#include "ui/look/icons.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

namespace ledra {

namespace {

class LineIconEngine final : public QIconEngine
{
public:
    LineIconEngine(QByteArray drawing, QColor color) : drawing_(std::move(drawing)), color_(color) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        QByteArray colored = drawing_;
        colored.replace("currentColor", colorIn(mode).name().toLatin1());
        QSvgRenderer(colored).render(painter, rect);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
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
    QFile file(QStringLiteral(":/icons/%1.svg").arg(QString::fromLatin1(name)));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("There is no drawing %s", name); // a slip in the program, found by opening the window once
    return QIcon(new LineIconEngine(file.readAll(), color)); // which the icon owns
}

} // namespace ledra
