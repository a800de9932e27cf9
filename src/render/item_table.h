#pragma once

#include "model/invoice.h"
#include "model/template_text.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace ledra {

/// The item table of a document: which columns it has, and the HTML of its head and rows.
class ItemTable
{
public:
    ItemTable(const Invoice& invoice, Language language);

    /// Between two and five.
    int columnCount() const;

    /// The values of the content template that belong to the table's columns and head. Columns are as wide as
    /// the texts of the whole document need, so that they are the same on every page.
    void addHead(TemplateValues& values) const;

    QString itemRow(const Invoice::Item& item) const;
    QString emptyRow() const;

    /// The row of one line of the note; inline markdown applies, an empty line keeps its height.
    QString noteRow(const QString& line) const;

private:
    using CellText = QString (ItemTable::*)(const Invoice::Item&) const;

    QString price(const Invoice::Item& item) const;
    QString lineTotal(const Invoice::Item& item) const;
    QString quantity(const Invoice::Item& item) const;
    QString unit(const Invoice::Item& item) const;
    QString vat(const Invoice::Item& item) const;
    QString quantityCell(const Invoice::Item& item) const;
    qsizetype longest(CellText text) const;
    QString column(const char* name, const QString& heading, CellText text) const;

    const Invoice& invoice_;
    Language language_;
    bool showsQuantity_ = true;
    bool showsVat_ = false;
    std::optional<Unit> commonUnit_;
};

/// The values of the content template that belong to the totals: the sum, the discount and the VAT.
void addTotals(TemplateValues& values, const Invoice& invoice, Language language);

} // namespace ledra
