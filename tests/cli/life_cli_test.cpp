#include "support/data_text.h"
#include "support/program_run.h"
#include "support/test_suite.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>

using namespace ledra;
using test::contentOf;
using test::filled;
using test::pretty;
using test::ProgramRun;

namespace {

// A date is NOW, and an id that comes nowhere else is NEW.
constexpr auto recordText =
    R"({"version":2,"type":"%1","id":"%2",%3"numberFormat":"{YYYY}-{NNN}","numberVariable":"",%4"date":NOW,)"
    R"("serviceDateStart":NOW,"recipient":{"name":"%5","businessName":"","address":{"lineOne":"","lineTwo":"",)"
    R"("postcode":"","city":"","state":"","country":"DE"},"email":""},"sender":{"name":"Paula Kern",)"
    R"("businessName":"Studio Meridian","address":{"lineOne":"Lindenallee 12","lineTwo":"","postcode":"10115",)"
    R"("city":"Köln","state":"","country":"DE"},"email":"","phone":"","web":"","additional":"","iban":"DE02",)"
    R"("bic":"","taxNumber":"","vatNumber":"","additionalNumbers":""},"items":[%6],"grossPrices":false,)"
    R"("vatExemptionReason":"none","marginalNote":"","daysToPay":10,"currency":"EUR","language":"de",)"
    R"("status":"Draft","statusUpdateDate":NOW,"note":""})";
constexpr auto profileText =
    R"({"id":"PROFILE","icon":"person.fill","name":"Paula Kern","businessName":"Studio Meridian",)"
    R"("address":{"lineOne":"Lindenallee 12","lineTwo":"","postcode":"10115","city":"Köln","state":"",)"
    R"("country":"DE"},"email":"","phone":"","website":"","additional":"","iban":"DE02","bic":"",)"
    R"("taxNumber":"","vatNumber":"","additionalNumbers":"","language":"de","currency":"EUR",)"
    R"("taxResidency":"DE","vatPercentage":19.0,"hideVat":false,"vatExemptionReason":"none",)"
    R"("marginalNote":"","numberFormat":"{YYYY}-{NNN}","cancellationPrefix":"STO-","quotePrefix":"ANG-",)"
    R"("startNumber":1,"resetNumberFrequency":"year","daysToPay":10,"hourlyRate":80.0,"dailyRate":600.5,)"
    R"("weeklyRate":0.0,"invoiceDarkMode":false,"reminderTemplate":"","friendlyReminderEnabled":true,)"
    R"("latePaymentInterestRate":0.0,"latePaymentFee":40.0})";

constexpr auto itemText =
    R"({"id":"NEW","quantity":%1,"unit":"%2","unitPrice":%3,"vatPercentage":%4,"description":"%5"})";

/// The text of a draft; everything that is not said here is the same in all records of this test.
QString draft(const char* type, const char* name, const char* references, const char* prefix,
              const char* recipient, const QByteArray& items)
{
    return pretty(filled(recordText, {type, name, references, prefix, recipient, items}));
}

} // namespace

/// The life of a user's data, told by commands; each test goes on where the one before it ended.
class LifeCliTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void firstStart();
    void newRecordsTakeWhatTheProfileHas();
    void copiesOfRecords();
    void deletedRecordComesBack();
    void listForPrograms();
    void numbersBeginAnewEachYear();
    void sentRecordIsGuarded_data();
    void sentRecordIsGuarded();
    void secondProfile();
    void dataFolderMoves();

private:
    bool make(const char* name, const char* command, const QStringList& more = {});
    QString id(const char* name) const { return home_.ids.value(QString::fromLatin1(name)); }
    QStringList filesOf(const char* name) const
    {
        return QDir(invoices_).entryList({u'*' + id(name).left(6) + u'*'});
    }
    QString fileOf(const char* name) const { return invoices_ + filesOf(name).value(0); }
    QString normalised(const QString& file) const;
    QString textOf(const char* name) const { return normalised(fileOf(name)); }

    test::ProgramHome home_;
    QString invoices_ = home_.data(QStringLiteral("1_Default/Invoices/"));
    qint64 begin_ = test::secondsNow();
};

/// Makes a record, whose id is all that is printed, and whose file is named after its day and that id.
bool LifeCliTest::make(const char* name, const char* command, const QStringList& more)
{
    const ProgramRun made = home_.run(command, more);
    const QString id = QString::fromLatin1(made.output).trimmed();
    home_.ids[QString::fromLatin1(name)] = id;
    const double date = QJsonDocument::fromJson(contentOf(fileOf(name)))[QStringLiteral("date")].toDouble();
    const auto moment = QDateTime::currentDateTime().addSecs(static_cast<qint64>(date) - test::secondsNow());
    return made.exitCode == 0 && made.errors.isEmpty() && made.output == id.toLatin1() + '\n' &&
           filesOf(name).join(u'|') ==
               moment.toString(QStringLiteral("yyyy-MM-dd'-%1.json'")).arg(id.left(6));
}

