#include "textparser/apply_extraction.h"

#include "model/region.h"

#include <array>

namespace ledra {

namespace {

constexpr double highestRate = 100; // percent

constexpr const char* isUnknownCode = "there is no such code";
constexpr const char* startOfService = "start of service “%1”";
constexpr const char* endOfService = "end of service “%1”";
constexpr const char* isTaken = "the invoice has another one";

struct TextPair
{
    std::optional<QString> ExtractedRecipient::* from;
    QString Invoice::* to;
    const char* what;
};

constexpr std::array recipientTexts = {
    TextPair{&ExtractedRecipient::name, &Invoice::name, "name “%1”"},
    TextPair{&ExtractedRecipient::businessName, &Invoice::businessName, "business “%1”"},
    TextPair{&ExtractedRecipient::email, &Invoice::email, "e-mail “%1”"},
    TextPair{&ExtractedRecipient::addressLineOne, &Invoice::addressLineOne, "address “%1”"},
    TextPair{&ExtractedRecipient::addressLineTwo, &Invoice::addressLineTwo, "address line 2 “%1”"},
    TextPair{&ExtractedRecipient::postcode, &Invoice::addressPostcode, "postcode “%1”"},
    TextPair{&ExtractedRecipient::city, &Invoice::addressCity, "city “%1”"},
    TextPair{&ExtractedRecipient::state, &Invoice::addressState, "state “%1”"},
};

constexpr std::array units = {
    std::pair{ExtractedUnit::piece, Unit::piece},     std::pair{ExtractedUnit::hour, Unit::hour},
    std::pair{ExtractedUnit::day, Unit::day},         std::pair{ExtractedUnit::week, Unit::week},
    std::pair{ExtractedUnit::lumpSum, Unit::lumpSum},
};

Unit unitOf(ExtractedUnit unit)
{
    const auto row = std::ranges::find(units, unit, &std::pair<ExtractedUnit, Unit>::first);
    return row == units.end() ? Unit::piece : row->second;
}

Timestamp noon(QDate date)
{
    return Timestamp::fromDateTime(QDateTime(date, QTime(12, 0)));
}

/// One run over an invoice, which collects what could not be used.
class Application
{
public:
    Application(Invoice& invoice, const ApplyDefaults& defaults) : invoice_(invoice), defaults_(defaults) {}

    void takeRecipient(const ExtractedRecipient& recipient);
    void takeCurrency(const QString& text);
    void takeDays(const std::optional<QString>& start, const std::optional<QString>& end);
    void takeItems(const std::vector<ExtractedItem>& items);
    void takeTexts(const ExtractedInvoice& extracted);

    std::vector<UnusedText> takeProblems() { return std::move(problems_); }

private:
    void drop(const char* what, const QString& value, const char* why)
    {
        problems_.push_back({what, value, why});
    }
    void takeText(const QString& text, QString& field, const char* what);
    std::optional<QDate> day(const char* what, const std::optional<QString>& text);
    void takeEnd(QDate end, bool isSamePeriod);
    Invoice::Item itemOf(const ExtractedItem& extracted);

