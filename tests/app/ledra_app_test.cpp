#include "app/invoice_list.h"
#include "app/ledra_app.h"
#include "model/new_invoices.h"
#include "support/program_run.h"
#include "support/recording_console.h"
#include "support/test_suite.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>

using namespace ledra;

class LedraAppTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void handedOver_data();
    void handedOver();
    void startAndReveal();
    void guards();
    void pluginsRunOnOpening();
    void longList();
};

namespace {

/// Windows and an updater that write down what they are asked for.
struct Desktop final : WindowController, UpdaterController
{
    void showMainWindow() override { asked += QStringLiteral("main window"); }
    void openSettings() override { asked += QStringLiteral("settings"); }
    void start() override
    {
        const QString data = qEnvironmentVariable("XDG_DATA_HOME") + QStringLiteral("/Ledra/Data");
        asked += QDir(data).exists() ? QStringLiteral("started late") : QStringLiteral("started");
    }
    void checkForUpdates() override { asked += QStringLiteral("check"); }

    QStringList asked;
};

/// An empty home for as long as it lives.
struct Home
{
    Home()
    {
        qputenv("XDG_DATA_HOME", folder.filePath(QStringLiteral("data")).toUtf8());
        qputenv("XDG_CONFIG_HOME", folder.filePath(QStringLiteral("config")).toUtf8());
    }
    ~Home()
    {
        qputenv("XDG_DATA_HOME", data);
        qputenv("XDG_CONFIG_HOME", config);
    }
    Home(const Home&) = delete;
    Home& operator=(const Home&) = delete;

    QTemporaryDir folder;
    QByteArray data = qgetenv("XDG_DATA_HOME");
    QByteArray config = qgetenv("XDG_CONFIG_HOME");
    test::RecordingConsole console;
};

} // namespace

void LedraAppTest::handedOver_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<QString>("spoken");
    QTest::newRow("link") << "ledra://invoice/9f2c41aa-0000-4000-8000-000000000001" << "invoice";
    QTest::newRow("slashes") << "LEDRA://invoice//9F2C41AA-0000-4000-8000-000000000001//" << "invoice";
    QTest::newRow("no id") << "ledra://invoice/42" << "";
    QTest::newRow("other host") << "ledra://settings/" << "profiles";
    QTest::newRow("plugin") << "file:///tmp/Export.LEDRAPLUGIN" << "plugin";
    QTest::newRow("plugin folder") << "file:///tmp/Export.ledraplugin/" << "plugin";
    QTest::newRow("packed plugin") << "file:///tmp/Export.ledraplugin.zip" << "plugin";
    QTest::newRow("styling") << "file:///tmp/x.ledrastyle" << "styling";
    QTest::newRow("documents") << "file:///tmp/x.Pdf" << "document";
    QTest::newRow("e-invoice") << "file:///tmp/x.xml" << "document";
    QTest::newRow("archive") << "file:///tmp/x.ledradata" << "profiles";
    QTest::newRow("anything") << "file:///tmp/x" << "profiles";
}

void LedraAppTest::handedOver()
{
    QFETCH(QString, url);
    AppDelegate delegate;
    QString spoken;
    connect(&delegate, &AppDelegate::invoiceLinkOpened, [&](const QUuid& id) {
        spoken += id.isNull() ? QStringLiteral("null") : QStringLiteral("invoice");
    });
    connect(&delegate, &AppDelegate::pluginHandedOver, [&] { spoken += QStringLiteral("plugin"); });
    connect(&delegate, &AppDelegate::stylingHandedOver, [&] { spoken += QStringLiteral("styling"); });
    connect(&delegate, &AppDelegate::documentHandedOver, [&] { spoken += QStringLiteral("document"); });
    connect(&delegate, &AppDelegate::profilesHandedOver, [&] { spoken += QStringLiteral("profiles"); });
    delegate.open({QUrl(url)});
    QTEST(spoken, "spoken");
}

