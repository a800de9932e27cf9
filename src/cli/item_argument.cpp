#include "cli/item_argument.h"

#include "model/new_invoices.h"

namespace ledra {

namespace {

constexpr qsizetype fieldCount = 5;

/// Splits at semicolons outside quotes; a doubled quote inside quotes stands for one.
std::expected<QStringList, QString> fieldsOf(const QString& text)
{
    QStringList fields = {QString()};
    bool isQuoted = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar letter = text[i];
        if (isQuoted && letter == u'"' && text.mid(i + 1, 1) == u"\"") {
            fields.back() += letter;
            ++i;
        } else if (letter == u'"' && (isQuoted || fields.back().isEmpty())) {
            isQuoted = !isQuoted;
        } else if (letter == u';' && !isQuoted) {
            fields += QString();
        } else {
            fields.back() += letter;
        }
    }
    if (isQuoted)
        return std::unexpected(QStringLiteral("a quotation mark is not closed"));
    return fields;
}

} // namespace

std::expected<Invoice::Item, QString> itemFrom(const QString& text, const Profile& profile, IdSource& ids,
                                               const ValueReading& reading)
{
    const auto problem = [&](const QString& what) {
        return std::unexpected(QStringLiteral("item \"%1\": %2").arg(text, what));
    };
    const std::expected<QStringList, QString> fields = fieldsOf(text);
    if (!fields)
        return problem(fields.error());
    if (fields->size() > fieldCount)
        return problem(QStringLiteral("more than TEXT;QUANTITY;UNIT;PRICE;VAT"));
    if (fields->front().trimmed().isEmpty())
        return problem(QStringLiteral("the text is missing"));

    Invoice::Item item = newItem(profile, ids);
    item.item = fields->front();
    Assigned assigned;
    const auto take = [&](qsizetype position, auto& field, const char* name) {
        const QString value = fields->value(position).trimmed();
        if (!assigned || value.isEmpty())
            return;
        assigned = assignText(field, value, reading);
        if (!assigned)
            assigned = std::unexpected(QString::fromLatin1(name) + QStringLiteral(": ") + assigned.error());
    };
    take(1, item.quantity, "quantity");
    take(2, item.unit, "unit");
    item.unitPrice = rateOf(item.unit, profile);
    take(3, item.unitPrice, "price");
    take(4, item.vatPercentage, "VAT");
    if (!assigned)
        return problem(assigned.error());
    return item;
}

} // namespace ledra
