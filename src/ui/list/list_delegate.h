#pragma once

#include <QStyledItemDelegate>

namespace ledra {

class InvoiceTableModel;

/// Paints the rows of the list.
class ListDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    ListDelegate(const InvoiceTableModel& model, QObject* parent) : QStyledItemDelegate(parent), model_(model)
    {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

private:
    const InvoiceTableModel& model_;
};

struct StatusLook;

/// The word of a state on its ground, as wide as the word needs, within `place`.
void paintStatus(QPainter& painter, const QRect& place, const StatusLook& look, const QFont& font);

} // namespace ledra
