#include "store/invoice_manager.h"
#include "support/store_home.h"
#include "support/test_suite.h"

#include <QSignalSpy>

using namespace ledra;
using test::StoreHome;
using test::texts;

class InvoiceManagerTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void numbers_data();
    void numbers();
    void newRecords();
    void copies();
    void idsThatBeginAlike();
    void secondFiles();
    void dateMovesFile();
    void undoableStatus();
    void failedAndForeignVersions();
    void outsideChanges();
    void storm();
};

namespace {

/// A home with a profile and its invoices.
struct Invoices
{
    explicit Invoices(bool watches = false) : home(watches), profiles(home.context) {}

    QString folder() const { return home.data(QStringLiteral("1_Default/Invoices")); }
    QString file(const QString& name) const { return folder() + u'/' + name; }

    Invoice record(const char* id, const char* day, std::int64_t number) const
    {
        Invoice invoice = newInvoice(QUuid::fromString(QString::fromLatin1(id)), home.clock.now(), {});
        invoice.date =
            Timestamp::fromIso8601(QString::fromLatin1(day) + QStringLiteral("T12:00:00Z")).value();
        invoice.number = number;
        return invoice;
    }

    bool put(const Invoice& invoice, const QString& name = {}) const
    {
        return home.put(file(name.isEmpty() ? invoiceFileName(invoice) : name), fileText(invoice));
    }

    StoreHome home;
    ProfileManager profiles;
};

constexpr const char* idA = "9F2C41AA-0000-4000-8000-000000000001";
constexpr const char* idB = "B0000000-0000-4000-8000-000000000002";

} // namespace

void InvoiceManagerTest::numbers_data()
{
    QTest::addColumn<QString>("frequency");
    QTest::addColumn<QString>("start"); // startNumber, and startNumberYear if any
    QTest::addColumn<int>("type");
    QTest::addColumn<qint64>("number");
    // The folder holds the invoices 2024/3 and 2025/7 and a cancellation 2024/9; today lies in 2024.
    QTest::newRow("yearly") << "year" << "1" << static_cast<int>(InvoiceType::invoice) << qint64{4};
    QTest::newRow("never") << "never" << "1" << static_cast<int>(InvoiceType::invoice) << qint64{8};
    QTest::newRow("own range") << "year" << "1" << static_cast<int>(InvoiceType::quote) << qint64{1};
    QTest::newRow("start, range in use")
        << "year" << "50" << static_cast<int>(InvoiceType::invoice) << qint64{4};
    QTest::newRow("start, first quote")
        << "year" << "50" << static_cast<int>(InvoiceType::quote) << qint64{1};
}

void InvoiceManagerTest::numbers()
{
    QFETCH(QString, frequency);
    QFETCH(QString, start);
    QFETCH(int, type);
    Invoices place;
    place.home.clock.set("2024-06-01T10:00:00Z");
    Profile profile = **place.profiles.activeProfile();
    profile.resetNumberFrequency =
        frequency == u"never" ? NumberResetFrequency::never : NumberResetFrequency::year;
    profile.startNumber = start.toInt();
    QVERIFY(place.profiles.saveProfile(profile, QStringLiteral("1_Default")));
    QVERIFY(place.put(place.record(idA, "2024-01-01", 3)));
    QVERIFY(place.put(place.record(idB, "2025-02-01", 7)));
    Invoice cancellation = place.record("C0000000-0000-4000-8000-000000000003", "2024-03-01", 9);
    cancellation.type = InvoiceType::cancellation;
    QVERIFY(place.put(cancellation));

    InvoiceManager manager(place.home.context, place.profiles);
    const auto made = manager.create(static_cast<InvoiceType>(type));
    QTEST(qint64{(**made)->number}, "number");
    // An empty range begins where the profile says, in the year that it says.
    place.home.clock.set("2027-06-01T10:00:00Z");
    const auto first = manager.create(InvoiceType::invoice);
    QCOMPARE((**first)->number, frequency == u"never" ? (type == 0 ? 9 : 8) : start.toInt());
}

