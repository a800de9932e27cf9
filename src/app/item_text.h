#pragma once

#include "model/clock.h"
#include "model/invoice.h"
#include "model/profile.h"
#include "store/key_value.h"

#include <QString>

#include <expected>
#include <vector>

namespace ledra {

/// Reads "TEXT;QUANTITY;UNIT;PRICE;VAT", the form in which items are typed. Fields that are empty or left out
/// at the end take what a new line of the profile has; a field with a semicolon is quoted as in CSV (RFC
/// 4180). A unit is its raw value or its name on documents, in either language.
[[nodiscard]] std::expected<Invoice::Item, QString> itemFrom(const QString& text, const Profile& profile,
                                                             IdSource& ids, const ValueReading& reading);

/// Why a line of a table is no item, in parts: windows say it in the reader's language.
struct ItemProblem
{
    /// The field that cannot be read, in their order, or what is wrong with the line as a whole.
    enum Kind { description, quantity, unit, price, vat, openQuote, tooManyFields };

    Kind kind;
    QString word; ///< that stands in the field
    QString text; ///< all of it in English
    int line = 0; ///< from 1
};

/// Reads lines as they are copied from a spreadsheet: cells with tabs between them in the same order, one
/// line an item. Cells that hold tabs or line breaks are quoted. Empty lines, and a first line whose quantity
/// and price are no numbers (titles), are left out. Numbers are read as if they were typed (numberTyped()),
/// with a currency sign or code or another word beside them; units as Ledra itself writes them.
[[nodiscard]] std::expected<std::vector<Invoice::Item>, ItemProblem>
itemsFromTable(const QString& text, const Profile& profile, IdSource& ids, const ValueReading& reading);

/// The same lines for pasting into a spreadsheet, with numbers as the locale writes them.
QString tableOf(const std::vector<Invoice::Item>& items, const QLocale& locale);

} // namespace ledra
