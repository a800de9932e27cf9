#include "platform/file_move.h"
#include "platform/folder_bookmark.h"
#include "platform/trash_bin.h"
#include "platform/user_defaults.h"
#include "platform/working_folder.h"
#include "support/program_run.h"
#include "support/shell.h"
#include "support/test_suite.h"

#include <QDir>
#include <QScopeGuard>
#include <QStorageInfo>
#include <QTemporaryDir>

#include <unistd.h>

using namespace ledra;

namespace {

using Mover = std::expected<void, FileError> (*)(const QString&, const QString&);

/// Sets a variable of the environment until the returned guard goes.
[[nodiscard]] auto variable(const char* name, const QString& value)
{
    const auto restore = [name, before = qgetenv(name)] { qputenv(name, before); };
    qputenv(name, value.toLocal8Bit());
    return qScopeGuard(restore);
}

QString in(const QTemporaryDir& folder, const char* name)
{
    return folder.filePath(QString::fromUtf8(name));
}

/// See test::shell().
QByteArray shell(const QTemporaryDir& folder, const QByteArray& script)
{
    return test::shell(folder.path(), script);
}

/// What is to be moved: all kinds of things, one under a name that is no text.
const QByteArray makeThings = R"~(
    mkdir -p folder/.hidden folder/locked; head -c 700003 /dev/zero > file; chmod 500 file
    touch folder/.hidden/empty; echo x > folder/locked/file; echo x > "folder/$(printf '\377')"
    ln -s leads/nowhere link; cp -P link folder; chmod 500 folder/locked
    touch -hd '2001-02-03 04:05:06.789' file link folder/link folder/locked folder)~";
const QByteArray listThings = R"~(
    find . -mindepth 1 -printf '%M %T@ %P %l\n' | sort; find . -type f -exec sha256sum {} + | sort)~";
