#pragma once

#include "app/ledra_app.h"

#include <QAbstractTableModel>

#include <unordered_map>
#include <vector>

namespace ledra {

/// The records of the list in force, one a row. They come in the order of the list and are put in another one
/// by their columns. As long as they stand in the order of their dates, each month has a heading: a row of
/// its own, which can not be chosen.
class InvoiceTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { number, recipient, date, due, total, status };
    static constexpr int columns = 6;

    explicit InvoiceTableModel(LedraApp& app, QObject* parent = nullptr);

    /// That of a row; null for a heading.
    InvoicePtr invoice(const QModelIndex& index) const;
    bool isHeading(int row) const;
    QModelIndex indexOf(const QUuid& id) const;
    QModelIndex firstRecord() const;
    std::size_t recordCount() const { return recordCount_; }
    const std::vector<int>& headings() const { return headings_; } ///< their rows, ascending

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

    /// Files are made when they are dropped, see DocumentDrag.
    Qt::DropActions supportedDragActions() const override { return Qt::CopyAction; }

Q_SIGNALS:
    void reloaded(); ///< after modelReset(), when the views have followed

private:
    void reload();
    void showEdited(const QUuid& id);
    std::vector<InvoicePtr> ordered(std::vector<InvoicePtr> records);
    void rankAll();
    void insertHeadings(std::vector<InvoicePtr> records);
    QString text(const Invoice& invoice, int column) const;
    QString heading(int row) const;

    LedraApp& app_;
    std::vector<InvoicePtr> rows_; ///< null for a heading
    std::vector<int> headings_;
    std::size_t recordCount_ = 0;
    int sortColumn_ = date;
    Qt::SortOrder sortOrder_ = Qt::DescendingOrder;

    /// The place of each record in the order of a column, since the search asks for it at each key stroke.
    struct Ranks
    {
        std::uint64_t revision = 0;
        int column = -1;
        std::unordered_map<const InvoiceRecord*, std::uint32_t> places;
    } ranks_;
};

} // namespace ledra
