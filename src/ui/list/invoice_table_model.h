#pragma once

#include "app/ledra_app.h"

#include <QAbstractTableModel>
#include <QDeadlineTimer>

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
    QModelIndex indexOf(const InvoicePtr& record) const; ///< found faster, since no record is looked into
    QModelIndex firstRecord() const;
    std::size_t recordCount() const { return recordCount_; }
    const std::vector<int>& headings() const { return headings_; } ///< their rows, ascending

    /// Works out beforehand what the rows need after records have changed, so that no key stroke waits for
    /// it. Says whether that was done within the time.
    bool prepareRows(QDeadlineTimer end);

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
    std::vector<std::uint32_t> ordered(std::vector<std::uint32_t> places);
    void rankAll();
    void readMonths(const InvoiceList& list);
    void insertHeadings(const std::vector<std::uint32_t>& places);
    const InvoicePtr& record(int row) const { return (*list_)[rows_.at(static_cast<std::size_t>(row))]; }
    QString text(const Invoice& invoice, int column) const;
    QString heading(int row) const;

    LedraApp& app_;
    static constexpr std::uint32_t headingRow = 0xFFFFFFFF;

    InvoiceList list_;                ///< as it was when the rows were made
    std::vector<std::uint32_t> rows_; ///< places in the list, or headingRow
    std::vector<int> headings_;
    std::size_t recordCount_ = 0;
    int sortColumn_ = date;
    Qt::SortOrder sortOrder_ = Qt::DescendingOrder;

    /// Where each record of the list stands in the order of a column, since the search asks for it at each
    /// key stroke.
    struct Ranks
    {
        std::uint64_t revision = 0;
        int column = -1;
        std::vector<std::uint32_t> ranks;
    } ranks_;

    /// The month of each record of the list, counted from the year 0.
    struct Months
    {
        InvoiceList list;
        std::uint64_t revision = 0; ///< of what is in it
        std::vector<std::int32_t> months;
    } months_;
};

} // namespace ledra
