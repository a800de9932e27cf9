#include "store/reminder_json.h"
#include "store/reminder_manager.h"
#include "support/store_home.h"
#include "support/test_suite.h"

using namespace ledra;
using test::StoreHome;

namespace {

const QString id = QStringLiteral("9F2C4100-0000-4000-8000-000000000001");

struct Desk
{
    Desk()
    {
        home.ids.prepared = {QUuid::createUuid()}; // the profile's
        invoices = std::make_unique<InvoiceManager>(home.context, profiles);
        home.ids.prepared = {QUuid(id)};
        invoice = invoices->create(InvoiceType::invoice).value();
        reminders = std::make_unique<ReminderManager>(home.context, profiles, *invoices);
    }

    QString file(const QString& name = {}) const
    {
        return home.data(QStringLiteral("1_Default/Invoices/") + name);
    }

    /// The names of the reminders' files.
    QString names() const
    {
        return QDir(file()).entryList({QStringLiteral("*eminder*")}, QDir::Files, QDir::Name).join(u' ');
    }

    bool put(const char* name, const QByteArray& json) const
    {
        return home.put(file(QString::fromLatin1(name)), json);
    }

    StoreHome home;
    ProfileManager profiles{home.context};
    std::unique_ptr<InvoiceManager> invoices;
    std::unique_ptr<ReminderManager> reminders;
    InvoicePtr invoice;
};

QByteArray json(const QString& reminderId, const char* rest)
{
    return "{\"id\": \"" + reminderId.toLatin1() + "\", \"invoiceId\": \"" + id.toLatin1() + "\"" + rest +
           "}";
}

} // namespace

class ReminderManagerTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void filesOfReminders();
    void reading_data();
    void reading();
    void olderNamesAreRenamed();
    void deletedInvoice();
    void namesFollowTheInvoice();
    void twoOfOneStage();
    void outsideChanges();
};

void ReminderManagerTest::filesOfReminders()
{
    Desk desk;
    const ReminderPtr friendly = desk.reminders->create((*desk.invoice)->id).value();
    const ReminderPtr first = desk.reminders->create((*desk.invoice)->id).value();
    QCOMPARE(desk.names(),
             QStringLiteral("2026-03-05-9F2C41-reminder-1.json 2026-03-05-9F2C41-reminder.json"));
    QCOMPARE(desk.reminders->remindersOf((*desk.invoice)->id), std::vector({friendly, first}));

    QVERIFY(desk.reminders->edit((*first)->id, [](Reminder& reminder) {
        reminder.text = QStringLiteral("Zahlen Sie!");
        reminder.interestPercentage = 9;
        reminder.number = 2;
    }));
    QCOMPARE(readFile(desk.file(QStringLiteral("2026-03-05-9F2C41-reminder-2.json")), 10'000).value(),
             QByteArray("{\n  \"id\": \"" + idText((*first)->id).toLatin1() +
                        "\",\n  \"version\": 1,\n  \"invoiceId\": \"9F2C4100-0000-4000-8000-000000000001\",\n"
                        "  \"date\": \"2026-03-05\",\n  \"number\": 2,\n  \"text\": \"Zahlen Sie!\",\n"
                        "  \"interestPercentage\": 9.0,\n  \"fee\": 40.0\n}\n"));
    const QByteArray text = fileText(**friendly); // neither interest nor fee
    QVERIFY2(!text.contains("fee\"") && !text.contains("interest\""), text.constData());

    QVERIFY(desk.reminders->remove((*first)->id));
    QCOMPARE(desk.names(), QStringLiteral("2026-03-05-9F2C41-reminder.json"));
    QCOMPARE(desk.reminders->reminders(), std::vector({friendly}));
    QCOMPARE(desk.home.trash.filesFrom(desk.home.data()).size(), std::size_t{1});
    QVERIFY(!desk.reminders->edit((*first)->id, [](Reminder&) {}));
    QVERIFY(!desk.reminders->create(QUuid::createUuid()));
}

void ReminderManagerTest::reading_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<bool>("isRead");
    const QString any = QStringLiteral("AB2C4100-0000-4000-8000-000000000002");
    QTest::newRow("only the invoice") << QByteArray("{\"invoiceId\": \"" + any.toLatin1() + "\"}") << true;
    QTest::newRow("no day") << json(any, ", \"date\": \"next week\"") << true;
    QTest::newRow("a day of another form") << json(any, ", \"date\": 12345.0") << true;
    QTest::newRow("nulls and unknown keys") << json(any, ", \"fee\": null, \"paid\": {\"a\": []}") << true;
    QTest::newRow("no invoice") << QByteArray("{\"text\": \"a\"}") << false;
    QTest::newRow("invoice that is none") << QByteArray("{\"invoiceId\": \"7\"}") << false;
    QTest::newRow("text that is none") << json(any, ", \"text\": 1") << false;
    QTest::newRow("half a file") << json(any, "").left(30) << false;
}

void ReminderManagerTest::reading()
{
    QFETCH(QByteArray, json);
    QFETCH(bool, isRead);
    StoreHome home;
    const Decoded<Reminder> reminder = decodeReminder(json, home.context.newRecordValues());
    QCOMPARE(reminder.has_value(), isRead);
    if (isRead) {
        QVERIFY(!reminder->id.isNull());
        QVERIFY(reminder->date == QDate(2026, 3, 5) && reminder->version == 1 && reminder->number == 0 &&
                reminder->fee == 0 && reminder->interestPercentage == 0 && reminder->text.isEmpty());
    }
}

