#include "platform/pdf_file.h"
#include "store/invoice_json.h"
#include "support/pdf_text.h"
#include "support/program_run.h"
#include "support/test_suite.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

using namespace ledra;
using test::contentOf;
using test::example;
using test::ProgramRun;
using test::writeFile;

namespace {

ProgramRun exported(const QStringList& arguments)
{
    return test::runProgram(QStringList{QStringLiteral("export")} + arguments);
}

Decoded<Invoice> decoded(const QByteArray& json)
{
    RandomIdSource ids;
    return decodeInvoice(json, NewRecordValues{Timestamp(), ids, QStringLiteral("DE")});
}

QStringList namesIn(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}

/// A good invoice file with one piece of its text replaced.
QByteArray altered(const char* before, const QByteArray& after)
{
    QByteArray json = contentOf(example(QStringLiteral("invoice-smallbusiness-de.json")));
    return json.contains(before) ? json.replace(before, after) : QByteArray();
}

/// A file that cannot be exported, and what its line must name beside the file.
struct BadFile
{
    const char* name;
    QByteArray content;
    const char* named;
};

} // namespace

class ExportCliTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void badFilesAreNamedAndTheOthersDone();
    void wrongUsage_data();
    void wrongUsage();
    void existingFilesAreKept();
    void documentsOfOneNameDoNotOverwriteEachOther();
    void folderThatCannotBeMade();
    void pdfIsComplete();
    void textIsInReadingOrder();
    void standardOutput();
    void languageIsTheDocuments_data();
    void languageIsTheDocuments();
    void html();

private:
    QString path(const QString& name) const { return folder_.filePath(name); }

    QTemporaryDir folder_;
    const QString good_ = example(QStringLiteral("invoice-smallbusiness-de.json"));
};

void ExportCliTest::badFilesAreNamedAndTheOthersDone()
{
    const std::vector<BadFile> badFiles = {
        {"empty.json", "", "JSON"},
        {"not-json.json", "%PDF-1.4", "JSON"},
        {"cut-off.json", altered("{", "{").left(600), "JSON"},
        {"list.json", "[]", "expected an object"},
        {"more-behind.json", altered("{", "{") + "{}", "JSON"},
        {"no-utf8.json", altered("Lump", "\xff\xfe"), "JSON"},
        {"wrong-type.json", altered("\"quantity\": 1.0", "\"quantity\": \"1\""), "items.0.quantity"},
        {"fraction.json", altered("\"daysToPay\": 14", "\"daysToPay\": 1.5"), "daysToPay"},
        {"unknown-value.json", altered("\"Draft\"", "\"Lost\""), "status"},
        {"bad-date.json", altered("\"date\": ", "\"date\": \"yesterday\", \"x\": "), "date"},
        {"no-recipient.json", altered("\"recipient\"", "\"recipient2\""), "recipient"},
        {"no-address.json", altered("\"address\"", "\"address2\""), "address"},
        {"huge-text.json", altered("\"note\": \"", "\"note\": \"" + QByteArray(50'000'000, 'x')), "note"},
    };
    const QString in = path(QStringLiteral("bad"));
    const QString out = path(QStringLiteral("bad-out"));
    QVERIFY(QDir().mkpath(in));
    QStringList files = {good_, in + QStringLiteral("/missing.json")};
    for (const BadFile& bad : badFiles) {
        files += in + u'/' + QString::fromLatin1(bad.name);
        QVERIFY2(writeFile(files.back(), bad.content), bad.name);
        QVERIFY2(!bad.content.isEmpty() || bad.name == std::string_view("empty.json"), bad.name);
    }
    files += example(QStringLiteral("invoice-gross-de.json"));
    const ProgramRun run = exported(files + QStringList{QStringLiteral("-o"), out});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(namesIn(out), (QStringList{QStringLiteral("invoice-gross-de.pdf"),
                                        QStringLiteral("invoice-smallbusiness-de.pdf")}));
    QCOMPARE(run.output.count('\n'), 2); // the two files that were written
    QVERIFY(run.errors.filter(QStringLiteral("/missing.json: no such file")).size() == 1);
    for (const BadFile& bad : badFiles) {
        const QStringList lines = run.errors.filter(u'/' + QString::fromLatin1(bad.name));
        QVERIFY2(lines.size() == 1 && lines.front().contains(QString::fromLatin1(bad.named)),
                 qPrintable(QString::fromLatin1(bad.name) + u'\n' + lines.join(u'\n')));
        QVERIFY2(lines.front().size() < 400, bad.name);
    }
    QCOMPARE(static_cast<std::size_t>(run.errors.size()), badFiles.size() + 1);
}

