#pragma once

#include "ui/editor/items_model.h"

#include <QCompleter>
#include <QPlainTextEdit>
#include <QStyledItemDelegate>

namespace ledra {

class EarlierEntries;

/// The editor of a line's description: text of several lines that completes what was written before. Shift
/// and Enter begin a new line.
class DescriptionEdit : public QPlainTextEdit
{
    Q_OBJECT

public:
    using Suggest = std::function<std::vector<Invoice::Item>(const QString& text)>;
    DescriptionEdit(Suggest suggest, QWidget* parent);

Q_SIGNALS:
    void edited();
    void completed(const ledra::Invoice::Item& item);
    void tablePasted(const QMimeData& data);                ///< lines instead of a text
    void finished(QAbstractItemDelegate::EndEditHint hint); ///< by Enter, Tab or Escape

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    void offer();

    Suggest suggest_;
    QCompleter* completer_;
    std::vector<Invoice::Item> offered_;
};

/// Opens the editors of the grid's cells. What is typed in them reaches the record at each key.
class ItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    ItemDelegate(RecordEditing& editing, ItemsModel& model, DescriptionEdit::Suggest suggest,
                 QObject* parent);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

private:
    QWidget* descriptionEditor(QWidget* parent, const QPersistentModelIndex& index) const;
    QWidget* unitEditor(QWidget* parent) const;
    QWidget* numberEditor(QWidget* parent) const;

    /// Signals of a delegate are told from slots that are const in the base class.
    ItemDelegate& self() const { return const_cast<ItemDelegate&>(*this); }

    RecordEditing& editing_;
    ItemsModel& model_;
    DescriptionEdit::Suggest suggest_;
};

} // namespace ledra
