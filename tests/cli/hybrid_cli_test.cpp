#include "platform/pdf_file.h"
#include "store/invoice_json.h"
#include "support/pdf_text.h"
#include "support/program_run.h"
#include "support/test_suite.h"

#include <QJsonArray>
#include <QJsonObject>

using namespace ledra;
using test::contentOf;
using test::outputOfPdfTool;
using test::ProgramRun;

namespace {

/// Looks at the objects of a PDF for what PDF/A-3b asks of them.
class ObjectCheck
{
public:
    explicit ObjectCheck(const QByteArray& pdf)
    {
        const QByteArray json =
            outputOfPdfTool(pdf, "qpdf", "--json=2 --json-stream-data=inline --decode-level=none");
        objects_ = QJsonDocument::fromJson(json).object()[u"qpdf"].toArray().at(1).toObject();
        const QJsonValue trailer = objects_[u"trailer"];
        expect(at(trailer, "/ID").toArray().size() == 2, "identifier");
        expect(at(trailer, "/Root /Metadata /Filter").isUndefined(), "packed metadata");
        expect(bytes(trailer, "/Root /Metadata data").startsWith("<?xpacket "), "metadata");
        const QJsonValue intents = at(trailer, "/Root /OutputIntents");
        const QByteArray profile = bytes(intents, "0 /DestOutputProfile data");
        expect(intents.toArray().size() == 1 && at(intents, "0 /S").toString() == u"/GTS_PDFA1",
               "output intent");
        expect(at(intents, "0 /DestOutputProfile /N") == 3 && profile.mid(36, 4) == "acsp", "colour profile");
        for (const QJsonValue& object : std::as_const(objects_))
            look(object);
        expect(annotations_ > 0, "annotations");
    }

    QStringList faults;

private:
    void expect(bool isTrue, const char* what)
    {
        if (!isTrue)
            faults += QString::fromLatin1(what);
    }

    /// What lies behind keys and indexes, through references and streams.
    QJsonValue at(QJsonValue value, const char* path) const
    {
        for (const QString& step : QString::fromLatin1(path).split(u' ')) {
            if (value.isString())
                value = objects_[QStringLiteral("obj:") + value.toString()];
            for (const QStringView wrapped : {u"value", u"stream"}) {
                if (value.toObject().contains(wrapped))
                    value = value[wrapped];
            }
            const bool isEntry = step.startsWith(u'/') && value.toObject().contains(u"dict");
            value = value.isArray() ? value[step.toInt()] : (isEntry ? value[u"dict"] : value)[step];
        }
        return value;
    }

    QByteArray bytes(const QJsonValue& value, const char* path) const
    {
        return QByteArray::fromBase64(at(value, path).toString().toLatin1());
    }