void InvoiceManagerTest::newRecords()
{
    Invoices place;
    QVERIFY(place.home.put(place.file(QStringLiteral("2026-01-01-AAAAAA-Reminder-1.json")), "{"));
    InvoiceManager manager(place.home.context, place.profiles);
    QVERIFY(manager.invoices().empty() && place.home.console.failures.isEmpty());
    QSignalSpy saved(&manager, &InvoiceManager::saved);
    place.home.ids.prepared = {QUuid::fromString(QString::fromLatin1(idA))};
    const auto quote = manager.create(InvoiceType::quote, [](Invoice& invoice) {
        invoice.items.push_back({QUuid::createUuid(), QStringLiteral("Work"), 2, Unit::hour, 80, 19});
    });
    QCOMPARE(StoreHome::names(place.folder()),
             QStringLiteral("2026-01-01-AAAAAA-Reminder-1.json 2026-03-05-9F2C41.json"));
    QCOMPARE((**quote)->quotePrefix, QStringLiteral("AN-"));
    QCOMPARE((**quote)->numberFormat, QStringLiteral("{YYYY}-{NNN}"));
    QCOMPARE(manager.newlyCreatedInvoiceId(), (**quote)->id);
    QCOMPARE(saved.size(), 1);
    QVERIFY(place.home.console.informations.contains(
        QStringLiteral("InvoiceManager: Loaded 1 invoices, refreshTrigger: 2")));
    const InvoiceManager again(place.home.context, place.profiles);
    QVERIFY(***quote == **again.invoices().front());
}

void InvoiceManagerTest::copies()
{
    Invoices place;
    InvoiceManager manager(place.home.context, place.profiles);
    const InvoicePtr source = *manager.create(InvoiceType::invoice, [](Invoice& invoice) {
        invoice.items.push_back({QUuid::createUuid(), QStringLiteral("Up"), 1, Unit::piece, 100, 19});
        invoice.items.push_back({QUuid::createUuid(), QStringLiteral("Down"), 1, Unit::piece, -10, 19});
        invoice.numberVariable = QStringLiteral("V");
        invoice.status = Status::sent;
    });
    place.home.clock.set("2026-04-01T10:00:00Z");
    const InvoicePtr twin = *manager.duplicate((*source)->id);
    QCOMPARE((*twin)->number, (*source)->number + 1);
    QVERIFY((*twin)->status == Status::draft && (*twin)->date == place.home.clock.now());
    QVERIFY((*twin)->items.front().id != (*source)->items.front().id);
    QVERIFY((*twin)->numberVariable.isEmpty());

    const InvoicePtr cancellation = *manager.createCancellation((*source)->id);
    QCOMPARE((*cancellation)->cancelledInvoiceId, (*source)->id);
    QCOMPARE((*cancellation)->number, 1);
    QCOMPARE((*cancellation)->items[0].unitPrice, -100.0);
    QCOMPARE((*cancellation)->items[1].unitPrice, -10.0);
    QCOMPARE((*cancellation)->numberVariable, QStringLiteral("V"));
    QVERIFY((*source)->status == Status::cancelled);
    const Timestamp cancelledAt = (*source)->statusUpdateDate;
    QCOMPARE(cancelledAt.toIso8601(), QStringLiteral("2026-04-01T10:00:00Z"));
    place.home.clock.set("2026-05-01T10:00:00Z");
    QVERIFY(manager.createCancellation((*source)->id));
    QVERIFY((*source)->statusUpdateDate == cancelledAt);

    const InvoicePtr quote = *manager.create(InvoiceType::quote);
    const InvoicePtr invoice = *manager.createInvoiceFromQuote((*quote)->id);
    QVERIFY((*invoice)->type == InvoiceType::invoice && (*invoice)->quoteId == (*quote)->id);
    QVERIFY(!(*invoice)->quotePrefix && (*quote)->status == Status::draft);
}

void InvoiceManagerTest::idsThatBeginAlike()
{
    Invoices place;
    InvoiceManager manager(place.home.context, place.profiles);
    const Invoice taken = place.record(idA, "2026-03-05", 1);
    QVERIFY(place.put(taken)); // after loading: seen when the next record is made
    const QUuid alike = QUuid::fromString(QStringLiteral("9F2C41FF-0000-4000-8000-000000000009"));
    const QUuid other = QUuid::fromString(QString::fromLatin1(idB));
    place.home.ids.prepared = {alike, other};
    QCOMPARE((**manager.create(InvoiceType::invoice))->id, other);

    Invoice imported = place.record("9F2C41EE-0000-4000-8000-000000000008", "2026-03-05", 5);
    QVERIFY(!manager.insert(imported));
    QVERIFY(!manager.insert(taken));
    imported.date = Timestamp::fromIso8601(QStringLiteral("2026-03-06T10:00:00Z")).value();
    QVERIFY(manager.insert(imported));
    QCOMPARE(test::StoreHome::names(place.folder()),
             QStringLiteral("2026-03-05-9F2C41.json 2026-03-05-B00000.json 2026-03-06-9F2C41.json"));
    // An edit that would move a file onto another one's name leaves it where it is.
    QVERIFY(manager.edit(imported.id, [&](Invoice& invoice) { invoice.date = taken.date; }));
    QCOMPARE(manager.filePath(imported.id), place.file(QStringLiteral("2026-03-06-9F2C41.json")));
}

