#pragma once

#include "ui/commands/command_set.h"

#include <QDialog>
#include <QLineEdit>
#include <QListWidget>

namespace ledra {

/// Finds a command by its words and runs it: everything that the menus hold, with where it stands and its
/// shortcut.
class CommandSearch : public QDialog
{
    Q_OBJECT

public:
    CommandSearch(const CommandSet& commands, const QMenuBar& bar, QWidget* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void show(const QString& text);
    void runCurrent();

    struct Entry
    {
        QAction* action;
        QString title;
        QString words; ///< folded: the title and the menus that lead there
    };

    std::vector<Entry> entries_;
    QLineEdit* search_;
    QListWidget* list_;
};

} // namespace ledra
