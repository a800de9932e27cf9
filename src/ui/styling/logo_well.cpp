#include "ui/styling/logo_well.h"

#include "app/app_delegate.h"
#include "render/logo_markup.h"
#include "store/styling_folder.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QPainter>
#include <QSvgRenderer>

namespace ledra {

namespace {

constexpr QSize pictureSize(400, 160); ///< at most, in device pixels

QPixmap drawing(const QString& markup)
{
    const std::optional<QString> safe = safeSvg(markup, LogoAnchor::bottomLeft);
    QSvgRenderer renderer(safe.value_or(QString()).toUtf8());
    const QSize size = renderer.defaultSize().scaled(pictureSize, Qt::KeepAspectRatio);
    if (!renderer.isValid() || size.isEmpty())
        return {};
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderer.render(&painter);
    return pixmap;
}

QPixmap picture(const QString& logo)
{
    if (!logo.startsWith(u"data:"))
        return drawing(logo);
    QPixmap pixmap;
    pixmap.loadFromData(logoFile(logo).bytes);
    return pixmap.isNull() ? pixmap
                           : pixmap.scaled(pictureSize, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

/// The one local file that is being dragged; a whole style is for the window.
QString fileOf(const QMimeData* data)
{
    const QList<QUrl> urls = data->urls();
    const bool isForHere = urls.size() == 1 && classify(urls.front()).kind != HandedOver::Kind::styling;
    return isForHere ? urls.front().toLocalFile() : QString();
}

} // namespace

LogoWell::LogoWell(QWidget* parent) : QFrame(parent)
{
    constexpr int height = 104;
    setFixedHeight(height);
    setAcceptDrops(true);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setAccessibleName(tr("Logo"));
    setAccessibleDescription(tr("Drop an image here, or press Enter to choose one"));
}

void LogoWell::setLogo(const std::optional<QString>& logo)
{
    if (logo == logo_)
        return;
    logo_ = logo;
    picture_ = logo ? picture(*logo) : QPixmap();
    update();
}

void LogoWell::setHovered(bool isHovered)
{
    isHovered_ = isHovered;
    update();
}

void LogoWell::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const bool isMarked = isHovered_ || hasFocus();
    QPen pen(palette().color(isMarked ? QPalette::Highlight : QPalette::Mid), isMarked ? 2 : 1);
    pen.setStyle(logo_ ? Qt::SolidLine : Qt::DashLine);
    painter.setPen(pen);
    // Documents are printed on white, so that a logo is judged on white.
    painter.setBrush(hasPicture() ? QColor(Qt::white) : palette().color(QPalette::Base));
    constexpr double radius = 6;
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), radius, radius);
    const QRect inner = rect().adjusted(12, 12, -12, -12);
    if (hasPicture()) {
        QRect place(QPoint(), picture_.size().scaled(inner.size(), Qt::KeepAspectRatio));
        place.moveCenter(inner.center());
        painter.drawPixmap(place, picture_);
        return;
    }
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(inner, Qt::AlignCenter | Qt::TextWordWrap,
                     logo_ ? tr("The logo cannot be shown here")
                           : tr("Drop a logo here, or click to choose one\nSVG, PNG, JPEG, WebP"));
}

void LogoWell::dragEnterEvent(QDragEnterEvent* event)
{
    if (fileOf(event->mimeData()).isEmpty())
        return;
    event->acceptProposedAction();
    setHovered(true);
}

void LogoWell::dragLeaveEvent(QDragLeaveEvent*)
{
    setHovered(false);
}

void LogoWell::dropEvent(QDropEvent* event)
{
    setHovered(false);
    event->setDropAction(Qt::CopyAction); // the file stays where it is
    event->accept();
    Q_EMIT dropped(fileOf(event->mimeData()));
}

void LogoWell::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        Q_EMIT clicked();
}

void LogoWell::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Space)
        Q_EMIT clicked();
    else
        QFrame::keyPressEvent(event);
}

} // namespace ledra