void ExportCliTest::wrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("named");
    const auto row = [](const char* name, const QStringList& arguments, const char* named) {
        QTest::newRow(name) << arguments << QString::fromLatin1(named);
    };
    const QString command = QStringLiteral("export");
    row("no command", {}, "no command");
    row("unknown command", {QStringLiteral("exprot"), good_}, "exprot");
    row("no file", {command}, "which documents");
    row("unknown format", {command, good_, QStringLiteral("--format"), QStringLiteral("docx")}, "docx");
    row("unknown option", {command, good_, QStringLiteral("--loud")}, "loud");
    row("option without its value", {command, good_, QStringLiteral("-o")}, "o");
    row("two files to the standard output",
        {command, good_, good_, QStringLiteral("-o"), QStringLiteral("-")}, "one document");
}

void ExportCliTest::wrongUsage()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, named);
    const ProgramRun run = test::runProgram(arguments);
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.errors.size(), 1);
    QVERIFY2(run.errors.front().contains(named) && run.errors.front().contains(QStringLiteral("--help")),
             qPrintable(run.errors.front()));
    QVERIFY(run.output.isEmpty());
}

void ExportCliTest::existingFilesAreKept()
{
    const QString target = path(QStringLiteral("kept.html"));
    QVERIFY(writeFile(target, "mine"));
    const QStringList arguments = {good_, QStringLiteral("--format"), QStringLiteral("html"),
                                   QStringLiteral("-o"), target};
    const ProgramRun refused = exported(arguments);
    QCOMPARE(refused.exitCode, 1);
    QCOMPARE(refused.errors.size(), 1);
    QVERIFY(refused.errors.front().contains(target) &&
            refused.errors.front().contains(QStringLiteral("--force")));
    QCOMPARE(contentOf(target), QByteArray("mine"));

    const ProgramRun forced = exported(arguments + QStringList{QStringLiteral("--force")});
    QCOMPARE(forced.exitCode, 0);
    QVERIFY(contentOf(target).startsWith("<!DOCTYPE html>"));
}

void ExportCliTest::documentsOfOneNameDoNotOverwriteEachOther()
{
    const QString out = path(QStringLiteral("same-out"));
    const QString other = path(QStringLiteral("invoice-smallbusiness-de.json"));
    QVERIFY(writeFile(other, altered("\"number\": ", "\"number\": 4")));
    const ProgramRun run = exported({good_, other, QStringLiteral("--format"), QStringLiteral("html"),
                                     QStringLiteral("-o"), out, QStringLiteral("--force")});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.errors.size(), 1);
    QVERIFY2(run.errors.front().contains(other), qPrintable(run.errors.front()));
    QCOMPARE(namesIn(out), QStringList{QStringLiteral("invoice-smallbusiness-de.html")});
    QVERIFY(contentOf(out + QStringLiteral("/invoice-smallbusiness-de.html")).contains("R26009"));
}

void ExportCliTest::folderThatCannotBeMade()
{
    const QString file = path(QStringLiteral("file"));
    QVERIFY(writeFile(file, "x"));
    for (const QString& target : {file + QStringLiteral("/below/"), QStringLiteral("/proc/ledra-out/")}) {
        const ProgramRun run = exported({good_, QStringLiteral("-o"), target});
        QCOMPARE(run.exitCode, 1);
        QCOMPARE(run.errors.size(), 1);
        QVERIFY2(run.errors.front().contains(target), qPrintable(run.errors.front()));
    }
    // A single file below something that is no folder.
    const ProgramRun run = exported({good_, QStringLiteral("-o"), file + QStringLiteral("/x.pdf")});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.errors.size(), 1);
    QVERIFY2(run.errors.front().contains(file + QStringLiteral("/x.pdf")), qPrintable(run.errors.front()));
    QCOMPARE(contentOf(file), QByteArray("x"));
}