void ReminderManagerTest::olderNamesAreRenamed()
{
    Desk desk;
    const QByteArray old = json(QStringLiteral("AB2C4100-0000-4000-8000-000000000002"),
                                ", \"number\": 2, \"colour\": \"of a newer version\"");
    QVERIFY(desk.put("Reminder 2 of 9F2C4100.json", old));
    QVERIFY(desk.put("reminder-broken.json", "{"));
    QCOMPARE(desk.reminders->reminders().size(), std::size_t{1});
    QCOMPARE(desk.names(), QStringLiteral("2026-03-05-9F2C41-reminder-2.json reminder-broken.json"));
    QCOMPARE(readFile(desk.file(QStringLiteral("2026-03-05-9F2C41-reminder-2.json")), 10'000).value(), old);
    QCOMPARE(desk.home.console.failures.size(), 1);
    QVERIFY(desk.home.console.failures.front().contains(u"reminder-broken.json"));
}

void ReminderManagerTest::deletedInvoice()
{
    Desk desk;
    desk.home.ids.prepared = {QUuid(QStringLiteral("AF000000-0000-4000-8000-000000000003")),
                              QUuid(QStringLiteral("5F000000-0000-4000-8000-000000000004"))};
    const ReminderPtr friendly = desk.reminders->create((*desk.invoice)->id).value();
    const ReminderPtr first = desk.reminders->create((*desk.invoice)->id).value();
    QVERIFY(desk.invoices->remove((*desk.invoice)->id));
    const QString before = desk.names();
    desk.reminders->load();
    QCOMPARE(desk.names(), before); // what only looks on renames nothing
    for (const ReminderPtr& reminder : {friendly, first})
        QVERIFY(desk.reminders->save((*reminder)->id));
    QCOMPARE(desk.names(),
             QStringLiteral("2026-03-05-reminder-1-5F0000.json 2026-03-05-reminder-AF0000.json"));
}

void ReminderManagerTest::namesFollowTheInvoice()
{
    Desk desk;
    QVERIFY(desk.reminders->create((*desk.invoice)->id));
    QVERIFY(desk.invoices->edit((*desk.invoice)->id, [](Invoice& invoice) {
        invoice.date = Timestamp::fromIso8601(QStringLiteral("2026-04-01T12:00:00Z")).value();
    }));
    QCOMPARE(desk.names(), QStringLiteral("2026-04-01-9F2C41-reminder.json"));
    QCOMPARE(StoreHome::names(desk.file()),
             QStringLiteral("2026-04-01-9F2C41-reminder.json 2026-04-01-9F2C41.json"));
    QCOMPARE(desk.invoices->invoices().size(), std::size_t{1}); // reminders are no invoices
}

void ReminderManagerTest::twoOfOneStage()
{
    Desk desk;
    const ReminderPtr friendly = desk.reminders->create((*desk.invoice)->id).value();
    const ReminderPtr first = desk.reminders->create((*desk.invoice)->id).value();
    QVERIFY(desk.reminders->edit((*first)->id, [](Reminder& reminder) { reminder.number = 0; }));
    QCOMPARE(desk.names(), // the second keeps its name: neither is written over
             QStringLiteral("2026-03-05-9F2C41-reminder-1.json 2026-03-05-9F2C41-reminder.json"));
    // A sync service's copy of one of them is reported and left alone.
    const QByteArray copy =
        readFile(desk.file(QStringLiteral("2026-03-05-9F2C41-reminder.json")), 9999).value();
    QVERIFY(desk.put("2026-03-05-9F2C41-reminder (2).json", copy));
    desk.reminders->load();
    QCOMPARE(desk.reminders->reminders().size(), std::size_t{2});
    QVERIFY(desk.home.console.failures.join(u'|').contains(u"a second file of the reminder"));
    QVERIFY(QFile::exists(desk.file(QStringLiteral("2026-03-05-9F2C41-reminder (2).json"))));
    QVERIFY(**friendly == **desk.reminders->find((*friendly)->id));
}

void ReminderManagerTest::outsideChanges()
{
    Desk desk;
    const ReminderPtr reminder = desk.reminders->create((*desk.invoice)->id).value();
    const QString file = desk.reminders->filePath((*reminder)->id);
    QByteArray content = readFile(file, 10'000).value();
    QVERIFY(desk.home.put(file, content.replace("\"number\": 0", "\"number\": 0, \"fee\": 5.0")));
    // Editing takes in what somebody else has written, and keeps the rest of it.
    QVERIFY(desk.reminders->edit((*reminder)->id, [](Reminder& changed) { changed.text = QString(u'x'); }));
    QVERIFY((*reminder)->fee == 5 && (*reminder)->text == u"x");
    QVERIFY(desk.home.console.failures.isEmpty());
    QVERIFY(QFile::remove(file));
    desk.reminders->load();
    QVERIFY(desk.reminders->reminders().empty());
}

const ledra::test::RegisterSuite<ReminderManagerTest> registration("reminder_manager_test");

#include "reminder_manager_test.moc"
