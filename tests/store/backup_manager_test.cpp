#include "store/backup_manager.h"
#include "support/store_home.h"
#include "support/test_suite.h"

using namespace ledra;
using Outcome = BackupManager::Outcome;
using test::StoreHome;

namespace {

/// Backups whose ages a test chooses: the day in a file's name counts as the day when it was made.
struct Backups
{
    Backups()
        : manager(
              home.context,
              [this](const QString& target) -> std::expected<void, QString> {
                  ++writes;
                  if (!problem.isEmpty())
                      return std::unexpected(problem);
                  const bool isWritten = home.put(target, "profiles");
                  afterWriting();
                  return isWritten ? std::expected<void, QString>()
                                   : std::unexpected(QStringLiteral("unwritable"));
              },
              [this](const QString& path) {
                  if (path == stubborn) // cannot be removed as a file any more
                      (void)(QFile::remove(path) && QDir().mkdir(path));
                  const QString day = QFileInfo(path).completeBaseName().mid(7);
                  return dayFromText(day).value_or(QDate(2000, 1, 1)).startOfDay().addSecs(11 * 3600);
              })
    {}

    bool put(const QString& day) const
    {
        return home.put(manager.folder() + QStringLiteral("/Backup-%1.ledradata").arg(day), "old");
    }
    QString names() const { return QDir(manager.folder()).entryList(QDir::Files, QDir::Name).join(u' '); }

    StoreHome home; // its clock stands at 2026-03-05, 11 o'clock in Berlin
    int writes = 0;
    QString problem;
    QString stubborn;
    std::function<void()> afterWriting = [] {};
    BackupManager manager;
};

const QString today = QStringLiteral("Backup-2026-03-05.ledradata");

} // namespace

class BackupManagerTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void due_data();
    void due();
    void oneADay();
    void failures();
    void unlistableFolder();
    void failedPruning();
    void afterAKill();
    void retention_data();
    void retention();
    void onlyDataFilesCount();
    void creationDates();
};

void BackupManagerTest::due_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("newest"); ///< the day of the newest backup; empty: there is none
    QTest::addColumn<bool>("isDue");
    const auto row = [](const char* stored, const char* newest, bool isDue) {
        QTest::addRow("%s, newest %s", stored, newest)
            << QString::fromLatin1(stored) << QString::fromLatin1(newest) << isDue;
    };
    row("1", "", true);
    row("30", "", true);
    row("1", "2026-03-04", true);
    row("", "2026-03-04", true);  // not chosen: daily
    row("5", "2026-03-04", true); // none of the choices: daily
    row("3", "2026-03-03", false);
    row("3", "2026-03-02", true);
    row("7", "2026-02-27", false); // six days
    row("7", "2026-02-26", true);
    row("30", "2026-02-04", false);
    row("30", "2026-02-03", true);
    row("1", "2026-04-01", false); // the clock was ahead once
}

void BackupManagerTest::due()
{
    QFETCH(QString, stored);
    QFETCH(QString, newest);
    QFETCH(bool, isDue);
    Backups backups;
    if (!stored.isEmpty())
        backups.home.defaults.values[QStringLiteral("backupFrequency")] = stored;
    QVERIFY(newest.isEmpty() || (backups.put(newest) && backups.put(QStringLiteral("2020-01-01"))));
    QCOMPARE(backups.manager.backUpIfDue(), isDue ? Outcome::made : Outcome::notDue);
    QCOMPARE(backups.names().contains(today), isDue);
    // Whole days have to pass, not dates.
    const QDateTime now(QDate(2026, 3, 5), QTime(11, 0));
    QVERIFY(!isBackupDue(QDateTime(QDate(2026, 3, 4), QTime(11, 1)), now, BackupFrequency::daily));
    QVERIFY(isBackupDue(QDateTime(QDate(2026, 3, 4), QTime(11, 0)), now, BackupFrequency::daily));
}

void BackupManagerTest::oneADay()
{
    Backups backups;
    QVERIFY(backups.home.put(backups.manager.todaysFile(), "made by hand"));
    QCOMPARE(backups.manager.backUp(), Outcome::madeToday);
    QCOMPARE(backups.writes, 0);
    QCOMPARE(readFile(backups.manager.todaysFile(), 100).value(), QByteArray("made by hand"));
    backups.home.clock.set("2026-03-06T10:00:00Z");
    QCOMPARE(backups.manager.backUp(), Outcome::made);
    QCOMPARE(backups.manager.backups()->front().path, backups.manager.todaysFile());
}

void BackupManagerTest::failures()
{
    Backups backups;
    backups.problem = QStringLiteral("the disk is full");
    QVERIFY(backups.put(QStringLiteral("2020-01-01")));
    QCOMPARE(backups.manager.backUpIfDue(), Outcome::failed);
    QCOMPARE(backups.home.console.failures,
             QStringList{QStringLiteral("BackupManager: Backup failed: the disk is full")});
    QCOMPARE(backups.names(), QStringLiteral("Backup-2020-01-01.ledradata"));
    backups.problem.clear(); // the next check tries again
    QCOMPARE(backups.manager.backUpIfDue(), Outcome::made);
}

