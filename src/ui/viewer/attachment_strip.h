#pragma once

#include "ui/jobs/temporary_folders.h"
#include "ui/window_parts.h"

#include <QListWidget>
#include <QPushButton>

namespace ledra {

/// What came along with a received e-invoice: each file can be saved, and shown by the desktop if it is of a
/// kind that only shows something.
class AttachmentStrip : public QWidget
{
    Q_OBJECT

public:
    /// @param path of the e-invoice, from which an attachment is taken when it is wanted
    AttachmentStrip(const WindowParts& parts, TemporaryFolders& folders, const QString& path,
                    QWidget* parent);

    /// Hidden without any.
    void setNames(const QStringList& names);

private:
    QString chosen() const; ///< as the document names it
    std::optional<QByteArray> content() const;
    void follow();
    void open();
    void askForPlace();
    void fitHeight();

    const WindowParts& parts_;
    TemporaryFolders& folders_;
    QString path_;
    QListWidget* list_;
    QPushButton* open_;
    QPushButton* save_;

protected:
    void resizeEvent(QResizeEvent* event) override;
};

} // namespace ledra