/// A data file's text with the names for the ids, and "NOW" for moments since this test began.
QString LifeCliTest::normalised(const QString& file) const
{
    static const QRegularExpression otherId(QStringLiteral("[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}"));
    QString text = QString::fromUtf8(contentOf(file));
    for (const auto& [name, id] : home_.ids.asKeyValueRange())
        text.replace(id, name);
    for (qint64 moment = begin_; moment <= test::secondsNow(); ++moment)
        text.replace(QStringLiteral(": %1.0").arg(moment), QStringLiteral(": NOW"));
    return text.replace(otherId, QStringLiteral("NEW"));
}

void LifeCliTest::firstStart()
{
    QVERIFY(home_.succeeds("list"));
    QCOMPARE(QDir(home_.data()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList{QStringLiteral("1_Default")});
    const QString profile = home_.data(QStringLiteral("1_Default/profile.json"));
    const QString id = QJsonDocument::fromJson(contentOf(profile))[QStringLiteral("id")].toString();
    home_.ids[QStringLiteral("PROFILE")] = id;
    QCOMPARE(normalised(home_.path(QStringLiteral("config/Ledra/Ledra.conf"))),
             QStringLiteral("[General]\nactiveProfileId=PROFILE\n"));
    QVERIFY(home_.succeeds(
        R"(profile set Default "name=Paula Kern" "businessName=Studio Meridian" address.city=Köln )"
        R"("address.lineOne=Lindenallee 12" address.postcode=10115 iban=DE02 hourlyRate=80 daysToPay=10 )"
        "dailyRate=600.5 vatPercentage=19 quotePrefix=ANG- cancellationPrefix=STO-"));
    QCOMPARE(normalised(profile), pretty(profileText));
}

void LifeCliTest::newRecordsTakeWhatTheProfileHas()
{
    QVERIFY(make("A", "new invoice --item",
                 {QStringLiteral("\"Work; \"\"more\"\"\";2;hour"), QStringLiteral("--set"),
                  QStringLiteral("recipient.name=Ada \\ \"L\"/\n\x01ü")}));
    QCOMPARE(textOf("A"), draft("invoice", "A", R"("number":1,)", "", R"(Ada \\ \"L\"/\n\u0001ü)",
                                filled(itemText, {"2.0", "Hour", "80.0", "19.0", R"(Work; \"more\")"})));
    QVERIFY(make("B", "new invoice --set recipient.name=Bob --item Trip;1.5;day;;7 --item Rebate;1;;-12.25"));
    QVERIFY(make("C", "new invoice --set recipient.name=Cy --item Sundry"));
    QVERIFY(make("Q", R"(new quote --set recipient.name=Di --item "Tour;1;Lump Sum;1000")"));
}

void LifeCliTest::copiesOfRecords()
{
    QVERIFY(make("D", "convert", {QDate::currentDate().toString(QStringLiteral("'ANG-'yyyy'-001'"))}));
    const QByteArray tour = filled(itemText, {"1.0", "Lump Sum", "1000.0", "19.0", "Tour"});
    QCOMPARE(textOf("Q"), draft("quote", "Q", R"("number":1,)", R"("quotePrefix":"ANG-",)", "Di", tour));
    QCOMPARE(textOf("D"), draft("invoice", "D", R"("quoteId":"Q","number":4,)", "", "Di", tour));

    QVERIFY(make("E", "duplicate", {id("B").left(6)}));
    QVERIFY(make("X", "cancel", {id("B").toLower()}));
    const QByteArray rebate = filled(itemText, {"1.0", "Piece", "-12.25", "19.0", "Rebate"});
    const QByteArray items = filled(itemText, {"1.5", "Day", "600.5", "7.0", "Trip"}) + ',' + rebate;
    QCOMPARE(textOf("E"), draft("invoice", "E", R"("number":5,)", "", "Bob", items));
    QCOMPARE(textOf("B"), draft("invoice", "B", R"("number":2,)", "", "Bob", items)
                              .replace(QStringLiteral("Draft"), QStringLiteral("Cancelled")));
    QCOMPARE(textOf("X"), draft("cancellation", "X", R"("cancelledInvoiceId":"B","number":1,)",
                                R"("cancellationPrefix":"STO-",)", "Bob",
                                filled(itemText, {"1.5", "Day", "-600.5", "7.0", "Trip"}) + ',' + rebate));
}

void LifeCliTest::deletedRecordComesBack()
{
    const QString file = fileOf("E");
    const QByteArray before = contentOf(file);
    QVERIFY(home_.succeeds("delete {E}") && !QFile::exists(file));
    QCOMPARE(home_.json("trash list --json")[0][QStringLiteral("id")].toString(), id("E"));
    QVERIFY(test::writeFile(file, "{}")); // its place is taken
    QVERIFY(home_.run("trash restore {E}").exitCode == 1 && contentOf(file) == "{}");
    QVERIFY(QFile::remove(file) && home_.succeeds("trash restore {E}"));
    QCOMPARE(contentOf(file), before);
}

void LifeCliTest::listForPrograms()
{
    const QByteArray text = home_.run("list --json --search bob --type cancellation").output;
    static const QRegularExpression marks(QStringLiteral("\": [^\n]*|[^\\w\n]+"));
    QCOMPARE(
        QString::fromUtf8(text).remove(marks).simplified(),
        QStringLiteral("id type number formattedNumber status date dueDate name total currency isOverdue"));
    const QJsonObject row = QJsonDocument::fromJson(text)[0].toObject();
    const auto value = [&](const char* key) { return row[QString::fromLatin1(key)].toString(); };
    const QDate day = QDate::fromString(value("date"), Qt::ISODate);
    QCOMPARE(value("id"), id("X"));
    QCOMPARE(value("formattedNumber"), day.toString(QStringLiteral("'STO-'yyyy'-001'")));
    QCOMPARE(value("dueDate"), day.addDays(10).toString(Qt::ISODate));
    QCOMPARE(row[QStringLiteral("total")].toDouble(), -978.38); // -(900.75 + 63.05) - (12.25 + 2.33)
}

void LifeCliTest::numbersBeginAnewEachYear()
{
    QJsonObject old = QJsonDocument::fromJson(contentOf(fileOf("C"))).object();
    old[QStringLiteral("id")] = QStringLiteral("ABCDEF00-0000-4000-8000-000000000000");
    old[QStringLiteral("date")] = test::secondsNow() - 366 * 24 * 3600LL;
    old[QStringLiteral("number")] = 41;
    QVERIFY(test::writeFile(invoices_ + QStringLiteral("from elsewhere.json"), QJsonDocument(old).toJson()));
    const QString number = QStringLiteral("number");
    QCOMPARE(home_.json("new invoice --json")[number].toInt(), 6);
    QVERIFY(home_.succeeds("profile set Default resetNumberFrequency=never"));
    QCOMPARE(home_.json("new invoice --json")[number].toInt(), 42);

    QVERIFY(home_.succeeds("set {A} date=2020-02-29"));
    QCOMPARE(filesOf("A"), QStringList{QStringLiteral("2020-02-29-%1.json").arg(id("A").left(6))});
}

void LifeCliTest::sentRecordIsGuarded_data()
{
    QTest::addColumn<int>("exitCode");
    for (const char* refused :
         {"set {C} daysToPay=30", "set {C} note=y number=9", "set {C} --item x", "delete {C}"})
        QTest::newRow(refused) << 1;
    for (const char* free :
         {"set {C} note=x", "set {C} reference=R", "set {C} --force number=9", "status {C} draft"})
        QTest::newRow(free) << 0;
}

void LifeCliTest::sentRecordIsGuarded()
{
    QVERIFY(home_.succeeds("status {C} sent"));
    const QByteArray before = contentOf(fileOf("C"));
    const ProgramRun done = home_.run(QTest::currentDataTag());
    QTEST(done.exitCode, "exitCode");
    QCOMPARE(done.errors.filter(QStringLiteral("--force")).size(), done.exitCode);
    QCOMPARE(contentOf(fileOf("C")) == before, done.exitCode == 1);
}

void LifeCliTest::secondProfile()
{
    QCOMPARE(home_.run("profile create Werk").exitCode, 0);
    QVERIFY(home_.succeeds("profile set Werk startNumber=100"));
    const QString number = QStringLiteral("number");
    QCOMPARE(home_.json("new invoice --json --profile Werk")[number].toInt(), 100);
    QCOMPARE(home_.json("new quote --json --profile Werk")[number].toInt(), 1);
    QCOMPARE(home_.json("new invoice --json --profile Werk")[number].toInt(), 101);
    QCOMPARE(home_.json("list --json").array().size(), 10); // the active one is still the first
    QVERIFY(home_.succeeds("profile use Werk") && home_.succeeds("profile rename Werk \"Werk Zwei\""));
    QCOMPARE(home_.json("list --json").array().size(), 3);
}

void LifeCliTest::dataFolderMoves()
{
    const auto foldersIn = [](const QString& place) {
        return QDir(place).entryList(QDir::Dirs | QDir::NoDotAndDotDot).join(u'|');
    };
    const QString first = QStringLiteral("1_Default");
    const QString both = QStringLiteral("1_Default|2_Werk Zwei");
    QCOMPARE(home_.run("data move", {home_.data(QStringLiteral("in/it"))}).exitCode, 1);
    QCOMPARE(foldersIn(home_.data()), both); // it left nothing behind

    const QString other = home_.path(QStringLiteral("other"));
    QVERIFY(QDir().mkpath(other + u'/' + first));
    const ProgramRun moved = home_.run("data move", {other});
    QVERIFY(moved.exitCode == 1 && moved.errors.size() == 1);
    QVERIFY(moved.errors.front().contains(home_.data(first) + QStringLiteral(": stays")));
    QCOMPARE(foldersIn(home_.data()), first);
    QCOMPARE(foldersIn(other), both);
    QCOMPARE(home_.json("list --json").array().size(), 3);

    QVERIFY(home_.succeeds("data reset"));
    QCOMPARE(foldersIn(home_.data()), both);
    QCOMPARE(foldersIn(other), first);
}

const ledra::test::RegisterSuite<LifeCliTest> registration("life_cli_test");

#include "life_cli_test.moc"
