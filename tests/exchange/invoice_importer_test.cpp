#include "einvoice/xml_generator.h"
#include "einvoice/zugferd_generator.h"
#include "exchange/invoice_importer.h"
#include "model/displayed_number.h"
#include "platform/pdf_file.h"
#include "store/invoice_json.h"
#include "support/sample_invoice.h"
#include "support/store_home.h"
#include "support/test_suite.h"

using namespace ledra;

namespace {

const QString foreignPdf = QStringLiteral("Only PDFs exported by Ledra can be reimported.");
const QString noEInvoice = QStringLiteral("This file does not appear to be a valid e-invoice.");

Invoice sample()
{
    Invoice invoice = test::sampleInvoice();
    invoice.status = Status::sent;
    invoice.reference = QStringLiteral("Keine Bestellnummer");
    invoice.items = {test::sampleItem(QStringLiteral("Design"), 2, Unit::hour, 80, 19)};
    return invoice;
}

QByteArray xmlOf(const Invoice& invoice)
{
    return XMLGenerator::generate(invoice, Profile(), [](const QUuid&) { return std::nullopt; }).value();
}

/// A page without anything on it, as another program would make it.
QByteArray plainPdf()
{
    const QByteArray page =
        "%PDF-1.4\n1 0 obj\n<< /Type /Catalog /Pages 2 0 R >>\nendobj\n2 0 obj\n<< /Type /Pages "
        "/Kids [3 0 R] /Count 1 >>\nendobj\n3 0 obj\n<< /Type /Page /Parent 2 0 R /MediaBox [0 0 "
        "595 842] >>\nendobj\ntrailer\n<< /Root 1 0 R /Size 4 >>\nstartxref\n0\n%%EOF\n";
    return page;
}

QByteArray withAnnotation(const QString& author, const QString& contents)
{
    PdfFile pdf = std::move(PdfFile::open(plainPdf()).value());
    pdf.addHiddenAnnotation({author, contents});
    return pdf.bytes().value();
}

QByteArray exported(const Invoice& invoice)
{
    return withAnnotation(QStringLiteral("LedraInvoiceData"),
                          QString::fromUtf8(encodeInvoiceForEmbedding(invoice)));
}

/// The stores in a home of their own, with a file to import.
struct Desk
{
    explicit Desk(const QByteArray& content, const QString& name = QStringLiteral("in.pdf"))
        : path(home.path(name))
    {
        isReady = home.put(path, content);
    }

    test::StoreHome home;
    QString path;
    bool isReady = false;
    ProfileManager profiles{home.context};
    InvoiceManager invoices{home.context, profiles};
    InvoiceImporter importer{invoices};
};

} // namespace

class InvoiceImporterTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void exportedPdfComesBackUnchanged();
    void refusals_data();
    void refusals();
    void eInvoiceBecomesADraft_data();
    void eInvoiceBecomesADraft();
    void numbersStayAsTheyAreWritten_data();
    void numbersStayAsTheyAreWritten();
    void otherTotalsAreTold();
};

void InvoiceImporterTest::exportedPdfComesBackUnchanged()
{
    const Invoice invoice = sample();
    Desk desk(exported(invoice));
    const auto first = desk.importer.importPDF(desk.path);
    QVERIFY(first);
    QVERIFY(**first->record == invoice);
    const auto second = desk.importer.importPDF(desk.path);
    QVERIFY(!second);
    QCOMPARE(second.error().message,
             QStringLiteral(
                 "There is already another version of this invoice. If you still want to import it, you must "
                 "first delete the existing one."));
    QVERIFY(desk.invoices.remove(invoice.id));
    const auto third = desk.importer.importFile(desk.path);
    QVERIFY(third && **third->record == invoice);
    QVERIFY(desk.home.console.failures.isEmpty());
}

void InvoiceImporterTest::refusals_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("message");
    const QString pdf = QStringLiteral("in.pdf");
    const QString xml = QStringLiteral("in.xml");
    const QString unopened = QStringLiteral("Could not open the selected PDF.");
    const QString record = QString::fromUtf8(encodeInvoiceForEmbedding(sample()));
    QTest::newRow("of another program") << pdf << plainPdf() << foreignPdf;
    QTest::newRow("other author") << pdf << withAnnotation(QStringLiteral("Somebody"), record) << foreignPdf;
    QTest::newRow("damaged record") << pdf
                                    << withAnnotation(QStringLiteral("LedraInvoiceData"), record.left(300))
                                    << foreignPdf;
    QTest::newRow("no PDF behind the header") << pdf << QByteArray("%PDF-1.7 and nothing") << unopened;
    QTest::newRow("cut off") << pdf << exported(sample()).left(400) << unopened;
    QTest::newRow("PDF that is not there") << QStringLiteral("none.pdf") << QByteArray() << unopened;
    QTest::newRow("text named a PDF") << QStringLiteral("in.PDF") << QByteArray("Dear all,") << unopened;
    QTest::newRow("empty PDF") << QStringLiteral("empty.Pdf") << QByteArray() << unopened;
    QTest::newRow("text") << QStringLiteral("in.txt") << QByteArray("Dear all,") << noEInvoice;
    QTest::newRow("XML that is not there") << QStringLiteral("none.xml") << QByteArray()
                                           << QStringLiteral("Could not read the selected XML file.");
    QTest::newRow("not well-formed") << xml << xmlOf(sample()).left(900) << noEInvoice;
    QTest::newRow("another syntax") << xml << QByteArray("<Invoice><ID>1</ID></Invoice>") << noEInvoice;
    QTest::newRow("without a number")
        << xml << xmlOf(sample()).replace("<ram:ID>2026-007</ram:ID>", "<ram:ID> </ram:ID>") << noEInvoice;
    QTest::newRow("more lines than a record can have")
        << xml
        << xmlOf(sample()).replace("<ram:ApplicableHeaderTradeAgreement>",
                                   QByteArray("<ram:IncludedSupplyChainTradeLineItem/>").repeated(10'000) +
                                       "<ram:ApplicableHeaderTradeAgreement>")
        << QString();
    // A hybrid in which another name stands for the e-invoice is none.
    QByteArray hybrid = ZUGFeRDGenerator::createHybrid(plainPdf(), xmlOf(sample())).value();
    QTest::newRow("other attachment") << pdf << hybrid.replace("factur-x.xml", "bill-of.json") << foreignPdf;
}

