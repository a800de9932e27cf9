#include "exchange/csv_exporter.h"
#include "support/sample_invoice.h"
#include "support/test_suite.h"

using namespace ledra;
using Column = CSVExporter::Column;

namespace {

std::set<Column> allColumns()
{
    std::set<Column> columns;
    for (const EnumText<Column>& row : enumTexts<Column>)
        columns.insert(row.value);
    return columns;
}

Invoice thousands()
{
    Invoice invoice = test::sampleInvoice();
    invoice.businessName = QStringLiteral("Muster; Söhne");
    invoice.items = {test::sampleItem(QStringLiteral("Design"), 1, Unit::lumpSum, 1234.5, 19)};
    invoice.discountAmount = 100;
    return invoice;
}

QString exported(const Invoice& invoice, const std::set<Column>& columns, const CSVExporter::Reader& reader)
{
    return QString::fromUtf8(CSVExporter::text({&invoice}, columns, Profile(), reader));
}

const CSVExporter::Reader german{QLocale(QLocale::German, QLocale::Germany), Language::german};
const CSVExporter::Reader english{QLocale(QLocale::English, QLocale::UnitedKingdom)};

} // namespace

class CsvExporterTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void wholeFile()
    {
        QCOMPARE(exported(thousands(), allColumns(), german),
                 QStringLiteral("Name;Adresse;Datum;Rechnungsnummer;Netto;USt.;Brutto;Währung;Status\n"
                                "\"Erika Muster\";\"Muster; Söhne\nUfergasse 5\n23552 Lübeck\";\"01.04.26\";"
                                "\"2026-007\";1.134,50;215,56;1.350,06;\"EUR\";\"Entwurf\"\n"));
        QCOMPARE(exported(thousands(), allColumns(), english),
                 QStringLiteral("Name;Address;Date;Invoice Number;Net;VAT;Gross;Currency;Status\n"
                                "\"Erika Muster\";\"Muster; Söhne\nUfergasse 5\n23552 Lübeck\";"
                                "\"01/04/2026\";\"2026-007\";1,134.50;215.56;1,350.06;\"EUR\";\"Draft\"\n"));
    }

    void chosenColumns()
    {
        const std::vector<Invoice> two = {thousands(), thousands()};
        QCOMPARE(CSVExporter::text({two.data(), &two[1]}, {Column::gross}, Profile(), german),
                 QByteArray("Brutto\n1.350,06\n1.350,06\n"));
        QCOMPARE(CSVExporter::text({}, {Column::status, Column::name}, Profile(), english),
                 QByteArray("Name;Status\n"));
    }

    void texts_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("plain");
        QTest::addColumn<QString>("guarded");
        const auto row = [](const char* title, const char* name, const char* field, const char* guarded) {
            QTest::newRow(title) << QString::fromUtf8(name) << QString::fromUtf8(field)
                                 << QString::fromUtf8(guarded);
        };
        row("quotes", "Das \"Haus\"", "\"Das \"\"Haus\"\"\"", "\"Das \"\"Haus\"\"\"");
        row("empty", "", "\"\"", "\"\"");
        row("formula", "=HYPERLINK(\"x\")", "\"=HYPERLINK(\"\"x\"\")\"", "\"'=HYPERLINK(\"\"x\"\")\"");
        row("minus", "-1+1", "\"-1+1\"", "\"'-1+1\"");
        row("plus", "+49 40", "\"+49 40\"", "\"'+49 40\"");
        row("at", "@SUM(1)", "\"@SUM(1)\"", "\"'@SUM(1)\"");
        row("tab", "\t=1", "\"\t=1\"", "\"'\t=1\"");
        row("return", "\r=1", "\"\r=1\"", "\"'\r=1\"");
        row("inside", "a=1", "\"a=1\"", "\"a=1\"");
    }

    void texts()
    {
        QFETCH(QString, name);
        QFETCH(QString, plain);
        QFETCH(QString, guarded);
        Invoice invoice = thousands();
        invoice.name = name;
        CSVExporter::Reader reader = english;
        QCOMPARE(exported(invoice, {Column::name}, reader), QStringLiteral("Name\n%1\n").arg(plain));
        reader.guardsFormulas = true;
        QCOMPARE(exported(invoice, {Column::name}, reader), QStringLiteral("Name\n%1\n").arg(guarded));
    }

    void amounts_data()
    {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<double>("price");
        QTest::addColumn<QString>("field");
        QTest::newRow("German") << QStringLiteral("de_DE") << 1234567.891 << QStringLiteral("1.234.567,89");
        QTest::newRow("Swiss") << QStringLiteral("de_CH") << 1234.5 << QStringLiteral("1234.50");
        QTest::newRow("French") << QStringLiteral("fr_FR") << 1234.5 << QStringLiteral("1234,50");
        QTest::newRow("Swedish minus") << QStringLiteral("sv_SE") << -1234.5 << QStringLiteral("-1234,50");
        QTest::newRow("no negative zero") << QStringLiteral("en_US") << -0.001 << QStringLiteral("0.00");
        QTest::newRow("no number") << QStringLiteral("en_US") << qInf() << QStringLiteral("0,00");
    }

    void amounts()
    {
        QFETCH(QString, locale);
        QFETCH(double, price);
        QFETCH(QString, field);
        Invoice invoice = thousands();
        invoice.discountAmount.reset();
        invoice.items.front().unitPrice = price;
        QCOMPARE(exported(invoice, {Column::net}, {QLocale(locale)}), QStringLiteral("Net\n%1\n").arg(field));
    }
};

const ledra::test::RegisterSuite<CsvExporterTest> registration("csv_exporter_test");

#include "csv_exporter_test.moc"
