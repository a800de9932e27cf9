#pragma once

#include "ui/commands/command_set.h"

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTreeWidget>

namespace ledra {

/// All commands with their shortcuts, by menu, narrowed by what is typed: words of a command, of its menu or
/// the keys themselves.
class ShortcutSheet : public QDialog
{
    Q_OBJECT

public:
    ShortcutSheet(const CommandSet& commands, const QMenuBar& bar, QWidget* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addCommand(const QAction& action, const QMenuBar& bar);
    void narrow(const QString& text);

    QLineEdit* search_;
    QTreeWidget* sheet_;
    QLabel* nothing_;
};

} // namespace ledra