void InvoiceManagerTest::secondFiles()
{
    Invoices place;
    Invoice invoice = place.record(idA, "2026-03-05", 1);
    QVERIFY(place.put(invoice));
    const QString copy = QStringLiteral("2026-03-05-9F2C41 (conflicted copy).json");
    invoice.note = QStringLiteral("theirs");
    QVERIFY(place.put(invoice, copy));
    InvoiceManager manager(place.home.context, place.profiles);
    QCOMPARE(manager.invoices().size(), std::size_t{1});
    QVERIFY((*manager.invoices().front())->note.isEmpty());
    QCOMPARE(place.home.console.failures.size(), 1);
    QVERIFY(
        place.home.console.failures.front().startsWith(place.file(copy) + QStringLiteral(": a second file")));
    QCOMPARE(manager.secondFiles().size(), std::size_t{1});

    QVERIFY(QFile::remove(place.file(QStringLiteral("2026-03-05-9F2C41.json"))));
    manager.loadAll();
    QCOMPARE((*manager.invoices().front())->note, QStringLiteral("theirs"));
    QVERIFY(manager.secondFiles().empty());
}

void InvoiceManagerTest::dateMovesFile()
{
    Invoices place;
    QVERIFY(place.put(place.record(idA, "2026-03-05", 1), QStringLiteral("2026-03-04-9F2C41.json")));
    InvoiceManager manager(place.home.context, place.profiles);
    const QUuid id = (*manager.invoices().front())->id;
    // A name that another time zone has given stays until an edit moves the day.
    QVERIFY(manager.edit(id, [](Invoice& invoice) { invoice.note = QStringLiteral("x"); }));
    QCOMPARE(StoreHome::names(place.folder()), QStringLiteral("2026-03-04-9F2C41.json"));
    QVERIFY(
        manager.edit(id, [&](Invoice& invoice) { invoice.date = place.record(idA, "2026-07-01", 1).date; }));
    QCOMPARE(StoreHome::names(place.folder()), QStringLiteral("2026-07-01-9F2C41.json"));
    QVERIFY(manager.fileExists(id));
}

void InvoiceManagerTest::undoableStatus()
{
    Invoices place;
    InvoiceManager manager(place.home.context, place.profiles);
    const InvoicePtr record = *manager.create(InvoiceType::invoice);
    const Timestamp before = (*record)->statusUpdateDate;
    QVERIFY(manager.setStatus((*record)->id, Status::draft));
    QCOMPARE(manager.undoStack().count(), 0);
    place.home.clock.set("2026-04-01T10:00:00Z");
    QVERIFY(manager.setStatus((*record)->id, Status::paid));
    QVERIFY((*record)->statusUpdateDate == place.home.clock.now());
    manager.undoStack().undo();
    QVERIFY((*record)->status == Status::draft && (*record)->statusUpdateDate == before);
    const InvoiceManager fresh(place.home.context, place.profiles);
    QVERIFY(**fresh.invoices().front() == **record);
    QUndoStack window;
    manager.setUndoStackSource([&] { return &window; });
    QVERIFY(manager.setStatus((*record)->id, Status::sent));
    QCOMPARE(window.count(), 1);
}

