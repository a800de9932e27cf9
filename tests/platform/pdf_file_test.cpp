#include "platform/pdf_file.h"
#include "support/pdf_of_objects.h"
#include "support/test_suite.h"

#include <QRegularExpression>
#include <QTest>

using namespace ledra;
using test::pdfOf;

namespace {

const QByteArray catalog = "<< /Type /Catalog /Pages 2 0 R >>";

/// A page tree of one sheet for each mark, with inherited attributes and boxes that must not last.
QByteArray sheets(const QByteArray& marks)
{
    QList<QByteArray> objects = {catalog, {}};
    QByteArray kids;
    for (const char mark : marks) {
        objects += QByteArray("<< /Type /Page /Parent 2 0 R /Mark (") + mark +
                   ") /MediaBox [0 0 594.96 841.92] /TrimBox [1 1 2 2] /UserUnit 2 >>";
        kids += QByteArray::number(objects.size()) + " 0 R ";
    }
    objects[1] = "<< /Type /Pages /Rotate 90 /CropBox [9 9 99 99] /Kids [" + kids + "] /Count " +
                 QByteArray::number(marks.size()) + " >>";
    return pdfOf(objects);
}

PdfFile joined(const std::vector<QByteArray>& pages, PrintedSheets printed = PrintedSheets::all)
{
    return std::move(PdfFile::join(pages, QSize(595, 842), printed).value());
}

QString marksIn(const QByteArray& pdf)
{
    static const QRegularExpression mark(QStringLiteral("/Mark \\((.)\\)"));
    QString marks;
    for (auto found = mark.globalMatch(QString::fromLatin1(pdf)); found.hasNext();)
        marks += found.next().captured(1);
    return marks;
}

/// Uses a document in every way; whether it could be opened.
bool isUsable(const QByteArray& content)
{
    auto pdf = PdfFile::open(content);
    if (!pdf)
        return false;
    for (int page = 0; page < pdf->pageCount(); ++page) [[maybe_unused]]
        const QSizeF size = pdf->pageSize(page);
    [[maybe_unused]] const auto found = pdf->annotationContents(QStringLiteral("Author"));
    [[maybe_unused]] const auto written = pdf->bytes();
    return pdf->pageCount() > 0;
}

} // namespace

class PdfFileTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void pagesAreJoinedInOrderOnExactPaper()
    {
        const std::vector<QByteArray> pages = {sheets("A"), sheets("BC"), sheets("D")};
        const QByteArray all = joined(pages).bytes().value();
        QCOMPARE(marksIn(all), QStringLiteral("ABCD"));
        QCOMPARE(marksIn(joined(pages, PrintedSheets::first).bytes().value()), QStringLiteral("ABD"));
        QCOMPARE(joined(pages).bytes().value(), all); // the same at each run

        const PdfFile pdf = std::move(PdfFile::open(all).value());
        QCOMPARE(pdf.pageCount(), 4);
        for (int page = 0; page < 4; ++page)
            QCOMPARE(pdf.pageSize(page), QSizeF(595, 842));
        for (const char* other : {"/CropBox", "/TrimBox", "/UserUnit", "/Rotate"})
            QVERIFY2(!all.contains(other), other);
    }

    void nothingToJoinIsAnError()
    {
        QVERIFY(!PdfFile::join({}, QSize(595, 842), PrintedSheets::all));
        QVERIFY(!PdfFile::join({sheets("A"), "damaged"}, QSize(595, 842), PrintedSheets::all));
        QVERIFY(!PdfFile::join({sheets("")}, QSize(595, 842), PrintedSheets::first));
    }

    void theClassicalFormIsWritten()
    {
        PdfFile pdf = joined({sheets("A")});
        pdf.setInformation(QStringLiteral("Draft"), QStringLiteral("Ledra"));
        pdf.setInformation(QStringLiteral("Invoice 7"), QStringLiteral("Ledra"));
        const QByteArray bytes = pdf.bytes().value();
        QVERIFY(bytes.startsWith("%PDF-1.7\n"));
        QVERIFY(bytes.contains("\nxref\n0 ") && bytes.contains("\ntrailer <<") && !bytes.contains("/ObjStm"));
        QVERIFY(bytes.contains("/Title (Invoice 7)") && bytes.contains("/Creator (Ledra)"));
        QVERIFY(!bytes.contains("Draft"));
    }

    void annotationsAreFoundAgain_data()
    {
        QTest::addColumn<QString>("contents");
        QTest::newRow("empty") << "";
        QTest::newRow("brackets and line breaks") << "{\"a\":\"(\\)\"}\r\n";
        QTest::newRow("umlauts and more") << "Müller & Söhne, 5 €, 😀, \u2212";
        QTest::newRow("long") << QStringLiteral("Ä(\n").repeated(300'000);
    }

    void annotationsAreFoundAgain()
    {
        QFETCH(QString, contents);
        const QString author = QStringLiteral("Prüfer");
        PdfFile pdf = joined({sheets("A"), sheets("B")});
        pdf.addHiddenAnnotation({QStringLiteral("Other"), QStringLiteral("other")});
        pdf.addHiddenAnnotation({author, contents});
        const QByteArray bytes = pdf.bytes().value();
        QCOMPARE(bytes.count("/F 130"), 2); // hidden and locked, not to be printed
        const PdfFile again = std::move(PdfFile::open(bytes).value());
        QVERIFY(again.annotationContents(author) == contents);
        QVERIFY(!again.annotationContents(QStringLiteral("Nobody")));
    }

    void damagedFilesAreErrors_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<bool>("usable");
        const auto tree = [](const char* pages, const char* page = "null") {
            return pdfOf({catalog, pages, page});
        };
        QTest::newRow("empty") << QByteArray() << false;
        QTest::newRow("words") << QByteArray("an invoice") << false;
        QTest::newRow("header") << QByteArray("%PDF-1.7\n") << false;
        QTest::newRow("no page tree") << pdfOf({"<< /Type /Catalog >>"}) << false;
        QTest::newRow("no pages") << sheets("") << false;
        QTest::newRow("page tree is a number") << tree("7") << false;
        QTest::newRow("page tree in a circle") << tree("<< /Type /Pages /Kids [2 0 R] /Count 1 >>") << false;
        QTest::newRow("page is a number") << tree("<< /Type /Pages /Kids [3 0 R] /Count 1 >>", "7") << true;
        QTest::newRow("odd page")
            << tree("<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
                    "<< /Type /Page /MediaBox [(a)] /Annots [7 << /T 7 >> << /T (Author) >>] >>")
            << true;
    }

    void damagedFilesAreErrors()
    {
        QFETCH(QByteArray, content);
        QTEST(isUsable(content), "usable");
    }

    void everyDamageIsSurvived()
    {
        PdfFile pdf = joined({sheets("AB")});
        pdf.addHiddenAnnotation({QStringLiteral("Author"), QStringLiteral("contents")});
        const QByteArray whole = pdf.bytes().value();
        QVERIFY(isUsable(whole));
        for (qsizetype position = 0; position < whole.size(); ++position) {
            const bool usable = isUsable(whole.first(position));
            QVERIFY2(!usable || position > whole.indexOf("/Type /Page"),
                     QByteArray::number(position).constData());
            for (const char slip : {'0', '>', ' '}) {
                QByteArray damaged = whole;
                damaged[position] = slip;
                const auto opened = PdfFile::open(damaged);
                QCOMPARE(isUsable(damaged), opened.has_value());
            }
        }
    }
};

const ledra::test::RegisterSuite<PdfFileTest> registration("pdf_file_test");

#include "pdf_file_test.moc"
