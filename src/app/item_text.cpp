#include "app/item_text.h"

#include "model/new_invoices.h"

namespace ledra {

namespace {

constexpr qsizetype fieldCount = 5;

/// Splits at a separator outside quotes; a doubled quote inside quotes stands for one.
std::expected<QStringList, QString> fieldsOf(const QString& text, QChar separator)
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
        } else if (letter == separator && !isQuoted) {
            fields += QString();
        } else {
            fields.back() += letter;
        }
    }
    if (isQuoted)
        return std::unexpected(QStringLiteral("a quotation mark is not closed"));
    return fields;
}

/// An item of its fields; the error says which of them will not do.
std::expected<Invoice::Item, QString> itemOf(const QStringList& fields, const Profile& profile, IdSource& ids,
                                             const ValueReading& reading)
{
    if (fields.size() > fieldCount)
        return std::unexpected(QStringLiteral("more than TEXT;QUANTITY;UNIT;PRICE;VAT"));
    if (fields.front().trimmed().isEmpty())
        return std::unexpected(QStringLiteral("the text is missing"));
    Invoice::Item item = newItem(profile, ids);
    item.item = fields.front();
    Assigned assigned;
    const auto take = [&](qsizetype position, auto& field, const char* name) {
        const QString value = fields.value(position).trimmed();
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
        return std::unexpected(assigned.error());
    return item;
}

/// The lines of a table; a line break within quotes does not end one.
QStringList tableLines(const QString& text)
{
    QStringList lines = {QString()};
    bool isQuoted = false;
    for (const QChar letter : text) {
        isQuoted = isQuoted != (letter == u'"');
        if (letter == u'\n' && !isQuoted)
            lines += QString();
        else if (letter != u'\r')
            lines.back() += letter;
    }
    lines.removeIf([](const QString& line) { return line.trimmed().isEmpty(); });
    return lines;
}

/// A number as spreadsheets show it: without its currency, its percent sign and what stands between the
/// thousands.
QString plainNumber(QString text, const ValueReading& reading)
{
    text.removeIf([](QChar c) { return !c.isDigit() && !QStringView(u".,-").contains(c); });
    const QString group = reading.locale.groupSeparator();
    return group == u"." || group == u"," ? text.remove(group) : text;
}

/// Whether the cells are titles: neither the quantity nor the price is a number.
bool isTitleLine(const QStringList& cells)
{
    const auto hasDigit = [&](qsizetype position) {
        return std::ranges::any_of(cells.value(position), [](QChar c) { return c.isDigit(); });
    };
    return cells.size() > 1 && !hasDigit(1) && !hasDigit(3);
}

} // namespace

std::expected<Invoice::Item, QString> itemFrom(const QString& text, const Profile& profile, IdSource& ids,
                                               const ValueReading& reading)
{
    const auto problem = [&](const QString& what) {
        return std::unexpected(QStringLiteral("item \"%1\": %2").arg(text, what));
    };
    const std::expected<QStringList, QString> fields = fieldsOf(text, u';');
    if (!fields)
        return problem(fields.error());
    auto item = itemOf(*fields, profile, ids, reading);
    return item ? item : problem(item.error());
}

std::expected<std::vector<Invoice::Item>, QString> itemsFromTable(const QString& text, const Profile& profile,
                                                                  IdSource& ids, const ValueReading& reading)
{
    std::vector<Invoice::Item> items;
    int number = 0;
    for (const QString& line : tableLines(text)) {
        ++number;
        std::expected<QStringList, QString> cells = fieldsOf(line, u'\t');
        if (cells && number == 1 && isTitleLine(*cells))
            continue;
        for (const qsizetype position : {1, 3, 4}) {
            if (cells && position < cells->size())
                (*cells)[position] = plainNumber((*cells)[position], reading);
        }
        const auto item = cells ? itemOf(*cells, profile, ids, reading) : std::unexpected(cells.error());
        if (!item)
            return std::unexpected(QStringLiteral("line %1: %2").arg(number).arg(item.error()));
        items.push_back(*item);
    }
    return items;
}

QString tableOf(const std::vector<Invoice::Item>& items, const QLocale& locale)
{
    const auto quoted = [](QString text) {
        const bool isPlain =
            std::ranges::none_of(text, [](QChar c) { return c == u'"' || c == u'\t' || c == u'\n'; });
        return isPlain ? text : u'"' + text.replace(u'"', QStringLiteral("\"\"")) + u'"';
    };
    QLocale plain = locale;
    plain.setNumberOptions(QLocale::OmitGroupSeparator);
    const auto number = [&](double value) {
        return plain.toString(value, 'f', QLocale::FloatingPointShortest);
    };
    QString text;
    for (const Invoice::Item& item : items)
        text += QStringList{quoted(item.item), number(item.quantity), displayText(item.unit),
                            number(item.unitPrice), number(item.vatPercentage)}
                    .join(u'\t') +
                u'\n';
    return text;
}

} // namespace ledra
