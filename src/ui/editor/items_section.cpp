#include "app/reader_language.h"
#include "model/amount_text.h"
#include "ui/editor/items_view.h"
#include "ui/editor/record_sections.h"
#include "ui/look/icons.h"

#include <QSignalBlocker>

namespace ledra {

namespace {

/// The kinds of discount, in the order of the box.
enum DiscountKind { noDiscount, percentage, amount };

DiscountKind discountKind(const Invoice& invoice)
{
    if (invoice.discountPercentage)
        return percentage;
    return invoice.discountAmount ? amount : noDiscount;
}

void setDiscount(Invoice& invoice, int kind, double value)
{
    invoice.discountPercentage = kind == percentage ? std::optional(value) : std::nullopt;
    invoice.discountAmount = kind == amount ? std::optional(value) : std::nullopt;
}

double discountValue(const Invoice& invoice)
{
    return invoice.discountPercentage.value_or(invoice.discountAmount.value_or(0));
}

/// A table of what the record comes to, as it is printed below the items.
QString totalsHtml(const Invoice& invoice)
{
    const Language language = readerLanguage();
    QString rows;
    const auto addLine = [&](const QString& label, double money, bool isLast = false) {
        const QString tag = isLast ? QStringLiteral("b") : QStringLiteral("span");
        rows +=
            QStringLiteral(
                "<tr><td style='padding-right:16px'><%3>%1</%3></td><td align='right'><%3>%2</%3></td></tr>")
                .arg(label.toHtmlEscaped(), amountText(money, invoice.currency, language).toHtmlEscaped(),
                     tag);
    };
    addLine(ItemsSection::tr("Subtotal"), invoice.subtotal());
    if (invoice.discount() != 0)
        addLine(ItemsSection::tr("Discount"), -invoice.discount());
    for (const VATAmount& vat : invoice.vatAmounts())
        addLine(ItemsSection::tr("VAT %1").arg(percentText(vat.rate, language)), vat.amount);
    addLine(ItemsSection::tr("Total"), invoice.total(), true);
    return QStringLiteral("<table align='right'>%1</table>").arg(rows);
}

} // namespace

ItemsSection::ItemsSection(RecordEditing& editing, QWidget* parent)
    : Section(tr("Items"), false, parent),
      model_(new ItemsModel(editing, this)),
      view_(new ItemsView(editing, *model_, this)),
      totals_(new QLabel(this))
{
    addTools(editing);
    content()->addWidget(view_);
    QFormLayout* form = newForm();
    addDiscount(editing, form);
    content()->addLayout(form);
    totals_->setTextFormat(Qt::RichText);
    totals_->setAlignment(Qt::AlignRight);
    totals_->setAccessibleName(tr("Totals"));
    content()->addWidget(totals_);
    connect(&editing, &RecordEditing::changed, totals_, [this, &editing] {
        if (editing.record())
            totals_->setText(totalsHtml(editing.invoice()));
    });
}

void ItemsSection::addTools(RecordEditing& editing)
{
    auto* gross = new QCheckBox(tr("Prices include VAT"), this);
    connect(gross, &QCheckBox::clicked, this, [&editing](bool isOn) {
        editing.change([&](Invoice& invoice) { invoice.grossPrices = isOn; }, EditKind::single);
    });
    connect(&editing, &RecordEditing::changed, gross,
            [&editing, gross] { gross->setChecked(editing.record() && editing.invoice().grossPrices); });
    titleRow()->addWidget(gross);
    auto* add = new QToolButton(this);
    add->setIcon(lineIcon("zoom-in"));
    add->setToolTip(tr("Add Item"));
    add->setAccessibleName(tr("Add Item"));
    connect(add, &QToolButton::clicked, view_, &ItemsView::beginNewItem);
    titleRow()->addWidget(add);
    setTabOrder(gross, add);
    setTabOrder(add, view_);
}

void ItemsSection::addDiscount(RecordEditing& editing, QFormLayout* form)
{
    auto* row = new QWidget(this);
    auto* parts = new QHBoxLayout(row);
    parts->setContentsMargins(0, 0, 0, 0);
    auto* kind = new QComboBox(row);
    kind->addItems({tr("None"), tr("Percent"), tr("Amount")});
    auto* value = new NumberField(
        editing, 0, discountValue,
        [](Invoice& invoice, double number) { setDiscount(invoice, discountKind(invoice), number); }, row);
    value->setAccessibleName(tr("Discount"));
    parts->addWidget(kind, 1);
    parts->addWidget(value, 1);
    addRow(form, tr("Discount"), row);
    kind->setAccessibleName(tr("Kind of discount"));
    connect(kind, &QComboBox::activated, this, [&editing](int picked) {
        editing.change([&](Invoice& invoice) { setDiscount(invoice, picked, discountValue(invoice)); },
                       EditKind::single);
    });
    connect(&editing, &RecordEditing::changed, kind, [&editing, kind, value] {
        const int shown = editing.record() ? discountKind(editing.invoice()) : noDiscount;
        kind->setCurrentIndex(shown);
        value->setVisible(shown != noDiscount);
    });
}

} // namespace ledra