void LedraAppTest::startAndReveal()
{
    Home home;
    Desktop desktop;
    LedraApp app({.console = home.console, .windows = &desktop, .updater = &desktop});
    QCOMPARE(desktop.asked, QStringList(QStringLiteral("started"))); // before the profiles
    QCOMPARE(app.profileManager().profiles().size(), std::size_t{1});

    const QUuid id = QUuid::createUuid();
    QSignalSpy reveals(&app, &LedraApp::revealRequested);
    app.appDelegate().open({QUrl(QStringLiteral("ledra://invoice/") + idText(id) + u'/')});
    QCOMPARE(app.pendingSpotlightInvoiceId, id);
    QSignalSpy plugins(&app, &LedraApp::openPluginSettings);
    app.appDelegate().open({QUrl(QStringLiteral("file:///x.ledraplugin"))});
    QCOMPARE(app.pluginManager().pendingPackages, {QUrl(QStringLiteral("file:///x.ledraplugin"))});
    QCOMPARE(desktop.asked.mid(1).join(u' '), QStringLiteral("main window settings"));
    QVERIFY(reveals.size() == 1 && plugins.size() == 1);

    const ProfilePtr other = *app.profileManager().createProfile(QStringLiteral("Other"));
    app.appDelegate().continueActivity(id, (*other)->id);
    QCOMPARE(app.profileManager().activeProfile(), other);

    QCOMPARE(app.badgeLabel(3), QStringLiteral("3"));
    QVERIFY(app.badgeLabel(0).isEmpty());
    QVERIFY(app.settings().set(QStringLiteral("showBadge"), QStringLiteral("false")));
    QVERIFY(app.badgeLabel(3).isEmpty());
    QVERIFY(!app.settings().set(QStringLiteral("showBadge"), QStringLiteral("perhaps")));
    QVERIFY(!app.settings().set(QStringLiteral("showbadge"), QStringLiteral("true")));
}

void LedraAppTest::guards()
{
    Home home;
    LedraApp app({.console = home.console});
    InvoiceJobs& jobs = app.jobs();
    const InvoicePtr record = *jobs.create(InvoiceType::invoice);
    const QUuid id = (*record)->id;
    const auto rename = [](Invoice& invoice) { invoice.name += u'x'; };
    const auto annotate = [](Invoice& invoice) {
        invoice.note = QStringLiteral("n");
        invoice.reference = QStringLiteral("r");
    };
    QVERIFY(jobs.edit(id, rename, Force::no));
    for (const Status status : {Status::sent, Status::paid, Status::cancelled}) {
        QVERIFY(jobs.setStatus(id, status));
        const QString name = (*record)->name;
        QVERIFY(jobs.edit(id, rename, Force::no).error().kind == JobFailure::Kind::guarded);
        QVERIFY(jobs.remove(id, Force::no).error().kind == JobFailure::Kind::guarded);
        QVERIFY(!jobs.refreshNumberSettings(id, Force::no));
        QCOMPARE((*record)->name, name);
        QVERIFY(jobs.edit(id, annotate, Force::no));
        QVERIFY(jobs.edit(id, rename, Force::yes));
    }
    QVERIFY(!jobs.convert(id));
    const InvoicePtr cancellation = *jobs.cancel(id);
    QVERIFY(!jobs.cancel((*cancellation)->id));
    QVERIFY(jobs.remove(id, Force::yes));
    QVERIFY(!app.invoiceManager().find(id));
}

/// Nothing is started for plugins before they are wanted; those that ask for it then run as the window opens.
void LedraAppTest::pluginsRunOnOpening()
{
    Home home;
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                           QStringLiteral("/Ledra/Plugins/x.ledraplugin");
    QVERIFY(QDir().mkpath(folder));
    const QByteArray main =
        "exports.updateInvoices = (list) => ({ [list[0].id]: { recipient: { name: 'seen' } } })";
    QVERIFY(test::writeFile(folder + QStringLiteral("/main.js"), main));
    QVERIFY(test::writeFile(folder + QStringLiteral("/plugin.json"),
                            "{\"name\":\"x\",\"capabilities\":[\"onOpen\"]}"));
    LaunchOptions options{.console = home.console};
    options.plugins.runner = QStringLiteral(LEDRA_PLUGIN_RUNNER);
    LedraApp app(options);
    const InvoicePtr record = *app.jobs().create(InvoiceType::invoice);
    QCOMPARE(app.pluginManager().plugins().size(), std::size_t{1});
    QVERIFY(!app.pluginManager().runner().isRunning());
    app.pluginManager().start();
    QTRY_COMPARE((*record)->name, QStringLiteral("seen"));
}

void LedraAppTest::longList()
{
    constexpr int count = 2501; // more than are written in one part
    std::vector<InvoicePtr> records;
    for (int number = 0; number < count; ++number) {
        Invoice invoice = newInvoice(QUuid::createUuid(), Timestamp(), {});
        invoice.number = number;
        records.push_back(std::make_shared<InvoiceRecord>(invoice));
    }
    const QByteArray text =
        listJson(records, newProfile(QUuid::createUuid(), QStringLiteral("DE")), Timestamp());
    const QJsonArray list = QJsonDocument::fromJson(text).array();
    QCOMPARE(list.size(), count);
    for (int number = 0; number < count; ++number)
        QCOMPARE(list[number].toObject()[QStringLiteral("number")].toInt(), number);
    QCOMPARE(text.count("\n  {\n"), count);
    QVERIFY(text.endsWith("\n  }\n]\n"));
}

const ledra::test::RegisterSuite<LedraAppTest> registration("ledra_app_test");

#include "ledra_app_test.moc"
