#pragma once

#include "ui/editor/record_editing.h"

#include <QAbstractTableModel>
#include <QMimeData>

namespace ledra {

struct ItemProblem;

/// The lines of the record in the editor, one a row, and below them an empty row in which the next line is
/// begun by typing.
class ItemsModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { description, quantity, unit, price, vat, total };
    static constexpr int columns = 6;

    ItemsModel(RecordEditing& editing, QObject* parent);

    int itemCount() const { return static_cast<int>(items_.size()); }
    bool isNewRow(int row) const { return row == itemCount(); }
    const Invoice::Item* item(int row) const; ///< null for the empty row

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

    /// Takes what is typed: texts, numbers as people write them, units as their place in the enumeration.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

    // Each of these is one step to undo.
    void complete(int row,
                  const Invoice::Item& earlier); ///< takes an earlier line's text, unit, price and rate
    void move(int from, int to);                 ///< so that the line ends up in row `to`
    void remove(QList<int> rows);
    void insert(int row, std::vector<Invoice::Item> items);

    /// Lines as they travel over the clipboard: for this editor, and as a table for spreadsheets.
    std::unique_ptr<QMimeData> copied(const QList<int>& rows) const;
    bool canPaste(const QMimeData& data) const;
    void paste(int row, const QMimeData& data);

private:
    void follow();
    void reset();
    bool isBegun(const std::vector<Invoice::Item>& now) const;
    void rearrange(const std::vector<Invoice::Item>& now);
    void removeRun(int begin, int end);
    void place(const std::vector<Invoice::Item>& now);
    void append(const Invoice::Item& line);
    QString pasteProblem(const ItemProblem& problem) const;
    QVariant display(const Invoice::Item& item, int column) const;
    QVariant typed(const Invoice::Item& item, int column) const;
    bool assign(Invoice::Item& item, int column, const QVariant& value) const;
    Invoice::Item newLine() const;

    RecordEditing& editing_;
    std::vector<Invoice::Item> items_; ///< as shown
    bool hasEmptyRow_ = false;         ///< as shown
    bool grossPrices_ = false;
    QUuid begun_; ///< the line that is being begun in the empty row
};

} // namespace ledra
