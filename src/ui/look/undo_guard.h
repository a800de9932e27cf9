#pragma once

#include <QKeyEvent>
#include <QWidget>

namespace ledra {

bool isUndoOrRedo(const QKeyEvent& key);

/// Keeps the fields of a panel from taking the keys for undo and redo: their own way back would end at the
/// field, and the application's goes on beyond it.
class UndoGuard : public QObject
{
    Q_OBJECT

public:
    explicit UndoGuard(QWidget& panel);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& panel_;
};

} // namespace ledra