/// What cannot be listed is not empty: no backup is due because of it, and it does not undo one.
void BackupManagerTest::unlistableFolder()
{
    Backups backups;
    QVERIFY(backups.manager.backups()->empty()); // there is no folder yet
    QVERIFY(backups.home.put(backups.manager.folder(), "not a folder"));
    const QString reason = backups.manager.backups().error().text();
    QVERIFY2(reason.startsWith(backups.manager.folder() + QStringLiteral(": ")), qPrintable(reason));
    QCOMPARE(backups.manager.backUpIfDue(), Outcome::failed);
    QCOMPARE(backups.writes, 0);
    QCOMPARE(backups.home.console.failures,
             QStringList{QStringLiteral("BackupManager: Backup failed: ") + reason});

    Backups pulled;
    pulled.afterWriting = [&pulled] {
        const QString folder = pulled.manager.folder();
        QVERIFY(QDir().rename(folder, folder + QStringLiteral(" elsewhere")));
        QVERIFY(pulled.home.put(folder, "not a folder"));
    };
    QCOMPARE(pulled.manager.backUpIfDue(), Outcome::made);
    QVERIFY(pulled.home.console.failures.size() == 1 &&
            pulled.home.console.failures.front().startsWith(
                QStringLiteral("BackupManager: Failed to remove excess backups: ")));
}

void BackupManagerTest::failedPruning()
{
    Backups backups;
    backups.home.defaults.values[QStringLiteral("backupRetention")] = QStringLiteral("ten");
    for (int day = 1; day <= 12; ++day)
        QVERIFY(backups.put(QStringLiteral("2026-01-%1").arg(day, 2, 10, QLatin1Char('0'))));
    backups.stubborn = backups.manager.folder() + QStringLiteral("/Backup-2026-01-03.ledradata");
    QCOMPARE(backups.manager.backUp(), Outcome::made);
    const QString line = backups.home.console.failures.join(u'|');
    QVERIFY2(line.startsWith(QStringLiteral("BackupManager: Failed to remove excess backups: ") +
                             backups.stubborn) &&
                 !line.contains(u'|'),
             qPrintable(line));
    QVERIFY(backups.names().startsWith(u"Backup-2026-01-01.ledradata Backup-2026-01-02.ledradata "));
}

void BackupManagerTest::afterAKill()
{
    Backups backups;
    QVERIFY(backups.home.put(backups.manager.todaysFile() + QStringLiteral(".Ab12cD"), "half of"));
    QVERIFY(backups.manager.backups()->empty());
    QCOMPARE(backups.manager.backUpIfDue(), Outcome::made);
    QCOMPARE(backups.names(), today);
}

void BackupManagerTest::retention_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<qsizetype>("left"); ///< of 110 and today's
    QTest::newRow("ten") << QStringLiteral("ten") << qsizetype{10};
    QTest::newRow("twenty") << QStringLiteral("twenty") << qsizetype{20};
    QTest::newRow("not chosen") << QString() << qsizetype{30};
    QTest::newRow("fifty") << QStringLiteral("fifty") << qsizetype{50};
    QTest::newRow("hundred") << QStringLiteral("hundred") << qsizetype{100};
    QTest::newRow("all") << QStringLiteral("all") << qsizetype{111};
}

void BackupManagerTest::retention()
{
    QFETCH(QString, stored);
    QFETCH(qsizetype, left);
    Backups backups;
    if (!stored.isEmpty())
        backups.home.defaults.values[QStringLiteral("backupRetention")] = stored;
    QStringList all = {today};
    for (int days = 1; days <= 110; ++days) {
        const QString day = dayText(QDate(2026, 3, 5).addDays(-days));
        QVERIFY(backups.put(day));
        all += QStringLiteral("Backup-%1.ledradata").arg(day);
    }
    QCOMPARE(backups.manager.backUpIfDue(), Outcome::made);
    QStringList expected = all.first(left); // the newest
    expected.sort();
    QCOMPARE(backups.names(), expected.join(u' '));
}

void BackupManagerTest::onlyDataFilesCount()
{
    Backups backups;
    backups.home.defaults.values[QStringLiteral("backupRetention")] = QStringLiteral("ten");
    for (const char* name : {"notes.txt", "Backup-2026-03-04.zip", "Backup-2026-03-04.LEDRADATA"})
        QVERIFY(backups.home.put(backups.manager.folder() + u'/' + QString::fromLatin1(name), "x"));
    for (int day = 1; day <= 12; ++day)
        QVERIFY(backups.put(QStringLiteral("2026-01-%1").arg(day, 2, 10, QLatin1Char('0'))));
    QCOMPARE(backups.manager.backUpIfDue(), Outcome::made);
    QCOMPARE(backups.manager.backups()->size(), std::size_t{10});
    QCOMPARE(backups.names().count(QStringLiteral("Backup-2026-01-0")), 6); // 04 to 09
    QVERIFY(backups.names().endsWith(QStringLiteral("notes.txt")));
}

void BackupManagerTest::creationDates()
{
    StoreHome home;
    const QString file = home.path(QStringLiteral("Backup-2020-02-03.ledradata"));
    const QDateTime before = QDateTime::currentDateTime().addSecs(-60);
    QVERIFY(home.put(file, "x"));
    QFile changed(file);
    QVERIFY(changed.open(QIODevice::ReadWrite));
    QVERIFY(
        changed.setFileTime(QDateTime(QDate(1999, 1, 1), QTime(0, 0)), QFileDevice::FileModificationTime));
    // As the file system says, or the day in the name where that keeps none; never the time of the last
    // change.
    const QDateTime created = creationDate(file);
    QVERIFY2(created > before || created.date() == QDate(2020, 2, 3),
             qPrintable(created.toString(Qt::ISODate)));
}

const ledra::test::RegisterSuite<BackupManagerTest> registration("backup_manager_test");

#include "backup_manager_test.moc"
