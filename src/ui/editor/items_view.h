#pragma once

#include "ui/editor/items_model.h"

#include <QTableView>

namespace ledra {

/// The grid of a record's lines. Tab goes on cell by cell, Enter line by line, and both begin new lines at
/// the end; numbers at the left are dragged to reorder.
class ItemsView : public QTableView
{
    Q_OBJECT

public:
    ItemsView(RecordEditing& editing, ItemsModel& model, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

    void beginNewItem();

    // On the chosen lines.
    void copy();
    void paste();
    void removeChosen();
    void moveChosen(int by);

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last) override;

private:
    void setUpColumns();
    void fitRows();
    void lineDragged(int from, int to);
    QList<int> chosenRows() const;
    void showMenu(const QPoint& place);

    ItemsModel& model_;
};

} // namespace ledra
