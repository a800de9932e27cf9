#include "ui/viewer/attachment_strip.h"

#include "app/received_attachments.h"
#include "ui/jobs/file_panels.h"
#include "ui/look/icons.h"
#include "ui/viewer/viewer_paper.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QUrl>

#include <functional>

namespace ledra {

namespace {

constexpr int nameRole = Qt::UserRole;

/// Places its names at once when it is resized; otherwise where they stood before would decide on its height.
class NameList final : public QListWidget
{
public:
    NameList(QWidget* parent, std::function<void()> placed) : QListWidget(parent), placed_(std::move(placed))
    {}

private:
    void resizeEvent(QResizeEvent* event) override
    {
        QListWidget::resizeEvent(event);
        doItemsLayout();
        placed_();
    }

    std::function<void()> placed_;
};

} // namespace

AttachmentStrip::AttachmentStrip(const WindowParts& parts, TemporaryFolders& folders, const QString& path,
                                 QWidget* parent)
    : QWidget(parent),
      parts_(parts),
      folders_(folders),
      path_(path),
      list_(new NameList(this, [this] { fitHeight(); })),
      open_(new QPushButton(tr("Open"), this)),
      save_(new QPushButton(tr("Save…"), this))
{
    list_->setAccessibleName(tr("Attachments"));
    list_->setFlow(QListView::LeftToRight);
    list_->setWrapping(true);
    list_->setResizeMode(QListView::Adjust);
    list_->setFrameShape(QFrame::NoFrame);
    list_->setIconSize(QSize(16, 16));
    list_->setTextElideMode(Qt::ElideMiddle);
    list_->viewport()->setAutoFillBackground(false);
    list_->setStyleSheet(QStringLiteral("QListWidget::item { padding: 3px 8px 3px 4px; }"));
    auto* title = new QLabel(tr("Attachments"), this);
    title->setForegroundRole(QPalette::PlaceholderText);
    title->setBuddy(list_);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(12, 6, 12, 6);
    layout->addWidget(title);
    layout->addWidget(list_, 1);
    layout->addWidget(open_);
    layout->addWidget(save_);
    connect(list_, &QListWidget::currentItemChanged, this, &AttachmentStrip::follow);
    connect(list_, &QListWidget::itemActivated, this,
            [this] { open_->isEnabled() ? open() : askForPlace(); });
    connect(open_, &QPushButton::clicked, this, &AttachmentStrip::open);
    connect(save_, &QPushButton::clicked, this, &AttachmentStrip::askForPlace);
    hide();
}

void AttachmentStrip::setNames(const QStringList& names)
{
    list_->clear();
    for (const QString& name : names) {
        auto* item = new QListWidgetItem(lineIcon("attachment"), attachmentFileName(name), list_);
        item->setData(nameRole, name);
    }
    list_->setCurrentRow(0);
    setVisible(!names.isEmpty());
    fitHeight();
}

void AttachmentStrip::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    fitHeight();
}

/// As high as its rows, up to three of them.
void AttachmentStrip::fitHeight()
{
    constexpr int mostRows = 3;
    const QListWidgetItem* last = list_->item(list_->count() - 1);
    if (!last)
        return;
    const int row = list_->visualItemRect(last).height();
    const int all = list_->visualItemRect(last).bottom() - list_->visualItemRect(list_->item(0)).top() + 1;
    list_->setFixedHeight(std::clamp(all, row, mostRows * row) + 2);
}

QString AttachmentStrip::chosen() const
{
    const QListWidgetItem* item = list_->currentItem();
    return item ? item->data(nameRole).toString() : QString();
}

/// What is no document is not opened: a click must never start a program that somebody has sent.
void AttachmentStrip::follow()
{
    const QString name = chosen();
    save_->setEnabled(!name.isEmpty());
    open_->setEnabled(isOpenableName(name));
    open_->setToolTip(open_->isEnabled() || name.isEmpty()
                          ? QString()
                          : tr("Files of this kind are not opened from here. They can be saved."));
}

std::optional<QByteArray> AttachmentStrip::content() const
{
    std::optional<QByteArray> taken = receivedAttachment(path_, chosen());
    if (!taken)
        parts_.messages.warn(tr("%1 cannot be taken out of %2.")
                                 .arg(attachmentFileName(chosen()), QFileInfo(path_).fileName()));
    return taken;
}

void AttachmentStrip::open()
{
    const std::optional<QByteArray> bytes = content();
    if (!bytes)
        return;
    const QString name = attachmentFileName(chosen());
    if (!mayBeOpened(chosen(), *bytes)) {
        parts_.messages.warn(tr("%1 is not what its name says and is not opened.").arg(name));
        return;
    }
    const std::optional<QString> folder = folders_.make(parts_.messages);
    if (!folder)
        return;
    const QString file = QDir(*folder).filePath(name);
    if (const auto written = writeExport(file, *bytes, Overwrite::refuse); !written)
        parts_.messages.warn(written.error().text());
    else if (!QDesktopServices::openUrl(QUrl::fromLocalFile(file)))
        parts_.messages.warn(tr("There is no program that shows %1.").arg(name));
}

void AttachmentStrip::askForPlace()
{
    const std::optional<QByteArray> bytes = content();
    if (!bytes)
        return;
    // The panel belongs to the window and may stay longer than the tab.
    askForTarget(parts_,
                 {tr("Save Attachment"), attachmentFileName(chosen()), tr("All Files (*)"), tr("Save")},
                 [&parts = parts_, content = *bytes](const QString& target) {
                     saveWithNotice(parts, content, target);
                 });
}

} // namespace ledra