const QByteArray removeThings = "chmod -R u+w folder; rm -r folder"; // which QTemporaryDir could not
/// Paths as a desktop writes them that keeps those in a mount point's trash relative.
const QByteArray makeRelative =
    R"~(sed -i "s|^Path=/dev/shm/\(${PWD##*/}\)|Path=\1|" ../.Trash-$(id -u)/info/*)~";
const QByteArray removeTrash = "cd ../.Trash-$(id -u) && rmdir files info $PWD || true"; // if it is empty

/// Here, and on another file system where there is one.
QStringList places()
{
    const QString other = QStringLiteral("/dev/shm");
    return QStorageInfo(other).rootPath() == other ? QStringList{QDir::tempPath(), other}
                                                   : QStringList{QDir::tempPath()};
}

} // namespace

class FilePlacesTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void movesKeepEverything()
    {
        for (const Mover move : {&moveFile, &moveByCopying}) {
            for (const QString& place : places()) {
                const QTemporaryDir from;
                const QTemporaryDir to(place + QStringLiteral("/ledra-XXXXXX"));
                QCOMPARE(shell(from, makeThings), "");
                const QByteArray things = shell(from, listThings);
                for (const char* name : {"file", "link", "folder/"})
                    QVERIFY(move(in(from, name), in(to, name)));
                QCOMPARE(shell(to, listThings), things);
                QCOMPARE(shell(from, listThings), "");
                QCOMPARE(shell(to, removeThings), "");
            }
        }
    }

    void failedMovesChangeNothing()
    {
        const QTemporaryDir root;
        QCOMPARE(shell(root, makeThings), "");
        QCOMPARE(shell(root, "echo > taken; mkdir half-way; echo > half-way/a; mkfifo half-way/pipe"), "");
        const QByteArray before = shell(root, listThings);
        const std::pair<const char*, const char*> moves[] = {
            {"file", "taken"},  {"file", "link"},        {"folder", "folder/.hidden/into itself"},
            {"missing", "new"}, {"file", "missing/new"}, {"folder", "taken/new"},
            {"half-way", "new"}};
        for (const auto& [source, target] : moves) {
            for (const Mover move : {*source == 'h' ? &moveByCopying : &moveFile, &moveByCopying}) {
                const auto moved = move(in(root, source), in(root, target));
                QVERIFY2(!moved && moved.error().path.startsWith(root.path()), target);
                QCOMPARE(shell(root, listThings), before);
            }
        }
        QCOMPARE(shell(root, removeThings), "");
    }

    void workingFoldersGo()
    {
        const QTemporaryDir place;
        const auto temporary = variable("TMPDIR", place.path());
        QCOMPARE(shell(place, "mkdir outside; echo > outside/file"), "");
        const QByteArray before = shell(place, listThings);
        {
            auto folder = WorkingFolder::create(QStringLiteral("Ledra")).value();
            const auto other = WorkingFolder::create(QStringLiteral("Ledra"));
            QCOMPARE(test::shell(folder.path(), makeThings + "; ln -s ../outside folder/locked.d"), "");
            QCOMPARE(test::shell(folder.path(), "chmod 0 folder; find . -maxdepth 0 -printf %m"), "700");
            const WorkingFolder moved = std::move(folder);
            const QRegularExpression name(QStringLiteral("^%1/Ledra-[0-9A-F-]{36}$").arg(place.path()));
            QVERIFY(name.match(moved.path()).hasMatch() && name.match(other->path()).hasMatch());
            QVERIFY(QFileInfo::exists(moved.path()) && other->path() != moved.path());
        }
        QCOMPARE(shell(place, listThings), before);
        QVERIFY(!WorkingFolder::create(QStringLiteral("none/Ledra")));

        // Of older ones those go that nobody holds.
        const auto held = WorkingFolder::create(QStringLiteral("Ledra"));
        QCOMPARE(shell(place, "mkdir -p Ledra-KILLED/a Ledra-YOUNG Other-OLD; touch -d '2 minutes ago' "
                              "Ledra-[0-9A-F]* Ledra-KILLED Other-OLD"),
                 "");
        const auto next = WorkingFolder::create(QStringLiteral("Ledra"));
        QCOMPARE(shell(place, "ls | grep -c '^Ledra-[0-9A-F]*-'; ls -d Ledra-[K-Z]* Other*"),
                 "2\nLedra-YOUNG\nOther-OLD\n");
    }

    void trashGivesBack_data()
    {
        QTest::addColumn<QString>("trash");
        QTest::newRow("the desktop's") << "data/Trash";
        QTest::newRow("our own") << "own";
        if (places().size() > 1)
            QTest::newRow("of a mount point") << QStringLiteral("/dev/shm/.Trash-%1").arg(::getuid());
    }
    void trashGivesBack()
    {
        QFETCH(QString, trash);
        const QString place = QDir::isAbsolutePath(trash) ? places().last() : places().first();
        const QTemporaryDir home;
        const QTemporaryDir work(place + QStringLiteral("/ledra-XXXXXX"));
        const auto homeVariable = variable("HOME", home.path());
        const auto dataVariable = variable("XDG_DATA_HOME", in(home, "data"));
        TrashBin bin(in(home, "own"));
        QCOMPARE(shell(home, trash == u"own" ? "mkdir data; touch data/Trash" : ""), "");
        for (const char* name : {"%41 Ä/a", "%41 Ä/a", "%41 Ä/sub/", "%41 Ä b"}) {
            QCOMPARE(shell(work, "mkdir -p '%41 Ä/sub'; touch '%41 Ä/a' '%41 Ä/sub/c' '%41 Ä b'"), "");
            const auto put = bin.put(in(work, name));
            QVERIFY(put && put->startsWith(QDir(home.path()).filePath(trash)) && QFileInfo::exists(*put));
            QVERIFY(!QFileInfo::exists(in(work, name)) && !bin.put(in(work, name)));
        }
        QCOMPARE(shell(work, "rm -r *"), "");
        if (QDir::isAbsolutePath(trash))
            QCOMPARE(shell(work, makeRelative), "");
        qsizetype restored = 0;
        for (const TrashedFile& file : bin.filesFrom(in(work, "%41 Ä"))) {
            QVERIFY(qAbs(file.deletionDate.secsTo(QDateTime::currentDateTime())) < 60);
            restored += bin.restore(file) ? 1 : 0;
        }
        QCOMPARE(restored, 2); // and not the second of the two that had one name
        QVERIFY(QFile::remove(in(work, "%41 Ä/a")));
        for (const TrashedFile& file : bin.filesFrom(work.path()))
            QVERIFY(bin.restore(file));
        QCOMPARE(shell(work, "ls *"), "%41 Ä b\n\n%41 Ä:\na\nsub\n");
        QVERIFY(QFileInfo::exists(in(work, "%41 Ä/sub/c")) && bin.filesFrom(work.path()).empty());
        QCOMPARE(shell(work, removeTrash), "");
    }

    void foreignTrashDoesNoHarm()
    {
        const QTemporaryDir home;
        const auto dataVariable = variable("XDG_DATA_HOME", home.path());
        QCOMPARE(shell(home, "mkdir -p Trash/info Trash/files"), "");
        const QByteArray start = "[Trash Info]\nPath=/nowhere/in/";
        const std::vector<QByteArray> infos{
            start + "%C3%A4%20b\nDeletionDate=2024-02-29T23:59:59\n",
            start + "x/../c\nDeletionDate=2024-03-01T00:00:00\nPath=/nowhere/in/second",
            "[Trash Info]\nDeletionDate=yesterday\nPath=/nowhere/in/undated",
            start + "../../etc/passwd",
            "[Trash Info]\nPath=/nowhere/inside",
            start,
            "[Trash Info]\nPath=nowhere/in/relative",
            start + "cut%00off",
            "[Trash Info]\n[Other]\nPath=/nowhere/in/another/group",
            start + "no file",
            start + "huge\n" + QByteArray(16 << 10, '#'),
            '\0' + start + "binary"};
        for (std::size_t at = 0; at < infos.size(); ++at) {
            const QByteArray name = infos[at].endsWith("no file") ? "." : QByteArray::number(qsizetype(at));
            QVERIFY(test::writeFile(in(home, "Trash/info/" + name + ".trashinfo"), infos[at]));
            QVERIFY(name == "." || test::writeFile(in(home, "Trash/files/" + name), ""));
        }
        QStringList found;
        for (const TrashedFile& file : TrashBin(in(home, "own")).filesFrom(QStringLiteral("/nowhere/in")))
            found << file.originalPath.mid(12) + file.deletionDate.toString(QStringLiteral(" d.M.yy h:m"));
        QCOMPARE(found.join(u'|'), QStringLiteral("c 1.3.24 0:0|ä b 29.2.24 23:59|undated"));
    }

    void bookmarksKnowTheirFolder_data()
    {
        QTest::addColumn<bool>("isStale");
        QTest::addColumn<bool>("isAccessible");
        QTest::newRow("mv a b; mv b a") << false << true;
        QTest::newRow("mv a b; mkdir a") << true << true;
        QTest::newRow("mv a b; touch a") << true << false;
        QTest::newRow("mv a b") << false << true;
        QTest::newRow("mv a b; ln -s nowhere a") << false << false;
    }
    void bookmarksKnowTheirFolder()
    {
        const QTemporaryDir place;
        const QString folder = in(place, "a");
        QVERIFY(!resolveFolderBookmark(makeFolderBookmark(folder)).value().isStale && QDir().mkdir(folder));
        const QByteArray blob = makeFolderBookmark(in(place, "a/../a/"));
        QCOMPARE(shell(place, QTest::currentDataTag()), "");
        QCOMPARE(resolveFolderBookmark(blob).value().path, folder);
        QTEST(resolveFolderBookmark(blob).value().isStale, "isStale");
        QTEST(isAccessibleFolder(folder), "isAccessible");
        for (qsizetype at = 0; at < blob.size(); ++at) {
            const QByteArray damaged = blob.first(at) + static_cast<char>(blob[at] ^ 1) + blob.sliced(at + 1);
            QVERIFY(!resolveFolderBookmark(damaged) && !resolveFolderBookmark(blob.first(at)));
        }
    }

    void defaultsAreKept()
    {
        const QTemporaryDir home;
        const auto configVariable = variable("XDG_CONFIG_HOME", home.path());
        const QString file = in(home, "Ledra/Ledra.conf");
        const QString key = QStringLiteral("group/bytes");
        const QByteArray bytes("\0\x80\xff;,\"\n1a", 9);
        FileUserDefaults defaults;
        QVERIFY(defaults.remove(key) && defaults.setValue(key, bytes));
        QCOMPARE(shell(home, "echo 'theirs=Größe' >> Ledra/Ledra.conf"), ""); // another process
        QCOMPARE(defaults.value(QStringLiteral("group/theirs")).toString(), QStringLiteral("Größe"));
        QCOMPARE(defaults.value(key).toByteArray(), bytes);
        QVERIFY(defaults.setValue(QStringLiteral("ours"), true) && defaults.remove(key));
        QCOMPARE(test::contentOf(file), "[General]\nours=true\n\n[group]\ntheirs=Größe\n");

        for (const char* script : {"echo 'no value' >> Ledra/Ledra.conf", "rm -r Ledra; touch Ledra"}) {
            QCOMPARE(shell(home, script), "");
            const QByteArray before = test::contentOf(file);
            const auto set = defaults.setValue(key, 1);
            QVERIFY(!set && set.error().startsWith(file + QStringLiteral(": ")));
            QCOMPARE(test::contentOf(file), before);
        }
    }
};

const ledra::test::RegisterSuite<FilePlacesTest> registration("file_places_test");

#include "file_places_test.moc"
