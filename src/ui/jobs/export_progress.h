#pragma once

#include <QDialog>
#include <QLabel>
#include <QProgressBar>
#include <QTimer>

namespace ledra {

/// How far an export is. It appears only when the export takes a while. Unlike QProgressDialog it runs no
/// events by itself, in which the export would go on within its own report.
class ExportProgress : public QDialog
{
    Q_OBJECT

public:
    ExportProgress(int total, QWidget* window);

    void setDone(int done);

Q_SIGNALS:
    void cancelled();

private:
    int total_;
    QLabel* text_;
    QProgressBar* bar_;
    QTimer delay_;
};

} // namespace ledra
