#include "sample_invoices.h"

#include <array>
#include <random>

namespace ledra::bench {

namespace {

constexpr int itemsEach = 10;

constexpr std::array cities = {u"Lübeck",      u"Köln",     u"Görlitz", u"Münster",
                               u"Saarbrücken", u"Würzburg", u"Berlin"};
constexpr std::array streets = {u"Ufergasse", u"Große Bleiche", u"Am Mühlenteich", u"Straße der Einheit"};
constexpr std::array firms = {u"Kaffeerösterei Ahlers & Sohn GmbH", u"Bäckerei Özdemir",
                              u"Möbelwerk Süd GmbH & Co. KG", u"Übersetzungsbüro Grün", u""};
constexpr std::array persons = {u"Jonas Ahlers", u"Jürgen Weiß", u"Zoë Brückner", u"Aylin Özdemir"};
constexpr std::array works = {
    u"Erscheinungsbild der Rösterei\nWortmarke, Farbklima, Schriftwahl, Kurzleitfaden (16 Seiten)",
    u"Geschäftsausstattung\nBriefbogen, Visitenkarte, E-Mail-Signatur",
    u"Gestaltung der Kaffeetüten, sechs Sorten",
    u"Druckabnahme vor Ort",
    u"Visitenkarten, Naturpapier 350 g/m², zweifarbig bedruckt",
    u"Korrekturlauf – Änderungen nach der „Freigabe“ durch den Auftraggeber",
};
constexpr std::array units = {Unit::piece, Unit::hour, Unit::day, Unit::week, Unit::lumpSum};

/// Draws from a fixed sequence, so that two runs measure the same work.
class Dice
{
public:
    int below(int limit) { return static_cast<int>(engine_() % static_cast<unsigned>(limit)); }

    template <class Table>
    auto oneOf(const Table& table)
    {
        return table[static_cast<std::size_t>(below(static_cast<int>(table.size())))];
    }

    QString textOf(const auto& table) { return QString::fromUtf16(oneOf(table)); }

    QUuid id()
    {
        QByteArray bytes(16, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(below(256));
        return QUuid::fromRfc4122(bytes);
    }

private:
    std::mt19937 engine_{20260305};
};

Invoice::Item sampleItem(Dice& dice)
{
    Invoice::Item item;
    item.id = dice.id();
    item.item = dice.textOf(works);
    item.quantity = dice.below(80) / 4.0 + 0.25;
    item.unit = dice.oneOf(units);
    item.unitPrice = dice.below(250'000) / 100.0;
    item.vatPercentage = dice.below(4) == 0 ? 7 : 19;
    return item;
}

void setSender(Invoice& invoice)
{
    invoice.senderName = QStringLiteral("Hanna Wiechert");
    invoice.senderBusinessName = QStringLiteral("Studio Nordlicht");
    invoice.senderAddressLineOne = QStringLiteral("Kranweg 14");
    invoice.senderAddressLineTwo = QStringLiteral("Hinterhaus, 2. Etage");
    invoice.senderAddressPostcode = QStringLiteral("20457");
    invoice.senderAddressCity = QStringLiteral("Hamburg");
    invoice.senderAddressCountry = Country{QStringLiteral("DE")};
    invoice.senderEmail = QStringLiteral("nordlicht@example.de");
    invoice.senderPhone = QStringLiteral("+49 40 66969 214");
    invoice.senderWeb = QStringLiteral("nordlicht.example.de");
    invoice.senderAdditional = QStringLiteral("Gestaltung für Marken,\nBücher und Räume");
    invoice.senderIban = QStringLiteral("DE02 2005 0550 1015 8713 93");
    invoice.senderBic = QStringLiteral("HASPDEHHXXX");
    invoice.senderTaxNumber = QStringLiteral("48/123/45678");
    invoice.senderVatNumber = QStringLiteral("DE123456788");
}

void setRecipient(Invoice& invoice, Dice& dice)
{
    invoice.name = dice.textOf(persons);
    invoice.businessName = dice.textOf(firms);
    invoice.addressLineOne = dice.textOf(streets) + u' ' + QString::number(1 + dice.below(140));
    invoice.addressPostcode = QString::number(10'000 + dice.below(89'999));
    invoice.addressCity = dice.textOf(cities);
    invoice.addressCountry = Country{QStringLiteral("DE")};
    invoice.email = QStringLiteral("buchhaltung%1@example.com").arg(dice.below(1000));
}

Invoice sampleInvoice(int number, Dice& dice)
{
    constexpr int firstDay = 757'382'400; // 2025-01-01, in seconds since 2001
    constexpr int day = 86'400;
    Invoice invoice;
    invoice.id = dice.id();
    invoice.number = number;
    invoice.numberFormat = QStringLiteral("{YYYY}-{NNN}");
    invoice.date = Timestamp(firstDay + day * static_cast<double>(dice.below(365)));
    invoice.serviceDateStart = Timestamp(invoice.date.secondsSinceReference() - 14.0 * day);
    invoice.serviceDateEnd = invoice.date;
    invoice.statusUpdateDate = invoice.date;
    setRecipient(invoice, dice);
    setSender(invoice);
    for (int i = 0; i < itemsEach; ++i)
        invoice.items.push_back(sampleItem(dice));
    if (dice.below(5) == 0)
        invoice.discountPercentage = 2.5;
    invoice.marginalNote = QStringLiteral("Bitte geben Sie bei der Überweisung die Rechnungsnummer an.");
    invoice.currency = Currency{QStringLiteral("EUR")};
    invoice.language = Language::german;
    invoice.status = Status::sent;
    invoice.note = QStringLiteral("Sehr geehrte Damen und Herren,\n\n**vielen Dank** für Ihr Vertrauen.");
    invoice.reference = QStringLiteral("Auftrag %1").arg(dice.below(100'000));
    return invoice;
}

} // namespace

std::vector<Invoice> sampleInvoices(int count)
{
    Dice dice;
    std::vector<Invoice> invoices;
    invoices.reserve(static_cast<std::size_t>(count));
    for (int number = 1; number <= count; ++number)
        invoices.push_back(sampleInvoice(number, dice));
    return invoices;
}

} // namespace ledra::bench