void InvoiceManagerTest::failedAndForeignVersions()
{
    Invoices place;
    InvoiceManager manager(place.home.context, place.profiles);
    const InvoicePtr record = *manager.create(InvoiceType::invoice);
    const QUuid id = (*record)->id;
    const QString path = manager.filePath(id);
    manager.editSoon(id, [](Invoice& invoice) { invoice.note = QStringLiteral("mine"); });
    Invoice theirs = **record;
    theirs.note = QStringLiteral("theirs");
    QVERIFY(place.home.put(path, fileText(theirs)));
    manager.loadAll();
    QCOMPARE((*record)->note, QStringLiteral("mine")); // what is being typed stays
    manager.flush();
    const std::vector<Conflict> conflicts = place.home.writer.conflicts().all();
    QCOMPARE(conflicts.size(), std::size_t{1});
    QCOMPARE(readFile(conflicts.front().path, largestRecordFile).value(), fileText(theirs));
    QCOMPARE(readFile(path, largestRecordFile).value(), fileText(**record));

    QVERIFY(QFile::remove(path) && QDir().mkpath(path)); // now it cannot be written
    place.home.console.failures.clear();
    QVERIFY(!manager.edit(id, [](Invoice& invoice) { invoice.note = QStringLiteral("kept"); }));
    QVERIFY(place.home.console.failures.back().startsWith(QStringLiteral("Error saving invoice: ")));
    QVERIFY(QDir().rmdir(path));
    manager.loadAll();
    QCOMPARE((*manager.find(id))->note, QStringLiteral("kept"));
    QVERIFY(manager.save(id));
    QCOMPARE(readFile(path, largestRecordFile).value(), fileText(**record));
}

void InvoiceManagerTest::outsideChanges()
{
    Invoices place(true);
    InvoiceManager manager(place.home.context, place.profiles); // the folder does not exist yet
    QSignalSpy refreshed(&manager, &InvoiceManager::refreshed);
    Invoice invoice = place.record(idA, "2026-03-05", 1);
    const QString path = place.file(invoiceFileName(invoice));
    const auto note = [&] {
        return manager.invoices().empty() ? QString() : (*manager.invoices().front())->note;
    };
    const auto becomes = [&](const QString& expected) {
        while (note() != expected && refreshed.wait())
            continue;
        return note() == expected;
    };
    invoice.note = QStringLiteral("new");
    QVERIFY(place.put(invoice));
    QVERIFY(becomes(invoice.note));
    const InvoicePtr record = manager.invoices().front();
    invoice.note = QStringLiteral("in place");
    QVERIFY(place.put(invoice));
    QVERIFY(becomes(invoice.note));
    invoice.note = QStringLiteral("replaced");
    QVERIFY(place.home.put(place.home.path(QStringLiteral("draft")), fileText(invoice)));
    QCOMPARE(::rename(qPrintable(place.home.path(QStringLiteral("draft"))), qPrintable(path)), 0);
    QVERIFY(becomes(invoice.note));
    QCOMPARE(manager.invoices().front(), record);

    // Own writes do not come back: the event behind them finds the list as it is.
    QVERIFY(manager.edit(invoice.id, [](Invoice& own) { own.note = QStringLiteral("own"); }));
    refreshed.clear();
    QVERIFY(QFile::remove(path));
    QVERIFY(becomes(QString()));
    QVERIFY(manager.invoices().empty());
    QCOMPARE(refreshed.size(), 1);
}

void InvoiceManagerTest::storm()
{
    constexpr int count = 10'000;
    Invoices place(true);
    InvoiceManager manager(place.home.context, place.profiles);
    QVERIFY(manager.create(InvoiceType::invoice));
    const InvoicePtr record = manager.invoices().front();
    QCoreApplication::processEvents();
    const InvoiceFolder::Work before = manager.work();
    QSignalSpy refreshed(&manager, &InvoiceManager::refreshed);
    Invoice changed = **record;
    for (int i = 0; i < count; ++i) {
        // Few rewrites among many new files: some file systems make each rewrite durable.
        const bool isRecord = i % 1000 == 0;
        changed.note = QString::number(i);
        QVERIFY(
            place.put(changed, isRecord ? QString() : QStringLiteral("2026-01-01-reminder-%1.json").arg(i)));
    }
    while ((*record)->note != QString::number(count - 1000))
        QVERIFY(refreshed.wait());
    QCOMPARE(manager.work().scans, before.scans + 1);
    QVERIFY(manager.work().filesRead <= before.filesRead + 2);
    QCOMPARE(refreshed.size(), 1);
    QCOMPARE(manager.invoices().front(), record);
}

const ledra::test::RegisterSuite<InvoiceManagerTest> registration("invoice_manager_test");

#include "invoice_manager_test.moc"
