#include "model/next_reminder.h"
#include "model/reminder_variable.h"
#include "support/sample_invoice.h"
#include "support/test_suite.h"

using namespace ledra;

namespace {

/// 1000.00 of 1 April 2026, due on the 15th at three in the afternoon.
Invoice thousand()
{
    Invoice invoice = test::sampleInvoice();
    invoice.date = Timestamp::fromDateTime(QDateTime(QDate(2026, 4, 1), QTime(15, 0)));
    invoice.daysToPay = 14;
    invoice.items = {test::sampleItem(QStringLiteral("Design"), 1, Unit::lumpSum, 1000, 0)};
    return invoice;
}

Reminder reminderOn(QDate day, double rate = 9)
{
    Reminder reminder;
    reminder.date = day;
    reminder.interestPercentage = rate;
    reminder.fee = 40;
    return reminder;
}

QString expanded(const Invoice& invoice, const QString& text, Reminder reminder)
{
    reminder.text = text;
    return expandedReminderText({reminder, invoice, Profile()});
}

} // namespace

class ReminderTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void interest_data();
    void interest();
    void variables();
    void otherTextStaysAsItIs();
    void stages();
    void usualLetters_data();
    void usualLetters();
};

void ReminderTest::interest_data()
{
    QTest::addColumn<QDate>("day");
    QTest::addColumn<double>("interest");
    QTest::newRow("73 days") << QDate(2026, 6, 27) << 18.0;
    QTest::newRow("a year has 365 days in leap years too") << QDate(2028, 4, 14) << 180.0;
    QTest::newRow("one day") << QDate(2026, 4, 16) << 90.0 / 365;
    QTest::newRow("due day") << QDate(2026, 4, 15) << 0.0;
    QTest::newRow("before it") << QDate(2026, 4, 1) << 0.0;
    QTest::newRow("no day") << QDate() << 0.0;
}

void ReminderTest::interest()
{
    QFETCH(QDate, day);
    QFETCH(double, interest);
    QCOMPARE(interestAmount(reminderOn(day), thousand()), interest);
}

void ReminderTest::variables()
{
    Invoice invoice = thousand();
    const QString all = QStringLiteral("{{name}}|{{invoice-number}}|{{invoice-date}}|{{amount}}|"
                                       "{{payment-deadline}}|{{due-date}}|{{interest-amount}}|"
                                       "{{interest-rate}}|{{fee-amount}}");
    const Reminder reminder = reminderOn(QDate(2026, 6, 27));
    QCOMPARE(
        expanded(invoice, all, reminder),
        QStringLiteral(
            "Erika Muster|2026-007|1\u00a0April 2026|€1,000.00|11\u00a0July 2026|15\u00a0April 2026|€18.00|"
            "9.00|€40.00"));
    invoice.language = Language::german;
    QCOMPARE(
        expanded(invoice, all, reminder),
        QStringLiteral(
            "Erika Muster|2026-007|1.\u00a0April 2026|1.000,00\u00a0€|11.\u00a0Juli 2026|15.\u00a0April 2026|"
            "18,00\u00a0€|9.00|40,00\u00a0€"));
    for (const EnumText<ReminderVariable>& row : enumTexts<ReminderVariable>)
        QVERIFY2(all.contains(token(row.value)), row.rawValue.data());
}

void ReminderTest::otherTextStaysAsItIs()
{
    Invoice invoice = thousand();
    for (const char* text : {"", "no variables", "{{unknown}} {name} {{{name", "}} {{ name }} {{Name}}"})
        QCOMPARE(expanded(invoice, QString::fromLatin1(text), {}), QString::fromLatin1(text));
    // A value that looks like a token is a value.
    invoice.name = QStringLiteral("{{amount}}");
    QCOMPARE(expanded(invoice, QStringLiteral("{{name}}{{{name}}{{name}}"), {}),
             QStringLiteral("{{amount}}{{{amount}}{{amount}}"));
}

void ReminderTest::stages()
{
    const Invoice invoice = thousand();
    Profile profile;
    profile.latePaymentInterestRate = 9;
    std::vector<Reminder> earlier;
    for (const int stage : {0, 1, 2, 3, 4}) {
        const Reminder next = nextReminder(invoice, profile, earlier, QDate(2026, 5, 1));
        QVERIFY(next.invoiceId == invoice.id && next.date == QDate(2026, 5, 1));
        QCOMPARE(next.number, stage);
        QCOMPARE(next.interestPercentage, stage == 0 ? 0.0 : 9.0);
        QCOMPARE(next.fee, stage == 0 ? 0.0 : 40.0);
        earlier.insert(earlier.begin(), next); // whatever the order
    }
    profile.friendlyReminderEnabled = false;
    profile.reminderTemplate = QStringLiteral("Pay {{amount}}.");
    const Reminder first = nextReminder(invoice, profile, {}, QDate(2026, 5, 1));
    QCOMPARE(first.number, 1);
    QCOMPARE(first.text, profile.reminderTemplate);
    QStringList headlines;
    for (const int stage : {-1, 0, 1, 2, 3, 9})
        headlines += reminderHeadline(stage);
    QCOMPARE(headlines.join(u'|'),
             QStringLiteral("Friendly Reminder|Friendly Reminder|Payment Reminder|Second Payment "
                            "Reminder|Final Payment Reminder|Final Payment Reminder"));
}

void ReminderTest::usualLetters_data()
{
    QTest::addColumn<int>("stage");
    QTest::addColumn<Language>("language");
    for (const int stage : {0, 1, 2, 3, 7}) {
        QTest::addRow("%d, English", stage) << stage << Language::english;
        QTest::addRow("%d, German", stage) << stage << Language::german;
    }
}

void ReminderTest::usualLetters()
{
    QFETCH(int, stage);
    QFETCH(Language, language);
    Invoice invoice = thousand();
    invoice.language = language;
    Reminder reminder = reminderOn(QDate(2026, 6, 27));
    reminder.number = stage;
    const QString letter = expanded(invoice, usualReminderText(reminder, invoice, language), reminder);
    QVERIFY2(!letter.contains(u"Reminder ") && !letter.contains(u"{{"), qPrintable(letter)); // all is worded
    const bool isGerman = language == Language::german;
    for (const char* part : {"Erika Muster", "2026-007", isGerman ? "1.000,00" : "1,000.00",
                             isGerman ? "18,00" : "18.00", isGerman ? "40,00" : "40.00", "Paula Kern"})
        QVERIFY2(letter.contains(QLatin1StringView(part)), qPrintable(letter));
    reminder.fee = reminder.interestPercentage = 0;
    invoice.name.clear();
    const QString bare = expanded(invoice, usualReminderText(reminder, invoice, language), reminder);
    QVERIFY2(!bare.contains(u"€0.00") && !bare.contains(u" ,") && bare.size() < letter.size(),
             qPrintable(bare));
}

const ledra::test::RegisterSuite<ReminderTest> registration("reminder_test");

#include "reminder_test.moc"
