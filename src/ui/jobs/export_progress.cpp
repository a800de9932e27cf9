#include "ui/jobs/export_progress.h"

#include <QDialogButtonBox>
#include <QVBoxLayout>

namespace ledra {

ExportProgress::ExportProgress(int total, QWidget* window)
    : QDialog(window), total_(total), text_(new QLabel(this)), bar_(new QProgressBar(this))
{
    constexpr int delay = 500; // milliseconds
    constexpr int width = 320;
    setWindowTitle(tr("Export"));
    setWindowModality(Qt::WindowModal);
    bar_->setRange(0, total);
    bar_->setTextVisible(false);
    bar_->setMinimumWidth(width);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 16, 20, 14);
    layout->setSpacing(12);
    layout->addWidget(text_);
    layout->addWidget(bar_);
    layout->addWidget(buttons);
    setDone(0);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(this, &QDialog::rejected, this, &ExportProgress::cancelled);
    delay_.setSingleShot(true);
    connect(&delay_, &QTimer::timeout, this, &QDialog::open);
    delay_.start(delay);
}

void ExportProgress::setDone(int done)
{
    text_->setText(tr("%1 of %2 documents").arg(done).arg(total_));
    bar_->setValue(done);
    if (done == total_)
        delay_.stop();
}

} // namespace ledra
