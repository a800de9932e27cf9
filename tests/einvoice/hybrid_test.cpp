#include "einvoice/pdf_info.h"
#include "einvoice/xmp_packet.h"
#include "einvoice/zugferd_generator.h"
#include "platform/pdf_file.h"
#include "platform/version.h"
#include "support/pdf_of_objects.h"
#include "support/pdf_text.h"
#include "support/test_suite.h"

#include <QXmlStreamReader>

using namespace ledra;
using test::pdfOf;
using ExportError = ZUGFeRDGenerator::ExportError;

namespace {

// Looks like the end of its stream and like the document's catalog.
const QByteArray sampleXml =
    "<?xml version=\"1.0\"?>\r\n<a>\xc3\xa4\nendstream\nendobj\n1 0 obj\n<< /Root 9 0 R >>\n</a>";

/// A document of one sheet with further entries of its catalog, and annotations.
QByteArray onePage(const QByteArray& catalogEntries = {}, const QByteArray& annotations = {})
{
    return pdfOf({"<< /Type /Catalog /Pages 2 0 R " + catalogEntries + ">>",
                  "<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
                  "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 595 842] /Annots [" + annotations + "] >>",
                  "<< /Type /Annot /Subtype /Text /F 98 >>"});
}

QByteArray captured(const char* pattern, const QByteArray& text)
{
    const QRegularExpression expression(QString::fromLatin1(pattern));
    return expression.match(QString::fromLatin1(text)).captured(1).toLatin1();
}

/// The objects of the last update, each with all that follows it, as its cross-reference section finds them.
std::map<qlonglong, QByteArray> updatedObjects(const QByteArray& pdf)
{
    const qsizetype section = captured("startxref\\n(\\d+)\\n%%EOF\\n$", pdf).toLongLong();
    QList<QByteArray> lines = pdf.mid(section, pdf.lastIndexOf("trailer\n") - section).split('\n');
    std::map<qlonglong, QByteArray> objects;
    if (lines.takeFirst() != "xref")
        return objects;
    qlonglong next = 0;
    for (const QByteArray& line : lines) {
        const QByteArray object = pdf.mid(line.first(std::min<qsizetype>(line.size(), 10)).toLongLong());
        const QByteArray header = QByteArray::number(next) + " 0 obj\n";
        if (line.size() != 19 || !line.endsWith(" 00000 n\r")) // "\n" is the twentieth
            next = line.split(' ').front().toLongLong();
        else if (object.startsWith(header))
            objects[next++] = object.mid(header.size());
    }
    return objects;
}

/// The data of a stream, cut by its length; nothing when that is not true.
std::optional<QByteArray> streamData(const QByteArray& object)
{
    const QByteArray rest = object.mid(object.indexOf("stream\r\n") + 8);
    const qsizetype length = captured("/Length (\\d+) >>\\nstream\\r\\n", object).toLongLong();
    const bool isTrue = rest.mid(length).startsWith("\r\nendstream\nendobj\n");
    return isTrue ? std::optional(rest.first(length)) : std::nullopt;
}

} // namespace

class HybridTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void updateIsAppended()
    {
        const QByteArray own = ZUGFeRDGenerator::withPrintableAnnotations(onePage()).value();
        const QByteArray catalogInside = pdfOf({"0", "0", "0", "0", "<< /Type /Catalog >>", "0"}, 5);
        for (const QByteArray& pdf : {own, own.chopped(1), catalogInside}) {
            const QByteArray hybrid = ZUGFeRDGenerator::withAttachedXml(pdf, sampleXml).value();
            QVERIFY(hybrid.startsWith(pdf));

            const QByteArray before = pdf.mid(pdf.lastIndexOf("trailer"));
            const QByteArray after = hybrid.mid(hybrid.lastIndexOf("trailer"));
            const qlonglong size = captured("/Size (\\d+)", before).toLongLong();
            QCOMPARE(captured("/Size (\\d+)", after).toLongLong(), size + 7);
            QCOMPARE(captured("/Root (\\d+ 0 R)", after), captured("/Root (\\d+ 0 R)", before));
            QCOMPARE(captured("/Prev (\\d+)", after), captured("startxref\\s(\\d+)", before));
            QCOMPARE(captured("/ID \\[<([0-9A-F]{32})> <\\1>\\] >>", after).size(), 32);

            const std::map<qlonglong, QByteArray> objects = updatedObjects(hybrid);
            QCOMPARE(objects.size(), std::size_t{8});
            QVERIFY(objects.contains(size) && objects.contains(size + 6));
            QVERIFY(objects.contains(captured("/Root (\\d+)", before).toLongLong()));
        }
    }

    void piecesAreWritten()
    {
        const QByteArray pdf = onePage("/S (a\\)>>) /V << /W << >> >> ");
        std::map<qlonglong, QByteArray> objects =
            updatedObjects(ZUGFeRDGenerator::withAttachedXml(pdf, sampleXml).value());
        QCOMPARE(streamData(objects[5]), sampleXml);
        QCOMPARE(streamData(objects[8]), xmpPacket());
        QCOMPARE(streamData(objects[9]).value_or(QByteArray()).mid(36, 4), QByteArray("acsp"));

        const QByteArray program = "Ledra " + QByteArray::fromStdString(std::string(shortVersion));
        const std::map<qlonglong, QByteArray> beginnings = {
            {1, "<< /Type /Catalog /Pages 2 0 R /S (a\\)>>) /V << /W << >> >>  /Names 7 0 R /AF [6 0 R] "
                "/Metadata 8 0 R /OutputIntents [10 0 R] >>\nendobj\nxref\n"},
            {5, "<< /Type /EmbeddedFile /Subtype /text#2Fxml /Length "},
            {6, "<< /Type /Filespec /F (factur-x.xml) /UF (factur-x.xml) /EF << /F 5 0 R >> "
                "/AFRelationship /Alternative >>\nendobj\n7"},
            {7, "<< /EmbeddedFiles << /Names [(factur-x.xml) 6 0 R] >> >>\nendobj\n8"},
            {8, "<< /Type /Metadata /Subtype /XML /Length "},
            {9, "<< /N 3 /Length "},
            {10, "<< /Type /OutputIntent /S /GTS_PDFA1 /OutputConditionIdentifier (sRGB) "
                 "/DestOutputProfile 9 0 R >>\nendobj\n11"},
            {11, "<< /Creator (" + program + ") /Producer (" + program + ") >>\nendobj\n1 "},
        };
        for (const auto& [number, beginning] : beginnings)
            QCOMPARE(objects[number].left(beginning.size()), beginning);
    }

    void annotationsArePrintable()
    {
        // The flags before and after; Locked (128) is one of those that stay.
        const std::vector<std::pair<QByteArray, QByteArray>> changes = {
            {"", "4"},      {"/F (4)", "4"}, {"/F 4", "4"},     {"/F 1", "4"},      {"/F 2", "4"},
            {"/F 32", "4"}, {"/F 256", "4"}, {"/F 130", "132"}, {"/F 1023", "732"},
        };
        QByteArray annotations = "7 null 4 0 R "; // the fourth object has Hidden, NoView and ReadOnly
        for (const auto& [before, after] : changes)
            annotations += "<< /Mark (from " + before.toHex() + ") " + before + " >> ";
        const QByteArray pdf = ZUGFeRDGenerator::withPrintableAnnotations(onePage({}, annotations)).value();
        for (const auto& [before, after] : changes) // the library sorts keys
            QVERIFY2(pdf.contains("<< /F " + after + " /Mark (from " + before.toHex() + ") >>"),
                     before.constData());
        QVERIFY(pdf.contains("<< /F 68 /Subtype /Text "));
    }

    void whatIsNoPdfIsAnError()
    {
        for (const QByteArray& pdf : {QByteArray(), QByteArray("startxref /Root trailer << /Size 3 >>"),
                                      onePage().first(60), onePage().replace("startxref", "startyref"),
                                      onePage().replace("/Root", "/Boot"), pdfOf({"<< /Type /Catalog >>"})}) {
            const auto hybrid = ZUGFeRDGenerator::createHybrid(pdf, sampleXml);
            QVERIFY2(!hybrid && hybrid.error().kind == ExportError::Kind::invalidPDF, pdf.constData());
            QCOMPARE(hybrid.error().text(), QStringLiteral("The PDF could not be processed."));
        }
        const ExportError combineFailed{ExportError::Kind::combineFailed, QStringLiteral("disk full")};
        QCOMPARE(combineFailed.text(), QStringLiteral("Failed to create ZUGFeRD PDF: disk full"));
    }

    void infoIsRead_data()
    {
        QTest::addColumn<QByteArray>("pdf");
        QTest::addColumn<QByteArray>("body"); ///< null: there is nothing to be read
        const auto row = [&](const char* name, const QByteArray& objects, const char* body,
                             const QByteArray& trailer = "<< /Size 5 /Root 1 0 R >>") {
            // Its cross-reference section cannot be found.
            QTest::newRow(name) << objects + "\ntrailer\n" + trailer + "\nstartxref\n77\n"
                                << QByteArray(body);
        };
        const QByteArray good = "1 0 obj\n<< /A 1 >>\nendobj\n";
        row("nested dictionaries", "1 0 obj\n<</A << /B << >> >> /D [<< >>]>>",
            "/A << /B << >> >> /D [<< >>]");
        row("brackets in strings", "1 0 obj\n<</A (>> (<<) \\) >>) /B (\\\\)>>",
            "/A (>> (<<) \\) >>) /B (\\\\)");
        row("hexadecimal string", "1 0 obj\n<</Lang <6465>>>", "/Lang <6465>");
        row("number that ends alike", good + "21 0 obj\n<< /A 2 >>\nendobj", " /A 1 ");
        row("such a number before", "21 0 obj\n<< /A 2 >>\nendobj\n" + good, " /A 1 ");
        row("changed object", "1 0 obj\n<< /A 3 >>\nendobj\n" + good, " /A 1 ");
        row("no catalog", "2 0 obj\n<< /A 1 >>\nendobj", nullptr);
        row("catalog that does not end", "1 0 obj\n<< /A (>>", nullptr);
        row("no root", good, nullptr, "<< /Size 5 >>");
        row("no size", good, nullptr, "<< /Root 1 0 R >>");
        row("no trailer", good, nullptr, "");
        row("root is too large", good, nullptr, "<< /Size 5 /Root 99999999999999999999 0 R >>");
        QTest::newRow("no place") << onePage().replace("startxref\n", "startxref\nno") << QByteArray();
        QTest::newRow("no end") << onePage().replace("startxref", "") << QByteArray();
        QTest::newRow("decoy in a stream")
            << pdfOf({"<< /A 1 >>", "<< /Length 22 >>\nstream\n1 0 obj\n<< /A (no) >>\nendstream"})
            << QByteArray(" /A 1 ");
    }

    void infoIsRead()
    {
        QFETCH(QByteArray, pdf);
        QFETCH(QByteArray, body);
        std::optional<PDFInfo> expected;
        if (!body.isNull())
            expected = PDFInfo{1, captured("/Size (\\d+)", pdf).toLongLong(),
                               captured("startxref\\n(\\d+)", pdf).toLongLong(), body};
        QVERIFY(readPdfInfo(pdf) == expected);
    }

    void metadataNamesTheForms()
    {
        const QByteArray packet = xmpPacket();
        QVERIFY(packet.startsWith("<?xpacket begin=\"\xef\xbb\xbf\" id=\"W5M0MpCehiHzreSzNTczkc9d\"?>\n"));
        QVERIFY(packet.endsWith("<?xpacket end=\"w\"?>"));
        QXmlStreamReader reader(packet);
        while (!reader.atEnd())
            reader.readNext();
        QVERIFY2(!reader.hasError(), qPrintable(reader.errorString()));
        const QByteArray once =
            " xmlns:pdfaid=\"http://www.aiim.org/pdfa/ns/id/\"|"
            " xmlns:pdfaSchema=\"http://www.aiim.org/pdfa/ns/schema#\"|"
            " xmlns:pdfaExtension=\"http://www.aiim.org/pdfa/ns/extension/\"|"
            " xmlns:pdfaProperty=\"http://www.aiim.org/pdfa/ns/property#\"|"
            " xmlns:fx=\"urn:factur-x:pdfa:CrossIndustryDocument:invoice:1p0#\"|"
            "<pdfaSchema:namespaceURI>urn:factur-x:pdfa:CrossIndustryDocument:invoice:1p0#</|"
            "<pdfaSchema:prefix>fx</|<pdfaid:part>3</|<pdfaid:conformance>B</|<fx:DocumentType>INVOICE</|"
            "<fx:DocumentFileName>factur-x.xml</|<fx:Version>1.0</|<fx:ConformanceLevel>XRECHNUNG</|"
            "<pdfaProperty:name>DocumentType</|<pdfaProperty:name>DocumentFileName</|"
            "<pdfaProperty:name>Version</|<pdfaProperty:name>ConformanceLevel</";
        for (const QByteArray& text : once.split('|'))
            QVERIFY2(packet.count(text) == 1, text.constData());
        for (const char* each : {"name>", "valueType>Text<", "category>external<"})
            QCOMPARE(packet.count(QByteArray("<pdfaProperty:") + each), 4);
    }

    void foreignDocumentsAreTakenOver()
    {
        const QByteArray file = "<< /Type /Filespec /F (old.xml) /EF << /F 4 0 R >> >>";
        QList<QByteArray> documents = {
            ZUGFeRDGenerator::createHybrid(onePage(), "<old/>").value(),
            onePage("/AF [" + file + "] /Names << /EmbeddedFiles << /Names [(old.xml) " + file +
                    "] >> >> /Metadata 4 0 R /OutputIntents [<< /S /GTS_PDFX >>] ")};
        for (const char* option : {"--object-streams=generate", "--linearize", "--encrypt  owner 256 --"})
            documents += test::outputOfPdfTool(onePage(), "qpdf", option, {QStringLiteral("-")});
        for (const QByteArray& pdf : documents) {
            const auto hybrid = ZUGFeRDGenerator::createHybrid(pdf, sampleXml);
            QVERIFY2(hybrid.has_value(), pdf.constData());
            const QByteArray verdict = test::outputOfPdfTool(*hybrid, "qpdf", "--check");
            QVERIFY2(verdict.contains("not encrypted") && verdict.contains("No syntax or"),
                     verdict.constData());
            const QByteArray catalog = readPdfInfo(*hybrid).value().catalogBody;
            for (const char* key : {"/Names ", "/AF ", "/Metadata ", "/OutputIntents "})
                QVERIFY2(catalog.count(key) == 1, catalog.constData());
            const PdfFile opened = std::move(PdfFile::open(*hybrid).value());
            QCOMPARE(opened.attachmentNames(), QStringList{hybridAttachmentName.toString()});
            QCOMPARE(opened.attachment(hybridAttachmentName.toString(), 1000).value_or(QByteArray()),
                     sampleXml);
            QCOMPARE(opened.metadata(100'000), xmpPacket());
        }
    }
};

const ledra::test::RegisterSuite<HybridTest> registration("hybrid_test");

#include "hybrid_test.moc"
