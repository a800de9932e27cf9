#pragma once

#include "ui/list/invoice_table_model.h"

#include <QTableView>

#include <array>

namespace ledra {

/// The list of records: headings across all columns, states on tinted ground, rows that can be dragged out as
/// files.
class InvoiceListView : public QTableView
{
    Q_OBJECT

public:
    explicit InvoiceListView(InvoiceTableModel& model, QWidget* parent = nullptr);

    /// The chosen records, in the order of the list.
    std::vector<InvoicePtr> selected() const;

    /// Chooses one record and scrolls to it, if the list shows it.
    void reveal(const QUuid& id);

    /// Chooses those of the records that the list shows; without any, the choice stays.
    void choose(const std::vector<InvoicePtr>& records);

    /// Sets what is dragged out: makes the data of the chosen records.
    void setDragSource(std::function<std::unique_ptr<QMimeData>(const std::vector<InvoicePtr>&)> source);

Q_SIGNALS:
    void chosenChanged();
    void opened(); ///< by a double click or Enter

protected:
    void startDrag(Qt::DropActions actions) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void followModel();
    void setUpColumns();
    void fitColumns();
    int widthWhenShown(int column) const;

    InvoiceTableModel& model_;
    std::vector<InvoicePtr> kept_;                               ///< what was chosen before the list changed
    std::array<int, InvoiceTableModel::columns> hiddenWidths_{}; ///< of columns that gave way
    std::function<std::unique_ptr<QMimeData>(const std::vector<InvoicePtr>&)> dragSource_;
};

} // namespace ledra
