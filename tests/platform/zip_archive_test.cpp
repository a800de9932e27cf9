#include "platform/zip_archive.h"
#include "support/full_disk.h"
#include "support/shell.h"
#include "support/test_suite.h"
#include "support/tree_of.h"
#include "support/zip_of_entries.h"

#include <QRandomGenerator>
#include <QTemporaryDir>

using namespace ledra;
using namespace ledra::test;

namespace {

/// Makes the folder "tree" with all kinds of names and files; all times are odd seconds.
const QByteArray makeTree = R"~(
    mkdir -p tree/1_Ähre/Invoices tree/2/empty tree/.hidden; cd tree
    echo '{"id": 7}' > 1_Ähre/Invoices/2026-03-05-9F2C41.json; echo 発票 > '2/発票 (é).json'; : > 2/none
    seq 50000 > 2/long.txt; head -c 100000 /dev/urandom > 2/noise; echo > .hidden/.x; printf x > 'a  b'
    find . -exec touch -hd '2021-02-03 04:05:07' {} +)~";

/// A place with an archive "x.zip" and an empty folder "out" to unpack it to.
struct Place
{
    QTemporaryDir folder;

    explicit Place(const QByteArray& archive = {})
    {
        writeFile(at("x.zip"), archive);
        QDir(at("")).mkdir(QStringLiteral("out"));
    }

    QString at(const QString& name) const { return folder.path() + u'/' + name; }
    QString at(const char* name) const { return at(QString::fromUtf8(name)); }

    QMap<QByteArray, QByteArray> outside() const
    {
        auto tree = treeOf(at(""));
        erase_if(tree, [](auto entry) { return entry.key().startsWith("out/"); });
        return tree;
    }

    /// Unpacks x.zip. When that succeeds it is "", else the fault and the reason, and "outside" if anything
    /// has changed outside of "out".
    QByteArray extract(const ArchiveLimits& limits = {}) const
    {
        constexpr std::array<const char*, 3> faults{"notAnArchive: ", "refused: ", "failed: "};
        const auto before = outside();
        const auto done = extractArchive(at("x.zip"), at("out"), limits);
        if (outside() != before)
            return "outside";
        return done ? "" : faults[std::size_t(done.error().fault)] + done.error().reason.toUtf8();
    }
};

} // namespace

