#include "ui/viewer/viewer_tab.h"

#include "app/reader_language.h"
#include "einvoice/viewer_html_generator.h"
#include "ui/look/appearance.h"
#include "ui/look/icons.h"
#include "ui/look/status_colors.h"

#include <QEvent>
#include <QVBoxLayout>

namespace ledra {

ViewerTab::ViewerTab(const WindowParts& parts, TemporaryFolders& folders, const QString& path)
    : path_(path),
      notice_(new QFrame(this)),
      noticeIcon_(new QLabel(notice_)),
      noticeText_(new QLabel(notice_)),
      attachments_(new AttachmentStrip(parts, folders, path, this)),
      view_(new ViewerWebView(parts.engine, this))
{
    makeNotice();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(notice_);
    layout->addWidget(attachments_);
    layout->addWidget(view_, 1);
    view_->setAccessibleName(tr("Document"));
    setFocusProxy(view_);
}

void ViewerTab::makeNotice()
{
    notice_->setAutoFillBackground(true);
    noticeText_->setTextFormat(Qt::PlainText);
    noticeText_->setWordWrap(true);
    noticeText_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    noticeText_->setAccessibleName(tr("Notice"));
    auto* layout = new QHBoxLayout(notice_);
    layout->setContentsMargins(12, 6, 12, 6);
    layout->addWidget(noticeIcon_, 0, Qt::AlignTop);
    layout->addWidget(noticeText_, 1);
}

void ViewerTab::show(OpenedEInvoice opened)
{
    opened_ = std::move(opened);
    attachments_->setNames(opened_.attachments);
    showNotice();
    render();
}

/// Quiet: a difference is nothing that went wrong here, only something to look at.
void ViewerTab::showNotice()
{
    const StatusLook& look = statusLook(Status::draft);
    QPalette palette;
    palette.setColor(QPalette::Window, look.ground());
    palette.setColor(QPalette::WindowText, look.ink());
    notice_->setPalette(palette);
    noticeIcon_->setPixmap(lineIcon("information", look.ink()).pixmap(QSize(18, 18), devicePixelRatioF()));
    QStringList lines;
    for (const StatedDifference& difference : opened_.differences)
        lines += statedText(difference, opened_.viewer.invoice.currency, readerLanguage());
    noticeText_->setText(
        lines.isEmpty()
            ? QString()
            : tr("The document itself states another total. %1").arg(lines.join(QStringLiteral("; "))));
    notice_->setHidden(lines.isEmpty());
}

void ViewerTab::render()
{
    const auto appearance = isDarkAppearance() ? ViewerAppearance::dark : ViewerAppearance::light;
    view_->setHtml(
        ViewerHTMLGenerator::html(opened_, {.language = readerLanguage(), .appearance = appearance}));
}

void ViewerTab::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || opened_.viewer.id.isNull())
        return;
    showNotice();
    render();
}

} // namespace ledra
