#include "platform/file_io.h"
#include "support/full_disk.h"
#include "support/test_suite.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

using namespace ledra;

class FileIoTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void exportsRefuseOrReplace()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("Rechnung Ä.pdf"));
        QVERIFY(writeExport(path, "first", Overwrite::refuse));
        const auto refused = writeExport(path, "second", Overwrite::refuse);
        QVERIFY(!refused && refused.error().text().startsWith(path + QStringLiteral(": ")));
        QCOMPARE(readFile(path, 100).value(), QByteArray("first"));
        QVERIFY(writeExport(path, "third", Overwrite::replace));
        QCOMPARE(readFile(path, 100).value(), QByteArray("third"));
        QCOMPARE(filesIn(folder), QStringList{QStringLiteral("Rechnung Ä.pdf")});
    }

    void failedExportsLeaveNothing_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<qint64>("size");
        QTest::addColumn<quint64>("space");
        const quint64 plenty = RLIM_INFINITY;
        QTest::newRow("below a file") << "old/new.pdf" << qint64{3} << plenty;
        QTest::newRow("below no folder") << "none/new.pdf" << qint64{3} << plenty;
        QTest::newRow("onto a folder") << "folder" << qint64{3} << plenty;
        QTest::newRow("onto a pipe") << "pipe" << qint64{3} << plenty;
        QTest::newRow("disk full at once") << "old" << qint64{100'000} << quint64{0};
        QTest::newRow("disk full half-way") << "old" << qint64{100'000} << quint64{50'000};
        QTest::newRow("disk full at the end") << "old" << qint64{2'000} << quint64{1'000};
    }

    void failedExportsLeaveNothing()
    {
        QFETCH(QString, name);
        QFETCH(qint64, size);
        QFETCH(quint64, space);
        const QTemporaryDir folder;
        QVERIFY(writeExport(folder.filePath(QStringLiteral("old")), "old", Overwrite::refuse));
        QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("folder")));
        QCOMPARE(mkfifo(QFile::encodeName(folder.filePath(QStringLiteral("pipe"))).constData(), 0600), 0);
        {
            const test::FullDisk disk(space);
            const auto written =
                writeExport(folder.filePath(name), QByteArray(size, 'x'), Overwrite::replace);
            QVERIFY(!written && !written.error().reason.isEmpty());
        }
        QCOMPARE(readFile(folder.filePath(QStringLiteral("old")), 100).value(), QByteArray("old"));
        QCOMPARE(filesIn(folder).join(u' '), QStringLiteral("folder old pipe"));
    }

    void reading()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("a"));
        QVERIFY(!readFile(path, 100));
        QVERIFY(!readFile(folder.path(), 100));
        QVERIFY(writeExport(path, "12345", Overwrite::refuse));
        QCOMPARE(readFile(path, 5).value(), QByteArray("12345"));
        QVERIFY(!readFile(path, 4));
        QVERIFY(writeExport(path, "", Overwrite::replace));
        QCOMPARE(readFile(path, 0).value(), QByteArray());
    }

private:
    static QStringList filesIn(const QTemporaryDir& folder)
    {
        return QDir(folder.path())
            .entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System);
    }
};

const ledra::test::RegisterSuite<FileIoTest> registration("file_io_test");

#include "file_io_test.moc"
