#include "nlohmann_invoice.h"

#include "model/clock.h"
#include "model/enumerations.h"

namespace ledra {

namespace {

using Json = nlohmann::ordered_json;

std::string jsonText(const QString& value)
{
    return value.toStdString();
}
std::string jsonText(const QUuid& value)
{
    return idText(value).toStdString();
}
std::string jsonText(const Country& value)
{
    return value.code.toStdString();
}
std::string jsonText(const Currency& value)
{
    return value.code.toStdString();
}

template <TextEnum E>
std::string jsonText(E value)
{
    return std::string(rawValue(value));
}

double jsonText(Timestamp value)
{
    return value.secondsSinceReference();
}
double jsonText(double value)
{
    return value;
}

template <class T>
void put(Json& json, const char* key, const std::optional<T>& value)
{
    if (value)
        json[key] = jsonText(*value);
}

void take(const Json& value, QString& field)
{
    field = QString::fromStdString(value.get_ref<const std::string&>());
}
void take(const Json& value, double& field)
{
    value.get_to(field);
}
void take(const Json& value, bool& field)
{
    value.get_to(field);
}
void take(const Json& value, std::int64_t& field)
{
    value.get_to(field);
}
void take(const Json& value, Country& field)
{
    take(value, field.code);
}
void take(const Json& value, Currency& field)
{
    take(value, field.code);
}
void take(const Json& value, Timestamp& field)
{
    field = Timestamp(value.get<double>());
}

void take(const Json& value, QUuid& field)
{
    field = QUuid::fromString(QString::fromStdString(value.get_ref<const std::string&>()));
}

template <TextEnum E>
void take(const Json& value, E& field)
{
    field = enumFromRawValue<E>(value.get_ref<const std::string&>()).value();
}

template <class T>
void get(const Json& json, const char* key, T& field)
{
    take(json.at(key), field);
}

template <class T>
void get(const Json& json, const char* key, std::optional<T>& field)
{
    if (const auto found = json.find(key); found != json.end())
        take(*found, field.emplace());
}

Json recipientOf(const Invoice& invoice)
{
    Json address;
    address["lineOne"] = jsonText(invoice.addressLineOne);
    address["lineTwo"] = jsonText(invoice.addressLineTwo);
    address["postcode"] = jsonText(invoice.addressPostcode);
    address["city"] = jsonText(invoice.addressCity);
    address["state"] = jsonText(invoice.addressState);
    address["country"] = jsonText(invoice.addressCountry);
    Json recipient;
    recipient["name"] = jsonText(invoice.name);
    recipient["businessName"] = jsonText(invoice.businessName);
    recipient["address"] = std::move(address);
    recipient["email"] = jsonText(invoice.email);
    return recipient;
}

Json senderOf(const Invoice& invoice)
{
    Json address;
    address["lineOne"] = jsonText(invoice.senderAddressLineOne);
    address["lineTwo"] = jsonText(invoice.senderAddressLineTwo);
    address["postcode"] = jsonText(invoice.senderAddressPostcode);
    address["city"] = jsonText(invoice.senderAddressCity);
    address["state"] = jsonText(invoice.senderAddressState);
    address["country"] = jsonText(invoice.senderAddressCountry);
    Json sender;
    sender["name"] = jsonText(invoice.senderName);
    sender["businessName"] = jsonText(invoice.senderBusinessName);
    sender["address"] = std::move(address);
    sender["email"] = jsonText(invoice.senderEmail);
    sender["phone"] = jsonText(invoice.senderPhone);
    sender["web"] = jsonText(invoice.senderWeb);
    sender["additional"] = jsonText(invoice.senderAdditional);
    sender["iban"] = jsonText(invoice.senderIban);
    sender["bic"] = jsonText(invoice.senderBic);
    sender["taxNumber"] = jsonText(invoice.senderTaxNumber);
    sender["vatNumber"] = jsonText(invoice.senderVatNumber);
    sender["additionalNumbers"] = jsonText(invoice.senderAdditionalNumbers);
    return sender;
}

void takeRecipient(const Json& recipient, Invoice& invoice)
{
    get(recipient, "name", invoice.name);
    get(recipient, "businessName", invoice.businessName);
    const Json& address = recipient.at("address");
    get(address, "lineOne", invoice.addressLineOne);
    get(address, "lineTwo", invoice.addressLineTwo);
    get(address, "postcode", invoice.addressPostcode);
    get(address, "city", invoice.addressCity);
    get(address, "state", invoice.addressState);
    get(address, "country", invoice.addressCountry);
    get(recipient, "email", invoice.email);
}

void takeSender(const Json& sender, Invoice& invoice)
{
    get(sender, "name", invoice.senderName);
    get(sender, "businessName", invoice.senderBusinessName);
    const Json& address = sender.at("address");
    get(address, "lineOne", invoice.senderAddressLineOne);
    get(address, "lineTwo", invoice.senderAddressLineTwo);
    get(address, "postcode", invoice.senderAddressPostcode);
    get(address, "city", invoice.senderAddressCity);
    get(address, "state", invoice.senderAddressState);
    get(address, "country", invoice.senderAddressCountry);
    get(sender, "email", invoice.senderEmail);
    get(sender, "phone", invoice.senderPhone);
    get(sender, "web", invoice.senderWeb);
    get(sender, "additional", invoice.senderAdditional);
    get(sender, "iban", invoice.senderIban);
    get(sender, "bic", invoice.senderBic);
    get(sender, "taxNumber", invoice.senderTaxNumber);
    get(sender, "vatNumber", invoice.senderVatNumber);
    get(sender, "additionalNumbers", invoice.senderAdditionalNumbers);
}

} // namespace

void to_json(Json& json, const Invoice::Item& item)
{
    json["id"] = jsonText(item.id);
    json["quantity"] = item.quantity;
    json["unit"] = jsonText(item.unit);
    json["unitPrice"] = item.unitPrice;
    json["vatPercentage"] = item.vatPercentage;
    json["description"] = jsonText(item.item);
}

void from_json(const Json& json, Invoice::Item& item)
{
    get(json, "id", item.id);
    get(json, "quantity", item.quantity);
    get(json, "unit", item.unit);
    get(json, "unitPrice", item.unitPrice);
    get(json, "vatPercentage", item.vatPercentage);
    get(json, "description", item.item);
}

void to_json(Json& json, const Invoice& invoice)
{
    json["version"] = invoice.version;
    json["type"] = jsonText(invoice.type);
    json["id"] = jsonText(invoice.id);
    put(json, "cancelledInvoiceId", invoice.cancelledInvoiceId);
    put(json, "quoteId", invoice.quoteId);
    json["number"] = invoice.number;
    put(json, "numberFormat", invoice.numberFormat);
    json["numberVariable"] = jsonText(invoice.numberVariable);
    put(json, "cancellationPrefix", invoice.cancellationPrefix);
    put(json, "quotePrefix", invoice.quotePrefix);
    json["date"] = jsonText(invoice.date);
    json["serviceDateStart"] = jsonText(invoice.serviceDateStart);
    put(json, "serviceDateEnd", invoice.serviceDateEnd);
    json["recipient"] = recipientOf(invoice);
    json["sender"] = senderOf(invoice);
    json["items"] = invoice.items;
    json["grossPrices"] = invoice.grossPrices;
    put(json, "discountPercentage", invoice.discountPercentage);
    put(json, "discountAmount", invoice.discountAmount);
    json["vatExemptionReason"] = jsonText(invoice.vatExemptionReason);
    json["marginalNote"] = jsonText(invoice.marginalNote);
    json["daysToPay"] = invoice.daysToPay;
    json["currency"] = jsonText(invoice.currency);
    put(json, "language", invoice.language);
    json["status"] = jsonText(invoice.status);
    json["statusUpdateDate"] = jsonText(invoice.statusUpdateDate);
    json["note"] = jsonText(invoice.note);
    put(json, "reference", invoice.reference);
}

void from_json(const Json& json, Invoice& invoice)
{
    get(json, "version", invoice.version);
    get(json, "type", invoice.type);
    get(json, "id", invoice.id);
    get(json, "cancelledInvoiceId", invoice.cancelledInvoiceId);
    get(json, "quoteId", invoice.quoteId);
    get(json, "number", invoice.number);
    get(json, "numberFormat", invoice.numberFormat);
    get(json, "numberVariable", invoice.numberVariable);
    get(json, "cancellationPrefix", invoice.cancellationPrefix);
    get(json, "quotePrefix", invoice.quotePrefix);
    get(json, "date", invoice.date);
    get(json, "serviceDateStart", invoice.serviceDateStart);
    get(json, "serviceDateEnd", invoice.serviceDateEnd);
    takeRecipient(json.at("recipient"), invoice);
    takeSender(json.at("sender"), invoice);
    json.at("items").get_to(invoice.items);
    get(json, "grossPrices", invoice.grossPrices);
    get(json, "discountPercentage", invoice.discountPercentage);
    get(json, "discountAmount", invoice.discountAmount);
    get(json, "vatExemptionReason", invoice.vatExemptionReason);
    get(json, "marginalNote", invoice.marginalNote);
    get(json, "daysToPay", invoice.daysToPay);
    get(json, "currency", invoice.currency);
    get(json, "language", invoice.language);
    get(json, "status", invoice.status);
    get(json, "statusUpdateDate", invoice.statusUpdateDate);
    get(json, "note", invoice.note);
    get(json, "reference", invoice.reference);
}

} // namespace ledra
