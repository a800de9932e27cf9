#include "einvoice/received_file.h"
#include "einvoice/zugferd_generator.h"
#include "support/pdf_of_objects.h"
#include "support/program_run.h"
#include "support/test_suite.h"

#include <limits>

using namespace ledra;
using test::pdfOf;

namespace {

constexpr qsizetype megabyte = qsizetype{1024} * 1024;

/// Data as zlib packs it, without the length that Qt puts before it.
QByteArray packed(const QByteArray& data)
{
    return qCompress(data, 9).mid(4);
}

QByteArray stream(const QByteArray& entries, const QByteArray& data)
{
    return "<< " + entries + " /Length " + QByteArray::number(data.size()) + " >>\nstream\n" + data +
           "\nendstream";
}

/// A document of one page with further entries of its catalog and further objects from number 4 on.
QByteArray document(const QByteArray& catalogEntries, const QList<QByteArray>& objects = {})
{
    const QByteArray catalog = "<< /Type /Catalog /Pages 2 0 R " + catalogEntries + " >>";
    return pdfOf(QList<QByteArray>{catalog, "<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
                                   "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 595 842] >>"} +
                 objects);
}

/// One with a file attached under the name of an e-invoice, in object 4.
QByteArray attached(const QByteArray& file)
{
    return document("/Names << /EmbeddedFiles << /Names [(factur-x.xml) << /Type /Filespec /F (factur-x.xml) "
                    "/EF << /F 4 0 R >> >>] >> >>",
                    {file});
}

/// Pages of which each list names the next one many times over.
QByteArray branchingPages(int levels)
{
    QList<QByteArray> objects = {"<< /Type /Catalog /Pages 2 0 R >>"};
    for (int level = 0; level < levels; ++level) {
        const QByteArray next = QByteArray::number(level + 3) + " 0 R ";
        objects += "<< /Type /Pages /Count 1 /Kids [" + next.repeated(16) + "] >>";
    }
    objects += "<< /Type /Page /MediaBox [0 0 595 842] >>";
    return pdfOf(objects);
}

QByteArray readable()
{
    return attached(stream("/Type /EmbeddedFile", "<rsm:CrossIndustryInvoice xmlns:rsm=\"urn:a\"/>"));
}

/// A document whose cross-references take a few hundred kilobytes and unpack to more than half a gigabyte.
QByteArray crossReferenceBomb()
{
    const QByteArray pdf = readable();
    const QByteArray zeros = packed(QByteArray(513 * megabyte, '\0'));
    return pdf + "9 0 obj\n" +
           stream("/Type /XRef /Root 1 0 R /Size 9 /W [1 2 1] /Filter /FlateDecode", zeros) +
           "\nendobj\nstartxref\n" + QByteArray::number(pdf.size()) + "\n%%EOF\n";
}

/// What /proc tells about this process's memory, in bytes.
qint64 memory(const QByteArray& name)
{
    const QByteArray status = test::contentOf(QStringLiteral("/proc/self/status"));
    const QByteArray value = status.mid(status.indexOf(name + ':') + name.size() + 1).trimmed();
    return 1024 * value.left(value.indexOf(' ')).toLongLong();
}

/// The most memory that some work needed on top of what was there.
template <class Work>
qint64 memoryOf(const Work& work)
{
    if (!test::writeFile(QStringLiteral("/proc/self/clear_refs"), "5")) // forgets the peak so far
        return std::numeric_limits<qint64>::max();
    const qint64 before = memory("VmRSS");
    work();
    return memory("VmHWM") - before;
}

} // namespace

/// PDFs that are made to hurt: each is opened or refused, soon and without much memory.
class HostilePdfTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void received_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<bool>("isRead"); ///< whether the e-invoice inside is found
        const QByteArray bomb = packed(QByteArray(200 * megabyte, ' '));
        const QByteArray chain = "/Filter [/FlateDecode /FlateDecode]";
        QTest::newRow("as it should be") << readable() << true;
        QTest::newRow("attachment of 200 MB")
            << attached(stream("/Type /EmbeddedFile /Filter /FlateDecode", bomb)) << false;
        QTest::newRow("attachment packed twice") << attached(stream(chain, packed(bomb))) << false;
        QTest::newRow("claim of a gigabyte")
            << attached("<< /Params << /Size 1073741824 >> /Length 1073741824 >>\nstream\nsmall\nendstream")
            << false;
        QTest::newRow("attachment that is its own filter")
            << attached("<< /Filter 4 0 R /Length 4 0 R >>\nstream\nsmall\nendstream") << false;
        QTest::newRow("cross-references of half a gigabyte") << crossReferenceBomb() << false;
        QTest::newRow("names in a circle")
            << document("/Names << /EmbeddedFiles 4 0 R >>",
                        {"<< /Kids [4 0 R 5 0 R] >>", "<< /Kids [4 0 R 5 0 R] >>"})
            << false;
        QTest::newRow("names that branch without end")
            << document("/Names << /EmbeddedFiles 4 0 R >>",
                        QList<QByteArray>(3000, "<< /Kids [<< /Kids [4 0 R 4 0 R] >> 4 0 R 5 0 R] >>"))
            << false;
        QTest::newRow("pages in a circle")
            << pdfOf({"<< /Type /Catalog /Pages 2 0 R >>", "<< /Type /Pages /Count 1 /Kids [2 0 R] >>"})
            << false;
        QTest::newRow("pages that are many times there") << branchingPages(30) << false;
        QTest::newRow("catalog that is no dictionary") << pdfOf({"[1 0 R]"}) << false;
        QTest::newRow("cross-references elsewhere")
            << readable().replace("startxref\n", "startxref\n9") << true; // they are put together again
        QTest::newRow("cross-references that lie") << readable().replace("0000000009", "0000000300") << true;
        QTest::newRow("half of it") << readable().first(readable().size() / 2) << false;
        const QByteArray chained = "startxref\n" + QByteArray::number(readable().lastIndexOf("xref\n0 "));
        QTest::newRow("updates in a circle")
            << readable().replace("/Size", "/Prev " + chained.mid(10) + " /Size") << true;
    }

    void received()
    {
        QFETCH(QByteArray, file);
        QFETCH(bool, isRead);
        bool wasRead = !isRead;
        const qint64 used = memoryOf([&] { wasRead = openReceivedFile(file).has_value(); });
        QCOMPARE(wasRead, isRead);
        QVERIFY2(used < 300 * megabyte, qPrintable(QString::number(used))); // the largest attachment, growing
        // What can be opened can be built upon, and what cannot is named as such.
        const auto hybrid =
            ZUGFeRDGenerator::createHybrid(file.first(std::min(file.size(), megabyte)), "<a/>");
        QVERIFY(hybrid || !hybrid.error().text().isEmpty());
    }
};

const ledra::test::RegisterSuite<HostilePdfTest> registration("hostile_pdf_test");

#include "hostile_pdf_test.moc"