void InvoiceImporterTest::refusals()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(QString, message);
    Desk desk(content, name.startsWith(u"none") ? QStringLiteral("unused") : name);
    const QString before = test::StoreHome::names(desk.home.data(QStringLiteral("1_Default/Invoices")));
    const auto imported = desk.importer.importFile(desk.home.path(name));
    QVERIFY(!imported);
    QVERIFY2(message.isEmpty() ? !imported.error().message.isEmpty() : imported.error().message == message,
             qPrintable(imported.error().message));
    QCOMPARE(test::StoreHome::names(desk.home.data(QStringLiteral("1_Default/Invoices"))), before);
    QVERIFY(desk.invoices.invoices().empty());
}

void InvoiceImporterTest::eInvoiceBecomesADraft_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    const QByteArray xml = xmlOf(sample());
    const QByteArray hybrid = ZUGFeRDGenerator::createHybrid(plainPdf(), xml).value();
    QTest::newRow("XML") << QStringLiteral("in.xml") << xml;
    QTest::newRow("hybrid of another program") << QStringLiteral("in.pdf") << hybrid;
    // The names have the same length, so that the file stays whole.
    QTest::newRow("older name") << QStringLiteral("in.pdf")
                                << QByteArray(hybrid).replace("(factur-x.xml)", "(xrechnung.xml)");
    QTest::newRow("XML named a PDF") << QStringLiteral("in.pdf") << xml;
    QTest::newRow("by its content") << QStringLiteral("in.bin") << hybrid;
}

void InvoiceImporterTest::eInvoiceBecomesADraft()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    Desk desk(content, name);
    const Profile profile = **desk.profiles.activeProfile();
    const std::int64_t next = desk.invoices.nextNumber(InvoiceType::invoice);
    const auto imported = desk.importer.importFile(desk.path);
    QVERIFY2(imported, imported ? "" : qPrintable(imported.error().message));
    const Invoice draft = **imported->record;
    QCOMPARE(draft.status, Status::draft);
    QVERIFY(draft.id != sample().id);
    QCOMPARE(displayedNumber(draft, profile), QStringLiteral("2026-007"));
    QCOMPARE(draft.senderName, QStringLiteral("Paula Kern"));
    QCOMPARE(draft.total(), sample().total());
    QCOMPARE(draft.dueDay(), sample().dueDay());
    QVERIFY(!draft.reference);
    QVERIFY(imported->differences.empty());
    QCOMPARE(desk.invoices.nextNumber(InvoiceType::invoice), next);
    QVERIFY(**desk.profiles.activeProfile() == profile);
    QVERIFY(desk.invoices.fileExists(draft.id));
}

void InvoiceImporterTest::numbersStayAsTheyAreWritten_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<bool>("isCreditNote");
    QTest::newRow("plain") << QStringLiteral("R 2026/17-ä") << false;
    QTest::newRow("looks like a format") << QStringLiteral("{YYYY}-{NNN}") << false;
    QTest::newRow("credit note") << QStringLiteral("GS-9") << true;
}

void InvoiceImporterTest::numbersStayAsTheyAreWritten()
{
    QFETCH(QString, number);
    QFETCH(bool, isCreditNote);
    QByteArray xml = xmlOf(sample()).replace("<ram:ID>2026-007<", "<ram:ID>" + number.toUtf8() + '<');
    if (isCreditNote)
        xml.replace(">380<", ">381<");
    Desk desk(xml, QStringLiteral("in.xml"));
    const auto imported = desk.importer.importEInvoice(desk.path);
    QVERIFY(imported);
    QCOMPARE(displayedNumber(**imported->record, **desk.profiles.activeProfile()), number);
    QCOMPARE((*imported->record)->type == InvoiceType::cancellation, isCreditNote);
}

void InvoiceImporterTest::otherTotalsAreTold()
{
    Desk desk(xmlOf(sample()).replace("<ram:DuePayableAmount>190.40", "<ram:DuePayableAmount>90.40"),
              QStringLiteral("in.xml"));
    const auto imported = desk.importer.importEInvoice(desk.path);
    QVERIFY(imported);
    QCOMPARE(imported->differences.size(), std::size_t{1});
    QCOMPARE(imported->differences.front().stated, 90.40);
    QCOMPARE((*imported->record)->total(), 190.40);
}

static const test::RegisterSuite<InvoiceImporterTest> registered("invoice_importer_test");

#include "invoice_importer_test.moc"
