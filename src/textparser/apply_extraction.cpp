#include "textparser/apply_extraction.h"

#include "model/region.h"

#include <array>

namespace ledra {

namespace {

constexpr double highestRate = 100; // percent

QString unused(const char* what, const QString& value, const char* why)
{
    return QStringLiteral("%1 “%2”: %3").arg(QString::fromLatin1(what), value, QString::fromLatin1(why));
}

struct TextPair
{
    std::optional<QString> ExtractedRecipient::* from;
    QString Invoice::* to;
};

constexpr std::array recipientTexts = {
    TextPair{&ExtractedRecipient::name, &Invoice::name},
    TextPair{&ExtractedRecipient::businessName, &Invoice::businessName},
    TextPair{&ExtractedRecipient::email, &Invoice::email},
    TextPair{&ExtractedRecipient::addressLineOne, &Invoice::addressLineOne},
    TextPair{&ExtractedRecipient::addressLineTwo, &Invoice::addressLineTwo},
    TextPair{&ExtractedRecipient::postcode, &Invoice::addressPostcode},
    TextPair{&ExtractedRecipient::city, &Invoice::addressCity},
    TextPair{&ExtractedRecipient::state, &Invoice::addressState},
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

    const QStringList& problems() const { return problems_; }

private:
    std::optional<QDate> day(const char* what, const std::optional<QString>& text);
    Invoice::Item itemOf(const ExtractedItem& extracted);

    Invoice& invoice_;
    const ApplyDefaults& defaults_;
    QStringList problems_;
};

void Application::takeRecipient(const ExtractedRecipient& recipient)
{
    for (const auto& [from, to] : recipientTexts) {
        const std::optional<QString>& text = recipient.*from;
        if (text && (invoice_.*to).isEmpty())
            invoice_.*to = *text;
    }
    if (!recipient.countryCode)
        return;
    const QString code = recipient.countryCode->toUpper();
    if (!findCountry(code))
        problems_ += unused("country", *recipient.countryCode, "there is no such code");
    else if (invoice_.addressCountry.code.isEmpty() ||
             invoice_.addressCountry == defaults_.profile.addressCountry)
        invoice_.addressCountry.code = code;
}

void Application::takeCurrency(const QString& text)
{
    const QString code = text.toUpper();
    if (!isKnownCurrency(code))
        problems_ += unused("currency", text, "there is no such code");
    else if (invoice_.currency == defaults_.profile.currency)
        invoice_.currency.code = code;
    else if (invoice_.currency.code != code)
        problems_ += unused("currency", text, "the invoice has another one");
}

std::optional<QDate> Application::day(const char* what, const std::optional<QString>& text)
{
    const std::optional<QDate> day = text ? dayFromText(*text) : std::nullopt;
    if (text && !day)
        problems_ += unused(what, *text, "not a date such as 2026-03-05");
    return day;
}

void Application::takeDays(const std::optional<QString>& startText, const std::optional<QString>& endText)
{
    const bool isUntouched =
        !invoice_.serviceDateEnd && (invoice_.serviceDateStart == invoice_.date ||
                                     invoice_.serviceDateStart == invoice_.statusUpdateDate);
    if (!isUntouched)
        return;
    const std::optional<QDate> start = day("start of service", startText);
    const std::optional<QDate> end = day("end of service", endText);
    const auto noon = [](QDate date) { return Timestamp::fromDateTime(QDateTime(date, QTime(12, 0))); };
    if (start)
        invoice_.serviceDateStart = noon(*start);
    if (end && !start)
        problems_ += unused("end of service", dayText(*end), "there is no start");
    else if (end && *end < *start)
        problems_ += unused("end of service", dayText(*end), "before the start");
    else if (end && *end > *start)
        invoice_.serviceDateEnd = noon(*end);
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
        problems_ += unused("VAT rate", QString::number(rate), "not from 0 to 100");
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
        problems_ += QStringLiteral("%1 items: the invoice has some already").arg(filled.size());
    } else if (invoice_.grossPrices) {
        problems_ +=
            QStringLiteral("%1 items: their prices are net, those of the invoice gross").arg(filled.size());
    } else {
        invoice_.items.clear();
        for (const ExtractedItem& item : filled)
            invoice_.items.push_back(itemOf(item));
    }
}

void Application::takeTexts(const ExtractedInvoice& extracted)
{
    if (extracted.note && invoice_.note.isEmpty())
        invoice_.note = *extracted.note;
    if (extracted.reference && invoice_.reference.value_or(QString()).isEmpty())
        invoice_.reference = extracted.reference;
}

} // namespace

QStringList apply(const ExtractedInvoice& extracted, Invoice& invoice, const ApplyDefaults& defaults)
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
    return application.problems();
}

} // namespace ledra