void ExportCliTest::pdfIsComplete()
{
    const QString out = path(QStringLiteral("pdf-out"));
    const QStringList names = {QStringLiteral("invoice-design-de"),
                               QStringLiteral("invoice-photography-long")};
    const ProgramRun run =
        exported({example(names[0] + QStringLiteral(".json")), example(names[1] + QStringLiteral(".json")),
                  QStringLiteral("-o"), out, QStringLiteral("--quiet")});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.errors.isEmpty() && run.output.isEmpty());
    const QString version =
        QString::fromLatin1(test::runProgram({QStringLiteral("--version")}).output).trimmed();
    for (const QString& name : names) {
        const QByteArray bytes = contentOf(out + u'/' + name + QStringLiteral(".pdf"));
        const auto pdf = PdfFile::open(bytes);
        QVERIFY(pdf.has_value());

        // The record inside reads back as the one that was exported, and is nowhere on the page.
        const auto original = decoded(contentOf(example(name + QStringLiteral(".json"))));
        const auto embedded =
            decoded(pdf->annotationContents(QStringLiteral("LedraInvoiceData")).value_or(QString()).toUtf8());
        QVERIFY(original && embedded);
        QVERIFY(*original == *embedded);
        QVERIFY(!test::outputOfPdfTool(bytes, QStringLiteral("pdftotext"), {}, {QStringLiteral("-")})
                     .contains("statusUpdateDate"));

        const QString info = QString::fromUtf8(test::outputOfPdfTool(bytes, QStringLiteral("pdfinfo")));
        const QString number = name == names[0] ? QStringLiteral("2026-014") : QStringLiteral("202606-047");
        for (const QString& expected :
             {QStringLiteral("Rechnung ") + number, QStringLiteral("595 x 842 pts (A4)"),
              QStringLiteral("Ledra ") + version.section(u' ', 1)})
            QVERIFY2(info.contains(QRegularExpression(
                         QStringLiteral(": +%1(\n|$)").arg(QRegularExpression::escape(expected)))),
                     qPrintable(info));

        // Real, embedded subsets of the shipped faces; "Type 3" would be drawings.
        QStringList fonts = QString::fromUtf8(test::outputOfPdfTool(bytes, QStringLiteral("pdffonts")))
                                .split(u'\n', Qt::SkipEmptyParts)
                                .mid(2);
        QVERIFY(fonts.size() >= 2);
        for (const QString& font : fonts) {
            static const QRegularExpression shipped(QStringLiteral(
                "^[A-Z]{6}\\+(SourceSerif4|iAWriterDuo)\\S* +CID TrueType +\\S+ +yes yes yes "));
            QVERIFY2(shipped.match(font).hasMatch(), qPrintable(font));
        }
    }
}

// As a reader gets it who selects all and copies.
void ExportCliTest::textIsInReadingOrder()
{
    const ProgramRun run = exported(
        {example(QStringLiteral("invoice-design-de.json")), QStringLiteral("-o"), QStringLiteral("-")});
    const QString text = QString::fromUtf8(
        test::outputOfPdfTool(run.output, QStringLiteral("pdftotext"), {}, {QStringLiteral("-")}));
    const QStringList inOrder = {
        QStringLiteral("Studio Nordlicht · Kranweg 14 · 20457 Hamburg"),
        QStringLiteral("Kaffeerösterei Ahlers & Sohn GmbH\nJonas Ahlers\nUfergasse 5\n23552 Lübeck"),
        QStringLiteral("Rechnung\n"),
        QStringLiteral("2026-014"),
        QStringLiteral("Beschreibung"),
        QStringLiteral("Erscheinungsbild der Rösterei\nWortmarke"),
        QStringLiteral("Geschäftsausstattung"),
        QStringLiteral("Visitenkarten, Naturpapier"),
        QStringLiteral("Zwischensumme"),
        QStringLiteral("5.130,39 €"),
        QStringLiteral("vielen Dank"),
        QStringLiteral("guten Start!"),
    };
    qsizetype position = 0;
    for (const QString& piece : inOrder) {
        const qsizetype found = text.indexOf(piece, position);
        QVERIFY2(found >= 0, qPrintable(piece + QStringLiteral(" is not where it should be in:\n") + text));
        position = found + piece.size();
    }
}