    /// Looks at everything inside a value.
    void look(const QJsonValue& value)
    {
        static const QRegularExpression forbidden(
            QStringLiteral("^(/(JS|AA|Encrypt|TR|OPI|XFA) |/Interpolate true|/Filter /LZW|/S "
                           "/(JavaScript|Launch|ImportData)$)"));
        for (const QJsonValue& element : value.toArray())
            look(element);
        const QJsonObject object = value.toObject();
        for (auto entry = object.begin(); entry != object.end(); ++entry) {
            const QString text = entry.key() + u' ' + entry.value().toVariant().toString();
            expect(!forbidden.match(text).hasMatch(), qPrintable(text));
            if (entry.key() != u"data") // of streams
                look(entry.value());
        }
        if (object.contains(u"/Rect")) {
            // Print is on, Invisible, Hidden, NoView and ToggleNoView are off.
            expect(++annotations_ > 0 && (object[u"/F"].toInt() & 0x127) == 4, "annotation flags");
            expect(at(object, "/AP /N /Subtype").toString() == u"/Form", "appearance");
        }
        // "u:" is before texts, "b:" before bytes in hexadecimal.
        const QString text = value.toString();
        expect((text.startsWith(u"b:") ? text.size() / 2 : text.size() - 2) <= 32'767, "long string");
    }

    QJsonObject objects_;
    int annotations_ = 0;
};

/// An invoice file whose record is longer than a string in a PDF/A may be.
QByteArray longInvoice()
{
    QByteArray json = contentOf(test::example(QStringLiteral("invoice-design-de.json")));
    const qsizetype first = json.indexOf('{', json.indexOf("\"items\""));
    const QByteArray item = json.mid(first, json.indexOf('{', first + 1) - first);
    return json.insert(first, item.repeated(400));
}

} // namespace

class HybridCliTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        files_ = {folder_.filePath(QStringLiteral("long.json"))};
        QVERIFY(test::writeFile(files_.front(), longInvoice()));
        const QDir examples(test::example(QString()));
        for (const QString& name : examples.entryList({QStringLiteral("*.json")})) {
            if (name != u"invoice-consulting-us.json") // lacks what an e-invoice needs
                files_ += examples.filePath(name);
        }
        QVERIFY(files_.size() > 5);
        const auto start = [&](const char* format) {
            const QString words =
                QStringLiteral("export --format %1 -o %2").arg(QLatin1String(format), path(format));
            return test::startProgram(words.split(u' ') + files_);
        };
        const auto plain = start("pdf"), hybrid = start("zugferd"); // side by side
        for (QProcess* process : {plain.get(), hybrid.get()}) {
            const ProgramRun run = test::endOf(*process);
            QVERIFY2(run.exitCode == 0, qPrintable(run.errors.join(u'\n')));
            // Only the long one is announced.
            const QStringList announced = run.errors.filter(QStringLiteral("is no PDF/A"));
            QCOMPARE(announced.size(), process == hybrid.get() ? 1 : 0);
            QCOMPARE(announced.filter(files_.front()), announced);
        }
    }

    void hybrids_data()
    {
        QTest::addColumn<QString>("file");
        for (const QString& file : files_)
            QTest::newRow(qPrintable(QFileInfo(file).completeBaseName())) << file;
    }

    void hybrids()
    {
        QFETCH(QString, file);
        const QString name = u'/' + QFileInfo(file).completeBaseName() + QStringLiteral(".pdf");
        const QByteArray hybrid = contentOf(path("zugferd") + name);

        // Other programs find nothing wrong, the attachment, and the same pages.
        QVERIFY(
            outputOfPdfTool(hybrid, "qpdf", "--check").contains("No syntax or stream encoding errors found"));
        QVERIFY(outputOfPdfTool(hybrid, "qpdf", "--list-attachments").startsWith("factur-x.xml ->"));
        QCOMPARE(outputOfPdfTool(hybrid, "pdfdetach", "-list"),
                 QByteArray("1 embedded files\n1: factur-x.xml\n"));
        const QByteArray drawn = outputOfPdfTool(hybrid, "pdftoppm", "-r 40 -gray");
        QVERIFY(drawn.startsWith("P5"));
        QVERIFY(drawn == outputOfPdfTool(contentOf(path("pdf") + name), "pdftoppm", "-r 40 -gray"));
        const QStringList fonts = QString::fromUtf8(outputOfPdfTool(hybrid, QStringLiteral("pdffonts")))
                                      .split(u'\n', Qt::SkipEmptyParts)
                                      .mid(2);
        static const QRegularExpression embedded(QStringLiteral(" yes (yes|no ) (yes|no ) +\\d+ +0$"));
        QVERIFY2(!fonts.isEmpty() && fonts.filter(embedded) == fonts, qPrintable(fonts.join(u'\n')));

        const bool isLong = file == files_.front();
        QCOMPARE(ObjectCheck(hybrid).faults, QStringList(isLong ? 1 : 0, QStringLiteral("long string")));

        // The record inside is the file's.
        RandomIdSource ids;
        const auto decoded = [&](const QByteArray& json) {
            return decodeInvoice(json, NewRecordValues{Timestamp(), ids, QStringLiteral("DE")});
        };
        const auto inside = PdfFile::open(hybrid)->annotationContents(QStringLiteral("LedraInvoiceData"));
        const auto original = decoded(contentOf(file));
        const auto copy = decoded(inside.value_or(QString()).toUtf8());
        QVERIFY(original && copy && *original == *copy);
        QVERIFY(!isLong || copy->items.size() > 400);
    }

private:
    QString path(const char* name) const { return folder_.filePath(QString::fromLatin1(name)); }

    QTemporaryDir folder_;
    QStringList files_; ///< the long one and the examples
};

const ledra::test::RegisterSuite<HybridCliTest> registration("hybrid_cli_test");

#include "hybrid_cli_test.moc"
