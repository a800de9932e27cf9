#include "einvoice/missing_fields.h"

#include <array>

namespace ledra {

namespace {

struct RequiredField
{
    QString Invoice::* field;
    const char* label;
};

constexpr std::array senderFields = {
    RequiredField{&Invoice::senderName, "Sender name"},
    RequiredField{&Invoice::senderEmail, "Sender email"},
    RequiredField{&Invoice::senderPhone, "Sender phone number"},
    RequiredField{&Invoice::senderAddressPostcode, "Sender postcode"},
    RequiredField{&Invoice::senderAddressCity, "Sender city"},
};

constexpr std::array accountAndRecipientFields = {
    RequiredField{&Invoice::senderIban, "Sender IBAN"},
    RequiredField{&Invoice::senderBic, "Sender BIC"},
    RequiredField{&Invoice::name, "Recipient name"},
    RequiredField{&Invoice::email, "Recipient email"},
    RequiredField{&Invoice::addressPostcode, "Recipient postcode"},
    RequiredField{&Invoice::addressCity, "Recipient city"},
};

template <std::size_t count>
void appendEmpty(const Invoice& invoice, const std::array<RequiredField, count>& fields, QStringList& labels)
{
    for (const RequiredField& required : fields) {
        if ((invoice.*required.field).isEmpty())
            labels += QString::fromLatin1(required.label);
    }
}

} // namespace

QStringList missingFields(const Invoice& invoice)
{
    QStringList labels;
    appendEmpty(invoice, senderFields, labels);
    if (invoice.senderTaxNumber.isEmpty() && invoice.senderVatNumber.isEmpty())
        labels += QStringLiteral("Sender tax number or VAT ID");
    appendEmpty(invoice, accountAndRecipientFields, labels);
    if (invoice.items.empty())
        labels += QStringLiteral("At least one invoice item");
    for (std::size_t i = 0; i < invoice.items.size(); ++i) {
        if (invoice.items[i].item.isEmpty())
            labels += QStringLiteral("Description for item %1").arg(i + 1);
    }
    return labels;
}

QString missingFieldsText(const QStringList& labels)
{
    QString text = QStringLiteral("The following required fields for e-invoices are empty:\n\n");
    for (const QString& label : labels)
        text += QStringLiteral("\u2013\u2002") + label + u'\n';
    return text + QStringLiteral("\nThe exported invoice may not be valid.");
}

} // namespace ledra
