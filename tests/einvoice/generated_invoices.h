#pragma once

#include "support/sample_invoice.h"

#include <random>

namespace ledra::test {

/// Draws numbers that are the same everywhere.
class Draw
{
public:
    explicit Draw(std::uint32_t seed) : source_(seed) {}

    int below(int limit) { return static_cast<int>(source_() % static_cast<std::uint32_t>(limit)); }
    bool oneIn(int count) { return below(count) == 0; }

    template <class T>
    const T& of(const std::vector<T>& list)
    {
        return list[static_cast<std::size_t>(below(static_cast<int>(list.size())))];
    }

private:
    std::mt19937 source_;
};

/// A text that is often empty, and at times one that needs care.
inline QString drawnText(Draw& draw)
{
    static const std::vector<QString> texts = {
        QString(),
        QStringLiteral("Müller & Söhne <GmbH>"),
        QStringLiteral("\"quoted\" 'text' ]]> &amp;"),
        QStringLiteral("first\nsecond\n\nlast "),
        QStringLiteral("日本語 עברית \U0001f600"),
        QStringLiteral(" a\u00a0b\tc"),
        QStringLiteral("{{name}} {YYYY} <script>alert(1)</script>"),
        QStringLiteral("carriage\rreturn"),
    };
    return draw.of(texts);
}

/// A number of some magnitude, with the fractions that trouble sums of money.
inline double drawnNumber(Draw& draw)
{
    switch (draw.below(8)) {
    case 0:
        return draw.below(50);
    case 1:
        return draw.below(100'000) / 8.0;
    case 2:
        return 0.1 * draw.below(30) + 1e-7 * draw.below(3);
    case 3:
        return 1e-5 * draw.below(20);
    case 4:
        return 1e6 * draw.below(1000) + 0.005;
    default:
        return draw.below(1'000'000) / 100.0;
    }
}

/// An invoice, a quote or a cancellation with drawn values in every field that e-invoices carry.
inline Invoice drawnInvoice(std::uint32_t seed)
{
    Draw draw(seed);
    Invoice invoice = sampleInvoice();
    invoice.type = draw.of(std::vector{InvoiceType::invoice, InvoiceType::cancellation, InvoiceType::quote});
    for (QString Invoice::* field : {&Invoice::name,
                                     &Invoice::businessName,
                                     &Invoice::email,
                                     &Invoice::addressLineOne,
                                     &Invoice::addressLineTwo,
                                     &Invoice::addressPostcode,
                                     &Invoice::addressCity,
                                     &Invoice::addressState,
                                     &Invoice::senderName,
                                     &Invoice::senderBusinessName,
                                     &Invoice::senderAddressLineOne,
                                     &Invoice::senderAddressLineTwo,
                                     &Invoice::senderAddressPostcode,
                                     &Invoice::senderAddressCity,
                                     &Invoice::senderAddressState,
                                     &Invoice::senderEmail,
                                     &Invoice::senderPhone,
                                     &Invoice::senderTaxNumber,
                                     &Invoice::senderVatNumber,
                                     &Invoice::senderAdditionalNumbers,
                                     &Invoice::senderBic,
                                     &Invoice::note})
        invoice.*field = drawnText(draw);
    invoice.senderIban = draw.of(std::vector{QString(), QStringLiteral("DE89 3704\u00a00044 0532 0130 00")});
    invoice.reference = draw.oneIn(3) ? std::nullopt : std::optional(drawnText(draw));
    invoice.addressCountry.code = draw.of(std::vector{QStringLiteral("DE"), QStringLiteral("JP")});
    invoice.currency.code =
        draw.of(std::vector{QStringLiteral("EUR"), QStringLiteral("USD"), QStringLiteral("JPY")});
    invoice.date = noon(2020 + draw.below(10), 1 + draw.below(12), 1 + draw.below(28));
    invoice.serviceDateStart = noon(2019, 12, 31);
    if (draw.oneIn(2))
        invoice.serviceDateEnd = noon(2024, 2, 29);
    invoice.daysToPay = draw.below(60);
    invoice.grossPrices = draw.oneIn(4);
    invoice.vatExemptionReason = draw.oneIn(3) ? VATExemptionReason::smallBusiness : VATExemptionReason::none;
    if (draw.oneIn(3))
        invoice.discountPercentage = draw.below(4000) / 100.0;
    if (draw.oneIn(3))
        invoice.discountAmount = drawnNumber(draw);
    const int count = draw.below(6);
    for (int i = 0; i < count; ++i) {
        const double sign = invoice.type == InvoiceType::cancellation || draw.oneIn(8) ? -1 : 1;
        Invoice::Item item = sampleItem(drawnText(draw), drawnNumber(draw), static_cast<Unit>(draw.below(5)),
                                        sign * drawnNumber(draw), draw.of(std::vector{19.0, 7.0, 0.0, 7.7}));
        invoice.items.push_back(item);
    }
    return invoice;
}

} // namespace ledra::test
