#include "exchange/csv_exporter.h"

#include "model/displayed_number.h"
#include "model/document_labels.h"
#include "model/postal_address.h"

#include <cmath>

namespace ledra {

namespace {

using Column = CSVExporter::Column;
using Reader = CSVExporter::Reader;

constexpr QChar separator = u';';

/// As the locale writes it. Spreadsheets take numbers with a point or a comma between the thousands, but
/// those with a blank or an apostrophe for texts: there is nothing between them then. The minus is the ASCII
/// one for the same reason.
QString amountField(double amount, QLocale locale)
{
    if (!std::isfinite(amount))
        return QStringLiteral("0,00");
    const QString group = locale.groupSeparator();
    if (group != u"." && group != u",")
        locale.setNumberOptions(QLocale::OmitGroupSeparator);
    const double cents = roundedToCents(amount);
    const QString digits = locale.toString(std::abs(cents), 'f', 2);
    return cents < 0 ? u'-' + digits : digits;
}

bool looksLikeFormula(const QString& text)
{
    constexpr QStringView beginnings = u"=+-@\t\r";
    return !text.isEmpty() && beginnings.contains(text.front());
}

QString textField(QString text, const Reader& reader)
{
    if (reader.guardsFormulas && looksLikeFormula(text))
        text.prepend(u'\'');
    return u'"' + text.replace(u'"', QStringLiteral("\"\"")) + u'"';
}

/// The address without the name, which has a column of its own.
QString addressText(const Invoice& invoice, Language language)
{
    PostalAddress address = recipientAddress(invoice);
    address.name.clear();
    QStringList lines = address.lines();
    if (address.country != invoice.senderAddressCountry && !lines.isEmpty())
        lines += address.country.displayName(language);
    return lines.join(u'\n');
}

double totalVat(const Invoice& invoice)
{
    double sum = 0;
    for (const VATAmount& vat : invoice.vatAmounts())
        sum += vat.amount;
    return sum;
}

QString field(Column column, const Invoice& invoice, const Profile& profile, const Reader& reader)
{
    const auto text = [&](const QString& content) { return textField(content, reader); };
    const auto amount = [&](double value) { return amountField(value, reader.locale); };
    switch (column) {
    case Column::name:
        return text(invoice.name);
    case Column::address:
        return text(addressText(invoice, reader.language));
    case Column::date:
        return text(reader.locale.toString(invoice.date.localDate(), QLocale::ShortFormat));
    case Column::invoiceNumber:
        return text(displayedNumber(invoice, profile));
    case Column::net:
        return amount(invoice.subtotal() - invoice.discount());
    case Column::vat:
        return amount(totalVat(invoice));
    case Column::gross:
        return amount(invoice.total());
    case Column::currency:
        return text(invoice.currency.code);
    case Column::status:
        return text(documentLabel(displayText(invoice.status), reader.language));
    }
    return {};
}

} // namespace

QByteArray CSVExporter::text(const std::vector<const Invoice*>& invoices, const std::set<Column>& columns,
                             const Profile& profile, const Reader& reader)
{
    QStringList titles;
    for (const Column column : columns)
        titles += documentLabel(displayText(column), reader.language);
    QString text = titles.join(separator) + u'\n';
    for (const Invoice* invoice : invoices) {
        QStringList fields;
        for (const Column column : columns)
            fields += field(column, *invoice, profile, reader);
        text += fields.join(separator) + u'\n'; // the last line ends as well, as text files do
    }
    return text.toUtf8();
}

} // namespace ledra
