#pragma once

#include "einvoice/viewer_xml_parser.h"
#include "ui/viewer/attachment_strip.h"
#include "ui/viewer/viewer_web_view.h"

#include <QFrame>
#include <QLabel>

namespace ledra {

/// One opened e-invoice: above it what it states otherwise of itself and what came along with it.
class ViewerTab : public QWidget
{
    Q_OBJECT

public:
    ViewerTab(const WindowParts& parts, TemporaryFolders& folders, const QString& path);

    /// Shows what was read from the file.
    void show(OpenedEInvoice opened);

    const QString& path() const { return path_; }
    const OpenedEInvoice& opened() const { return opened_; }
    ViewerWebView& view() { return *view_; }
    QString notice() const { return noticeText_->text(); } ///< empty for none

protected:
    void changeEvent(QEvent* event) override;

private:
    void makeNotice();
    void showNotice();
    void render();

    QString path_;
    OpenedEInvoice opened_;
    QFrame* notice_;
    QLabel* noticeIcon_;
    QLabel* noticeText_;
    AttachmentStrip* attachments_;
    ViewerWebView* view_;
};

} // namespace ledra