    Invoice& invoice_;
    const ApplyDefaults& defaults_;
    std::vector<UnusedText> problems_;
};

void Application::takeText(const QString& text, QString& field, const char* what)
{
    if (field.isEmpty())
        field = text;
    else if (field != text)
        drop(what, text, isTaken);
}

void Application::takeRecipient(const ExtractedRecipient& recipient)
{
    for (const auto& [from, to, what] : recipientTexts) {
        if (recipient.*from)
            takeText(*(recipient.*from), invoice_.*to, what);
    }
    if (!recipient.countryCode)
        return;
    const QString code = recipient.countryCode->toUpper();
    if (!findCountry(code))
        drop("country “%1”", *recipient.countryCode, isUnknownCode);
    else if (invoice_.addressCountry.code.isEmpty() ||
             invoice_.addressCountry == defaults_.profile.addressCountry)
        invoice_.addressCountry.code = code;
    else if (invoice_.addressCountry.code != code)
        drop("country “%1”", code, isTaken);
}

void Application::takeCurrency(const QString& text)
{
    const QString code = text.toUpper();
    if (!isKnownCurrency(code))
        drop("currency “%1”", text, isUnknownCode);
    else if (invoice_.currency == defaults_.profile.currency)
        invoice_.currency.code = code;
    else if (invoice_.currency.code != code)
        drop("currency “%1”", text, isTaken);
}

std::optional<QDate> Application::day(const char* what, const std::optional<QString>& text)
{
    const std::optional<QDate> day = text ? dayFromText(*text) : std::nullopt;
    if (text && !day)
        drop(what, *text, "not a date such as 2026-03-05");
    return day;
}

void Application::takeDays(const std::optional<QString>& startText, const std::optional<QString>& endText)
{
    const bool isUntouched =
        !invoice_.serviceDateEnd && (invoice_.serviceDateStart == invoice_.date ||
                                     invoice_.serviceDateStart == invoice_.statusUpdateDate);
    const std::optional<QDate> start = day(startOfService, startText);
    const std::optional<QDate> end = day(endOfService, endText);
    if (start && isUntouched)
        invoice_.serviceDateStart = noon(*start);
    const QDate held = invoice_.serviceDateStart.localDate();
    if (start && *start != held)
        drop(startOfService, dayText(*start), isTaken);
    if (end && startText && !start)
        drop(endOfService, dayText(*end), "there is no start");
    else if (end)
        takeEnd(*end, start.value_or(held) == held);
}

/// The last day of a period whose first day the invoice has. A single day is no period.
void Application::takeEnd(QDate end, bool isSamePeriod)
{
    const QDate start = invoice_.serviceDateStart.localDate();
    const QDate held = invoice_.serviceDateEnd ? invoice_.serviceDateEnd->localDate() : start;
    if (end == held)
        return;
    if (!isSamePeriod || invoice_.serviceDateEnd)
        drop(endOfService, dayText(end), isTaken);
    else if (end < start)
        drop(endOfService, dayText(end), "before the start");
    else
        invoice_.serviceDateEnd = noon(end);
}

Invoice::Item Application::itemOf(const ExtractedItem& extracted)
{
    Invoice::Item item = newItem(defaults_.profile, defaults_.ids);
    item.item = extracted.description.value_or(QString());
    item.quantity = extracted.quantity.value_or(item.quantity);
    item.unit = unitOf(extracted.unit.value_or(ExtractedUnit::piece));
    item.unitPrice = extracted.unitPrice.value_or(rateOf(item.unit, defaults_.profile));
    const double rate = extracted.vatPercentage.value_or(item.vatPercentage);
    if (rate >= 0 && rate <= highestRate)
        item.vatPercentage = rate;
    else
        drop("VAT rate “%1”", QString::number(rate), "not from 0 to 100");
    return item;
}

void Application::takeItems(const std::vector<ExtractedItem>& items)
{
    std::vector<ExtractedItem> filled = items;
    std::erase(filled, ExtractedItem());
    const auto& present = invoice_.items;
    const bool isFree = present.empty() || (present.size() == 1 && present.front().item.trimmed().isEmpty() &&
                                            present.front().unitPrice == 0);
    if (filled.empty())
        return;
    if (!isFree) {
        drop("%1 items", QString::number(filled.size()), "the invoice has some already");
    } else if (invoice_.grossPrices) {
        drop("%1 items", QString::number(filled.size()), "their prices are net, those of the invoice gross");
    } else {
        invoice_.items.clear();
        for (const ExtractedItem& item : filled)
            invoice_.items.push_back(itemOf(item));
    }
}

void Application::takeTexts(const ExtractedInvoice& extracted)
{
    if (extracted.note)
        takeText(*extracted.note, invoice_.note, "note “%1”");
    if (!extracted.reference)
        return;
    QString reference = invoice_.reference.value_or(QString());
    takeText(*extracted.reference, reference, "reference “%1”");
    if (!reference.isEmpty())
        invoice_.reference = reference;
}

} // namespace

QString UnusedText::line() const
{
    return QString::fromUtf8(what).arg(value) + QStringLiteral(": ") + QString::fromUtf8(why);
}

std::vector<UnusedText> apply(const ExtractedInvoice& extracted, Invoice& invoice,
                              const ApplyDefaults& defaults)
{
    Application application(invoice, defaults);
    if (extracted.recipient)
        application.takeRecipient(*extracted.recipient);
    if (extracted.items)
        application.takeItems(*extracted.items);
    application.takeTexts(extracted);
    if (extracted.currencyCode)
        application.takeCurrency(*extracted.currencyCode);
    application.takeDays(extracted.serviceDateStart, extracted.serviceDateEnd);
    return application.takeProblems();
}

} // namespace ledra