void ExportCliTest::standardOutput()
{
    const QString styling = example(QStringLiteral("stylings/letter/styling.json"));
    const ProgramRun run =
        exported({good_, QStringLiteral("-o"), QStringLiteral("-"), QStringLiteral("--styling"), styling});
    QCOMPARE(run.exitCode, 0);
    QVERIFY2(run.errors.isEmpty(), qPrintable(run.errors.join(u'\n')));
    QVERIFY(run.output.startsWith("%PDF-1.7"));
    const std::vector<test::PdfPage> pages = test::pagesOfPdf(run.output);
    QCOMPARE(pages.size(), std::size_t{1});
    QCOMPARE(pages.front().size, QSizeF(612, 792));
    QVERIFY(pages.front().text().contains(QStringLiteral("R26009")));
}

// The file needs no other: fonts are inside, and nothing in it is fetched.
void ExportCliTest::languageIsTheDocuments_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("expected");
    QTest::newRow("German on an English system")
        << "invoice-design-de.json" << "en_US.UTF-8" << "<td>30 März 2026</td>";
    QTest::newRow("English on a German system")
        << "invoice-consulting-us.json" << "de_DE.UTF-8" << "<td>30 April 2026</td>";
    QTest::newRow("none, on a German system") << "invoice-gross-de.json" << "de_AT.UTF-8" << "Gesamtbetrag";
    QTest::newRow("none, on an English system")
        << "invoice-gross-de.json" << "en_GB.UTF-8" << "Total with VAT";
}

void ExportCliTest::languageIsTheDocuments()
{
    QFETCH(QString, file);
    QFETCH(QString, locale);
    QFETCH(QString, expected);
    const QStringList arguments = {QStringLiteral("export"), example(file),        QStringLiteral("--format"),
                                   QStringLiteral("html"),   QStringLiteral("-o"), QStringLiteral("-")};
    const ProgramRun run = test::runProgram(arguments, {.locale = locale});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(QString::fromUtf8(run.output).contains(expected));
}

void ExportCliTest::html()
{
    const QString out = path(QStringLiteral("html-out"));
    const ProgramRun run =
        exported({example(QStringLiteral("cancellation-design-de.json")),
                  example(QStringLiteral("invoice-gross-de.json")),
                  example(QStringLiteral("invoice-photography-long.json")), QStringLiteral("--format"),
                  QStringLiteral("html"), QStringLiteral("-o"), out, QStringLiteral("--profile-file"),
                  example(QStringLiteral("profiles/studio/profile.json"))});
    QCOMPARE(run.exitCode, 0);
    const auto fileOf = [&](const char* name) {
        return QString::fromUtf8(contentOf(out + u'/' + QString::fromLatin1(name)));
    };
    static const QRegularExpression fetched(
        QStringLiteral("(url\\(['\"]?|src=['\"]|href=['\"])(?!data:)[^)'\"]"));
    for (const char* name :
         {"cancellation-design-de.html", "invoice-gross-de.html", "invoice-photography-long.html"}) {
        const QString html = fileOf(name);
        QVERIFY2(html.startsWith(QStringLiteral("<!DOCTYPE html>")), name);
        QVERIFY2(html.contains(QStringLiteral("data:font/woff2;base64,d09GMg")), name); // "wOF2"
        const QRegularExpressionMatch match = fetched.match(html);
        QVERIFY2(!match.hasMatch(), qPrintable(match.captured()));
    }
    // The invoice that it cancels lies beside it; a language comes from the profile.
    QVERIFY(fileOf("cancellation-design-de.html").contains(QStringLiteral("<td>2026-014</td>")));
    QVERIFY(fileOf("invoice-gross-de.html").contains(QStringLiteral("<html lang=\"de\"")));
    const QString pages = fileOf("invoice-photography-long.html");
    const auto count = pages.count(QStringLiteral("<iframe "));
    QVERIFY(count > 1);
    QVERIFY(pages.contains(QStringLiteral("Seite %1 von %1").arg(count)));
}

const ledra::test::RegisterSuite<ExportCliTest> registration("export_cli_test");

#include "export_cli_test.moc"
