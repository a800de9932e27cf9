#pragma once

#include "app/ledra_app.h"

#include <QAbstractTableModel>

#include <vector>

namespace ledra {

/// The records of the list in force, one a row. They come in the order of the list and are put in another one
/// by their columns.
class InvoiceTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { number, recipient, date, due, total, status };
    static constexpr int columns = 6;

    explicit InvoiceTableModel(LedraApp& app, QObject* parent = nullptr);

    InvoicePtr invoice(const QModelIndex& index) const;
    QModelIndex indexOf(const QUuid& id) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

private:
    void reload();
    void order();
    QString text(const Invoice& invoice, int column) const;

    LedraApp& app_;
    std::vector<InvoicePtr> invoices_;
    int sortColumn_ = date;
    Qt::SortOrder sortOrder_ = Qt::DescendingOrder;
};

} // namespace ledra
