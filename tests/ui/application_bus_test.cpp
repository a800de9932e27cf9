#include "support/desk.h"
#include "support/message_bus.h"
#include "support/test_suite.h"
#include "ui/desktop/application_bus.h"
#include "ui/desktop/launcher_badge.h"

#include <QDBusMessage>

using namespace ledra;

/// The dock that listens to programs' counts.
class Dock : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void update(const QString& program, const QVariantMap& state)
    {
        Q_EMIT told(QStringLiteral("%1 %2 %3")
                        .arg(program, state[QStringLiteral("count")].toString(),
                             state[QStringLiteral("count-visible")].toString()));
    }

Q_SIGNALS:
    void told(const QString& line);
};

/// The program on the session bus, over a bus of the test's own.
class ApplicationBusTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        if (!bus_.start())
            QSKIP("needs dbus-daemon");
    }

    void init()
    {
        home_ = std::make_unique<test::ProgramHome>();
        home_->enter();
    }

    /// The program itself is the second start.
    void secondStartHandsOver()
    {
        ApplicationBus first(bus_.connection("first"));
        QVERIFY(first.becomeFirst());
        QVERIFY(!ApplicationBus(bus_.connection("other")).becomeFirst());
        QSignalSpy activated(&first, &ApplicationBus::activated);
        QSignalSpy opened(&first, &ApplicationBus::opened);

        QCOMPARE(startSecond({}), 0);
        QCOMPARE(activated.count(), 1);
        QCOMPARE(opened.count(), 0);

        const QString link = QStringLiteral("ledra://invoice/8D3A5C0E-1111-4222-8333-444455556666/");
        QVERIFY(test::writeFile(home_->path(QStringLiteral("Über uns.ledradata")), "x"));
        QCOMPARE(startSecond({QStringLiteral("Über uns.ledradata"), link}), 0);
        QCOMPARE(activated.count(), 2);
        QCOMPARE(opened.count(), 1);
        const auto urls = opened[0][0].value<QList<QUrl>>();
        QCOMPARE(urls.size(), 2);
        QCOMPARE(urls[0].toLocalFile(), home_->path(QStringLiteral("Über uns.ledradata")));
        QCOMPARE(urls[1], QUrl(link));
    }

    void docksOfferActions()
    {
        ApplicationBus first(bus_.connection("first"));
        QVERIFY(first.becomeFirst());
        QSignalSpy wanted(&first, &ApplicationBus::actionWanted);
        QDBusMessage call = QDBusMessage::createMethodCall(
            QStringLiteral("de.ledra.Ledra"), QStringLiteral("/de/ledra/Ledra"),
            QStringLiteral("org.freedesktop.Application"), QStringLiteral("ActivateAction"));
        call << QStringLiteral("new-quote") << QVariantList() << QVariantMap();
        bus_.connection("dock").send(call);
        QVERIFY(wanted.wait());
        QCOMPARE(wanted[0][0].toString(), QStringLiteral("new-quote"));
    }

    void withoutABus()
    {
        ApplicationBus alone(QDBusConnection(QStringLiteral("none")));
        QVERIFY(alone.becomeFirst());
    }

    void badgeCountsWhatIsOverdue()
    {
        Dock dock;
        QDBusConnection connection = bus_.connection("dock");
        QVERIFY(connection.connect({}, {}, QStringLiteral("com.canonical.Unity.LauncherEntry"),
                                   QStringLiteral("Update"), &dock, SLOT(update(QString, QVariantMap))));
        QSignalSpy told(&dock, &Dock::told);
        test::RecordingConsole console;
        LedraApp app({.console = console});
        const auto overdue = [](Invoice& invoice) {
            invoice.status = Status::sent;
            invoice.date = Timestamp::fromDateTime(QDate(2020, 1, 1).startOfDay());
        };
        QVERIFY(app.jobs().create(InvoiceType::invoice, overdue));
        QVERIFY(app.jobs().create(InvoiceType::invoice, overdue));
        QVERIFY(app.jobs().create(InvoiceType::invoice));
        auto badge = std::make_unique<LauncherBadge>(app, bus_.connection("window"));
        QVERIFY(told.wait());
        QVERIFY(app.settings().set(QStringLiteral("showBadge"), QStringLiteral("false")));
        badge->update();
        QVERIFY(told.wait());
        QVERIFY(app.settings().set(QStringLiteral("showBadge"), QStringLiteral("true")));
        badge->update();
        QVERIFY(told.wait());
        badge.reset();
        QVERIFY(told.wait());
        const QString program = QStringLiteral("application://de.ledra.Ledra.desktop ");
        QStringList lines;
        for (const QList<QVariant>& line : told)
            lines += line[0].toString().remove(program);
        QCOMPARE(lines, QStringList({QStringLiteral("2 true"), QStringLiteral("0 false"),
                                     QStringLiteral("2 true"), QStringLiteral("0 false")}));
    }

private:
    /// The exit code of a start in the home.
    int startSecond(const QStringList& arguments)
    {
        test::RunSetting setting;
        setting.variables = {{QStringLiteral("DISPLAY"), QStringLiteral(":none")},
                             {QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), bus_.address()}};
        setting.beforeStart = [folder = home_->path({}).toLocal8Bit()] {
            (void)!::chdir(folder.constData());
        };
        const std::unique_ptr<QProcess> second = test::startProgram(arguments, setting);
        QSignalSpy finished(second.get(), &QProcess::finished);
        return second->state() == QProcess::NotRunning || finished.wait(20'000) ? second->exitCode() : -1;
    }

    test::MessageBus bus_;
    std::unique_ptr<test::ProgramHome> home_;
};

const ledra::test::RegisterSuite<ApplicationBusTest> registration("application_bus_test");

#include "application_bus_test.moc"
