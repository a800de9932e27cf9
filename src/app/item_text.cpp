#include "app/item_text.h"

#include "app/typed_number.h"
#include "model/document_labels.h"
#include "model/new_invoices.h"

#include <QRegularExpression>

#include <functional>

namespace ledra {

namespace {

constexpr qsizetype fieldCount = 5;

/// Splits at a separator outside quotes; a doubled quote inside quotes stands for one.
std::expected<QStringList, ItemProblem> fieldsOf(const QString& text, QChar separator)
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
        return std::unexpected(
            ItemProblem{ItemProblem::openQuote, {}, QStringLiteral("a quotation mark is not closed")});
    return fields;
}

using NumberReading = std::function<std::expected<double, QString>(const QString& text)>;

/// A unit by its raw value, or as documents and the window call one or several of it in either language.
std::expected<Unit, QString> unitFrom(const QString& text)
{
    const QString word = text.simplified().normalized(QString::NormalizationForm_C);
    for (const EnumText<Unit>& row : enumTexts<Unit>) {
        for (const EnumText<Language>& language : enumTexts<Language>) {
            for (const double quantity : {1.0, 2.0}) {
                if (unitLabel(row.value, quantity, language.value).compare(word, Qt::CaseInsensitive) == 0)
                    return row.value;
            }
        }
    }
    Unit unit{};
    if (const Assigned assigned = assignText(unit, text, {}); !assigned)
        return std::unexpected(assigned.error());
    return unit;
}

ItemProblem unreadable(qsizetype field, const QString& word, const QString& reason)
{
    constexpr std::array names = {"text", "quantity", "unit", "price", "VAT"};
    const QString name = QString::fromLatin1(names.at(static_cast<std::size_t>(field)));
    return {static_cast<ItemProblem::Kind>(field), word, name + QStringLiteral(": ") + reason};
}

/// An item of its fields; the error says which of them will not do.
std::expected<Invoice::Item, ItemProblem> itemOf(const QStringList& fields, const Profile& profile,
                                                 IdSource& ids, const NumberReading& numberFrom)
{
    if (fields.size() > fieldCount)
        return std::unexpected(ItemProblem{
            ItemProblem::tooManyFields, {}, QStringLiteral("more than TEXT;QUANTITY;UNIT;PRICE;VAT")});
    if (fields.front().trimmed().isEmpty())
        return std::unexpected(
            ItemProblem{ItemProblem::description, {}, QStringLiteral("the text is missing")});
    Invoice::Item item = newItem(profile, ids);
    item.item = fields.front();
    std::optional<ItemProblem> problem;
    const auto take = [&](qsizetype position, auto& field, const auto& read) {
        const QString word = fields.value(position).trimmed();
        if (problem || word.isEmpty())
            return;
        if (const auto value = read(word))
            field = *value;
        else
            problem = unreadable(position, word, value.error());
    };
    take(ItemProblem::quantity, item.quantity, numberFrom);
    take(ItemProblem::unit, item.unit, unitFrom);
    item.unitPrice = rateOf(item.unit, profile);
    take(ItemProblem::price, item.unitPrice, numberFrom);
    take(ItemProblem::vat, item.vatPercentage, numberFrom);
    if (problem)
        return std::unexpected(*problem);
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
    return lines;
}

/// A number as spreadsheets show it, with a word before or behind it: a currency's code, a unit.
std::expected<double, QString> cellNumber(const QString& cell, const QLocale& locale)
{
    static const QRegularExpression words(
        QStringLiteral("^\\p{L}+\\.?(?=[\\s\\d-])|(?<=[\\s\\d])\\p{L}+\\.?$"),
        QRegularExpression::UseUnicodePropertiesOption);
    const std::optional<double> number = numberTyped(QString(cell).remove(words), locale);
    if (!number)
        return std::unexpected(QStringLiteral("\"%1\" is not a number").arg(cell));
    return *number;
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
    const auto read = [&](const QString& number) { return numberFrom(number, reading); };
    const auto fields = fieldsOf(text, u';');
    const auto item = fields ? itemOf(*fields, profile, ids, read) : std::unexpected(fields.error());
    if (!item)
        return std::unexpected(QStringLiteral("item \"%1\": %2").arg(text, item.error().text));
    return *item;
}

std::expected<std::vector<Invoice::Item>, ItemProblem>
itemsFromTable(const QString& text, const Profile& profile, IdSource& ids, const ValueReading& reading)
{
    const auto read = [&](const QString& cell) { return cellNumber(cell, reading.locale); };
    std::vector<Invoice::Item> items;
    int number = 0;
    bool isFirst = true;
    for (const QString& line : tableLines(text)) {
        ++number;
        if (line.trimmed().isEmpty())
            continue;
        const auto cells = fieldsOf(line, u'\t');
        if (std::exchange(isFirst, false) && cells && isTitleLine(*cells))
            continue;
        auto item = cells ? itemOf(*cells, profile, ids, read) : std::unexpected(cells.error());
        if (!item) {
            item.error().line = number;
            return std::unexpected(item.error());
        }
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
