#include "model/displayed_number.h"
#include "model/number_format.h"
#include "support/test_suite.h"
#include "support/text_table.h"

#include <QTest>

using namespace ledra;

namespace {

struct Describer
{
    QString operator()(const QString& text) const { return u'\'' + text + u'\''; }
    QString operator()(const NumberFormatChip& chip) const { return std::visit(*this, chip.format); }
    QString operator()(const NumberChip& chip) const { return QStringLiteral("N%1").arg(chip.length); }
    QString operator()(const DateChip& chip) const { return u'[' + chip.pattern + u']'; }
    QString operator()(VariableChip) const { return QStringLiteral("X"); }
};

} // namespace

class NumberFormatTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void formatsAreSplit_data()
    {
        test::textTable(
            {"format", "segments", "canonical"},
            {
                {"", "", ""},
                {"RE-{YYYY}-{NNN}", "'RE-' [YYYY] '-' N3", "RE-{YYYY}-{NNN}"},
                {"{YY}{MM}/{NNNN}-{X}", "[YY] [MM] '/' N4 '-' X", "{YY}{MM}/{NNNN}-{X}"},
                {"{NNNNNNN}{DMY}", "N5 [DMY]", "{NNNNN}{DMY}"},
                {"{Q}{NX}{XX}{}{yy}{nnn}{N }", "'{Q}{NX}{XX}{}{yy}{nnn}{N }'", "{Q}{NX}{XX}{}{yy}{nnn}{N }"},
                {"INV-{NNN", "'INV-{NNN'", "INV-{NNN"},
                {"{NN}a{b", "N2 'a{b'", "{NN}a{b"},
                {"{{NNN}}", "'{{NNN}}'", "{{NNN}}"},
                {"}{N}{", "'}' N1 '{'", "}{N}{"},
            });
    }

    void formatsAreSplit()
    {
        QStringList described;
        for (const NumberFormatSegment& segment : parseNumberFormat(test::cell("format")))
            described += std::visit(Describer{}, segment);
        QTEST(described.join(u' '), "segments");
        QTEST(canonicalNumberFormat(test::cell("format")), "canonical");
    }

    void formatsAreRendered_data()
    {
        test::textTable({"format", "number", "date", "text"},
                        {
                            {"RE-{YYYY}-{NNN}", "7", "2024-05-01", "RE-2024-007"},
                            {"RE-{YYYY}-{NNN}", "1234", "2024-05-01", "RE-2024-1234"},
                            {"{YY}{MM}{DD}", "1", "2024-01-09", "240109"},
                            {"{YYYYMM}", "1", "2024-03-05", "202403"},
                            {"{Y}.{M}.{D}", "1", "2024-12-31", "4.12.31"},
                            {"{YYYYYMMMDDD}", "1", "2024-03-05", "02024003005"},
                            {"{YY}/{YYY}", "1", "2005-03-05", "05/005"},
                            {"{NNN}-{X}", "12", "2024-03-05", "012-{NN}"},
                            {"{Q}{NX}", "12", "2024-03-05", "{Q}{NX}"},
                        });
    }

    void formatsAreRendered()
    {
        const QDate date = QDate::fromString(test::cell("date"), Qt::ISODate);
        const auto segments = parseNumberFormat(test::cell("format"));
        const NumberFormatValues values{test::cell("number").toLongLong(), date, QStringLiteral("{NN}")};
        QTEST(renderNumberFormat(segments, values), "text");
    }

    void displayedNumbers_data()
    {
        // A null text: the document has no format or prefix of its own.
        test::textTable({"type", "ownFormat", "ownPrefix", "number"},
                        {
                            {"invoice", nullptr, "IGNORED-", "012-"},
                            {"quote", nullptr, nullptr, "Q-012-"},
                            {"cancellation", nullptr, nullptr, "C-012-"},
                            {"quote", nullptr, "AN-", "AN-012-"},
                            {"cancellation", nullptr, "", "012-"},
                            {"quote", "{YYYY}/{N}", nullptr, "Q-2026/12"},
                            {"invoice", "", nullptr, ""},
                        });
    }

    void displayedNumbers()
    {
        Profile profile;
        profile.numberFormat = QStringLiteral("{NNN}-{X}");
        profile.quotePrefix = QStringLiteral("Q-");
        profile.cancellationPrefix = QStringLiteral("C-");
        Invoice invoice;
        invoice.type = enumFromRawValue<InvoiceType>(test::cell("type").toStdString()).value();
        invoice.number = 12;
        invoice.date =
            *Timestamp::fromIso8601(QStringLiteral("2025-12-31T23:30:00Z")); // the next year in Berlin
        if (const QString format = test::cell("ownFormat"); !format.isNull())
            invoice.numberFormat = format;
        if (const QString prefix = test::cell("ownPrefix"); !prefix.isNull())
            invoice.quotePrefix = invoice.cancellationPrefix = prefix;
        QTEST(displayedNumber(invoice, profile), "number");
    }

    void nextNumbers_data()
    {
        // Documents as "moment=number"; today lies in 2026.
        test::textTable(
            {"existing", "yearly", "always"},
            {
                {"", "1", "1"},
                {"2026-02-01T12:00:00Z=3 2025-06-01T12:00:00Z=41 2026-01-01T12:00:00Z=9", "10", "42"},
                {"2025-12-31T23:30:00Z=5 2026-12-31T23:30:00Z=7", "6", "8"}, // by the user's clock
                {"2026-02-01T12:00:00Z=-5", "-4", "-4"},
                {"2026-02-01T12:00:00Z=9223372036854775807", "9223372036854775807", "9223372036854775807"},
            });
    }

    void nextNumbers()
    {
        std::vector<Invoice> invoices(1);
        invoices[0].type = InvoiceType::quote; // counts for itself
        invoices[0].number = 100;
        invoices[0].date = *Timestamp::fromIso8601(QStringLiteral("2026-02-01T12:00:00Z"));
        const QStringList existing = test::cell("existing").split(u' ', Qt::SkipEmptyParts);
        for (const QString& document : existing) {
            invoices.emplace_back().date = *Timestamp::fromIso8601(document.section(u'=', 0, 0));
            invoices.back().number = document.section(u'=', 1).toLongLong();
        }
        std::vector<const Invoice*> pointers;
        for (const Invoice& invoice : invoices)
            pointers.push_back(&invoice);
        const auto next = [&](NumberResetFrequency frequency) {
            return QString::number(nextNumber(pointers, InvoiceType::invoice, frequency, 2026));
        };
        QTEST(next(NumberResetFrequency::year), "yearly");
        QTEST(next(NumberResetFrequency::never), "always");
    }
};

const ledra::test::RegisterSuite<NumberFormatTest> registration("number_format_test");

#include "number_format_test.moc"