class ZipArchiveTest : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    void treesComeBack()
    {
        const Place place;
        QCOMPARE(shell(place.at(""), makeTree), "");
        QVERIFY(writeArchive(place.at("tree"), place.at("x.zip"), Overwrite::replace));
        QCOMPARE(shell(place.at(""), "unzip -tqq x.zip; [ $(bsdtar -tf x.zip | wc -l) = 12 ]"), "");
        QVERIFY(QFileInfo(place.at("x.zip")).size() < 250'000); // of 389,000
        QCOMPARE(place.extract(), "");
        QCOMPARE(treeOf(place.at("out")), treeOf(place.at("tree")));

        const QByteArray list = "find . -mindepth 1 -printf '%T@ %m %p\n' | sort";
        QCOMPARE(shell(place.at(""), "umask 022; mkdir other copy; TZ=UTC-9 bsdtar -xf x.zip -C other"), "");
        QCOMPARE(shell(place.at("other"), list), shell(place.at("tree"), list));

        const QByteArray copy = "find . | sort -r | bsdtar -cnf - -T - | bsdtar -xpf - -C ../copy";
        QCOMPARE(shell(place.at("tree"), copy), "");
        QVERIFY(writeArchive(place.at("copy"), place.at("y.zip"), Overwrite::refuse));
        QCOMPARE(contentOf(place.at("y.zip")), contentOf(place.at("x.zip")));
    }

    void failedWritingChangesNothing_data()
    {
        QTest::addColumn<QString>("target");
        QTest::addColumn<QString>("blamed");
        QTest::newRow("true # exists") << "x.zip" << "x.zip";
        QTest::newRow("ln -s none tree/link") << "new.zip" << "tree/link";
        QTest::newRow("ln -s ../../x.zip tree/2/link") << "new.zip" << "tree/2/link";
        QTest::newRow("mkfifo tree/pipe") << "new.zip" << "tree/pipe";
        QTest::newRow("touch tree/\u00e4 tree/a\u0308") << "new.zip" << "tree/\u00e4";
        QTest::newRow("rm -r tree; mkdir tree") << "new.zip" << "tree";
        QTest::newRow("rm -r tree") << "new.zip" << "tree";
        QTest::newRow("true # in itself") << "tree/new.zip" << "tree/new.zip";
        QTest::newRow("true # in none") << "none/new.zip" << "none/new.zip";
        QTest::newRow("true # full disk") << "new.zip" << "new.zip";
    }
    void failedWritingChangesNothing()
    {
        QFETCH(QString, target);
        QFETCH(QString, blamed);
        const Place place("old");
        const QByteArray script = QTest::currentDataTag();
        QCOMPARE(shell(place.at(""), makeTree + "; cd ..; " + script), "");
        const auto before = treeOf(place.at(""));
        const FullDisk disk(script.endsWith("disk") ? 100'000 : RLIM_INFINITY);
        const auto written = writeArchive(place.at("tree"), place.at(target), Overwrite::refuse);
        QVERIFY(!written && !written.error().reason.isEmpty());
        QVERIFY2(written.error().path.startsWith(place.at(blamed)), qPrintable(written.error().text()));
        QCOMPARE(treeOf(place.at("")), before);
    }

    void archivesOfOthersAreRead_data()
    {
        QTest::addColumn<bool>("hasEmptyFolders");
        QTest::newRow("zip -rq ../x.zip .") << true;
        QTest::newRow("zip -rq0 ../x.zip .") << true;
        QTest::newRow("zip -rqD -fz ../x.zip .") << false;
        QTest::newRow("zip -rq - . | cat > ../x.zip") << true;
        QTest::newRow("bsdtar -acf ../x.zip 1* 2 .h* a*") << true;
        QTest::newRow("bsdtar -acf ../x.zip .") << true; // all names begin with "./"
        QTest::newRow("bsdtar -acf ../x.zip --options compression=store 1* 2 .h* a*") << true;
        QTest::newRow("python3 -m zipfile -c ../x.zip 1* 2 .h* a*") << true;
        const QByteArray python = "find * .h* -type f | python3 -c \"import sys, zipfile as z; a=z.ZipFile(";
        const QByteArray names = " for n in sys.stdin.read().splitlines()]; a.close()\"";
        const QByteArray large = "[(e.write(open(n, 'rb').read()), e.close())"
                                 " for e in [a.open(n, 'w', force_zip64=True)]]";
        QTest::newRow(python + "'../x.zip', 'w'); [a.write(n, compress_type=z.ZIP_STORED)" + names) << false;
        QTest::newRow(python + "'../x.zip', 'w'); [" + large + names) << false;
        QTest::newRow(python + "sys.stdout.buffer, 'w', 8); [a.write(n)" + names + " | cat > ../x.zip")
            << false;
    }
    void archivesOfOthersAreRead()
    {
        const Place place;
        QCOMPARE(shell(place.at(""), makeTree + "; rm ../x.zip; " + QTest::currentDataTag()), "");
        auto expected = treeOf(place.at("tree"));
        QFETCH(bool, hasEmptyFolders);
        if (!hasEmptyFolders)
            QCOMPARE(expected.remove("2/empty"), 1);
        QCOMPARE(place.extract(), "");
        QCOMPARE(treeOf(place.at("out")), expected);
    }

    void namesOfTheOldCodePageAreRead()
    {
        const Place place(
            zipOf({{"\x8e/\x84.txt", "x", 8}, {"\x8e/", {}, 8, 0, 0040755}, {"o", {}, 0, 0, 0}}));
        QCOMPARE(place.extract(), "");
        QCOMPARE(treeOf(place.at("out")).keys(), (QByteArrayList{"o", "Ä", "Ä/ä.txt"}));
    }

    void hostileArchivesAreRefused_data()
    {
        QTest::addColumn<QList<ZipEntry>>("entries");
        QTest::addColumn<ArchiveLimits>("limits");
        const auto row = [](const QByteArray& error, const QList<ZipEntry>& entries,
                            const ArchiveLimits& limits = {}) {
            QTest::newRow(error.constData()) << entries << limits;
        };
        for (const char* name : {"../x", "a/../../x", "..", "a/..", "../", "a/./x", ".", "a//b", ""})
            row("refused: “" + QByteArray(name) + "”: the path has an empty part, “.” or “..”", {{name}});
        row("refused: “x /../y”: the path has an empty part",
            {{QByteArray("x\0/../y", 7)}}); // read as a blank
        row("refused: “/tmp/x”: the path is absolute", {{"/tmp/x"}});
        row("refused: “/”: the path is absolute", {{"/"}});
        row("refused: “c:x”: the path begins with a drive", {{"c:x"}});
        row("refused: “a�b”: the name has control characters", {{"a\nb"}});
        row("refused: “Ä◘”: the name has control characters", {{"\x8e\b"}});
        row("refused: “�”: the name has control characters", {{"\u0085", {}, 0, utf8Name}});
        row("failed: the archive is damaged: it contradicts itself", {{"\xff\xfe", {}, 0, utf8Name}});
        row("refused: “" + QByteArray(100, 'n') + "…”: the name is too long", {{QByteArray(256, 'n')}});
        row("refused: “a/a/a", {{QByteArray("a/").repeated(2048) + 'a'}}); // the path is too long
        for (const int mode : {0120777, 0010644, 0020644, 0060644, 0140644, 0040755})
            row("refused: “x”: neither a file nor a folder", {{"x", "/etc/passwd", 0, 0, mode}, {"x/y"}});
        row("refused: “x/”: a folder with content", {{"x/", "content"}});
        row("refused: “x”: another entry has the same name", {{"x"}, {"x"}});
        row("refused: “x/”: another entry has the same name", {{"x/"}, {"x/"}});
        row("refused: “x”: another entry has the same name", {{"x/"}, {"x"}});
        row("refused: “x/y”: another entry has the same name", {{"x"}, {"x/y"}});
        row("refused: “x/y”: another entry has the same name", {{"x/y/z"}, {"x/y"}});
        row("refused: “a\u0308”: another entry has the same name", {{"\u00e4"}, {"a\u0308"}});
        row("refused: “a\u0308/y”: another entry has the same name", {{"\u00e4/x"}, {"a\u0308/y"}});
        row("refused: “x”: it is encrypted", {{"x", QByteArray(40, 'x'), 0, 1}});
        for (const int method : {1, 12, 93})
            row("refused: “x”: it is packed in a way that is not supported", {{"x", "x", method}});
        row("refused: more than 3 files and folders", {{"a/b/c"}}, {.entries = 3});
        row("refused: “x”: larger than 1 MB", {{"x", "x", 8, 0, 0, 1048577}}, {.fileBytes = 1 << 20});
        row("refused: it unpacks to more than 2 MB", {{"x", "x", 8, 0, 0, 2097149}}, {.totalBytes = 2 << 20});
        row("refused: it unpacks to more than 64 MB", {{"x", QByteArray(65 << 20, '\0'), 8}});
        row("refused: its entries are larger than the archive", {{.name = "x", .packedSize = 500}});
        row("refused: its entries are larger than the archive",
            {{"x", QByteArray(500, 'x')}, {.name = "y", .content = QByteArray(500, 'x'), .isAlias = true}});
        for (const int method : {0, 8}) {
            for (const quint32 lie : {3, 5}) // of four bytes
                row("failed: “x”: ", {{"x", "1234", method, 0, 0, lie}});
            row("failed: “x”: ", {{"x", "1234", method, 0, 0, {}, {}, 7}});
        }
        row("failed: “x”: ", {{"x", QByteArray(9 << 20, '\0'), 8, 0, 0, 1000}});
        row("failed: “y”: ", {{"y", "\xff", 8, 0, 0, 9, 1}});
    }
    void hostileArchivesAreRefused()
    {
        QFETCH(QList<ZipEntry>, entries);
        QFETCH(ArchiveLimits, limits);
        const QByteArray error = QTest::currentDataTag();
        const Place place(zipOf(QList<ZipEntry>{{"good", "good"}} + entries));
        const QByteArray result = place.extract(limits);
        QVERIFY2(result.startsWith(error) && !result.contains('\n'), result.constData());
        const auto files = treeOf(place.at("out"));
        QVERIFY(files.size() <= (error.startsWith("refused") ? 0 : 3)); // what is refused is refused at first
        for (const QByteArray& content : files)
            QVERIFY(content.size() <= 1000);
    }

    void everyDamageIsSurvived()
    {
        const Place whole;
        QCOMPARE(shell(whole.at(""), "mkdir -p tree/a; seq 999 > tree/a/b; touch tree/a/c tree/d"), "");
        QVERIFY(writeArchive(whole.at("tree"), whole.at("x.zip"), Overwrite::replace));
        QCOMPARE(whole.extract(), "");
        const QByteArray archive = contentOf(whole.at("x.zip"));
        const QByteArrayList contents = treeOf(whole.at("out")).values();
        for (qsizetype size = 0; size < archive.size(); size += 64) {
            const QByteArray result = Place(archive.first(size)).extract();
            QVERIFY2(result.startsWith("notAnArchive") || result.startsWith("failed"), result.constData());
        }
        QRandomGenerator random(7);
        for (int round = 0; round < 300; ++round) {
            QByteArray noise(random.bounded(2000), '\0');
            std::ranges::generate(noise, [&] { return static_cast<char>(random.bounded(256)); });
            QVERIFY(Place((round % 2 ? "PK\3\4" : "") + noise).extract().startsWith("notAnArchive: "));
            QByteArray damaged = archive;
            for (int change = 0; change < 3; ++change)
                damaged[random.bounded(archive.size())] = static_cast<char>(random.bounded(256));
            const Place place(damaged);
            const QByteArray result = place.extract();
            QVERIFY(result != "outside");
            const auto files = result.isEmpty() ? treeOf(place.at("out")) : QMap<QByteArray, QByteArray>();
            for (const QByteArray& content : files) // under another name, maybe
                QVERIFY(contents.contains(content));
        }
    }

    void onlyEmptyFoldersAreUnpackedTo()
    {
        const Place place(zipOf({{"a", "new"}}));
        QVERIFY(writeFile(place.at("out/a"), "old"));
        QCOMPARE(place.extract(), "failed: " + place.at("out").toUtf8() + ": not empty");
        QCOMPARE(contentOf(place.at("out/a")), "old");
        for (const auto& [archive, folder] : {std::pair("x.zip", "none"), {"none", "out"}, {"out", "out"}})
            QVERIFY(!extractArchive(place.at(archive), place.at(folder)));
    }
};

const ledra::test::RegisterSuite<ZipArchiveTest> registration("zip_archive_test");

#include "zip_archive_test.moc"
