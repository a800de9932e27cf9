#include "support/plugin_home.h"
#include "support/shell.h"
#include "support/test_suite.h"
#include "support/tree_of.h"
#include "support/zip_of_entries.h"

#include <sys/wait.h>
#include <unistd.h>

using namespace ledra;
using test::PluginHome;

namespace {

const QByteArray manifest = R"({"name":"Test"})";

} // namespace

/// Packages on their way into the folder of plugins and out of it.
class PluginPackageTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void manifestIsReadAsPlainText();
    void hostileFolders_data();
    void hostileFolders();
    void hostileArchives_data();
    void hostileArchives();
    void archivesAreInstalled();
    void replacingIsWholeOrNot();
    void killedInTheMiddle();
    void enabledDisabledRemoved();
    void hostsAreConfirmedOnInstalling();
    void timersAndOpening();
};

void PluginPackageTest::manifestIsReadAsPlainText()
{
    const PluginHome home;
    const QByteArray text =
        R"({"specVersion":1.0,"name":" <b>Bold</b>\u0007\u202e\n)" + QByteArray(100, 'x') +
        R"(","version":"1.2","capabilities":["onOpen","network:API.example.com","network:x.test:8443","of tomorrow"],
        "timer":30,"unknown":{"deep":[1]},"description":null})";
    QCOMPARE(home.install(u"My plugin 1.5"_qs, "", text), QString());
    const Plugin* plugin = home.manager->find(u"My plugin 1.5"_qs);
    QVERIFY(plugin);
    QVERIFY(plugin->manifest.name.startsWith(u"<b>Bold</b> xxx"_qs) && plugin->manifest.name.size() == 80);
    QCOMPARE(plugin->manifest.version, std::optional(u"1.2"_qs));
    QCOMPARE(plugin->manifest.timer, std::optional<std::int64_t>(30));
    QVERIFY(!plugin->manifest.description && plugin->asksFor(u"onOpen") && !plugin->asksFor(u"connector"));
    QCOMPARE(plugin->wantedHosts(), QStringList({u"api.example.com"_qs, u"x.test:8443"_qs}));
}

void PluginPackageTest::hostileFolders_data()
{
    QTest::addColumn<QByteArray>(
        "script"); ///< run in the packages' folder, where x.ledraplugin is fine so far
    QTest::addColumn<QString>("error");
    const auto row = [](const char* script, const char* error) {
        QTest::newRow(script) << QByteArray(script) << QString::fromUtf8(error);
    };
    row("rm x.ledraplugin/plugin.json", "The selected plugin is missing a plugin.json manifest.");
    row("rm x.ledraplugin/main.js", "Installed plugin is missing main.js.");
    row("truncate -s 100M x.ledraplugin/plugin.json", "the package is too large");
    row("truncate -s 1M x.ledraplugin/plugin.json", "plugin.json: ");
    row("echo '[]' > x.ledraplugin/plugin.json", "plugin.json: ");
    row("echo '{}' > x.ledraplugin/plugin.json", "plugin.json: name: ");
    row(R"(echo '{"name":7}' > x.ledraplugin/plugin.json)", "plugin.json: name: ");
    row(R"(printf '{"name":"\\u0007 \\u200b"}' > x.ledraplugin/plugin.json)",
        "plugin.json: the name is empty");
    row(R"((printf '{"name":"x","y":'; yes '[' | head -10000 | tr -d '\n') > x.ledraplugin/plugin.json)",
        "plugin.json: ");
    row(R"(echo '{"name":"x","minLedraVersion":"99.1"}' > x.ledraplugin/plugin.json)",
        "plugin.json: the plugin needs Ledra 99.1 or newer, and this is ");
    row(R"(echo '{"name":"x","timer":0}' > x.ledraplugin/plugin.json)", "plugin.json: timer: ");
    row("ln -s /etc x.ledraplugin/lib", "“lib” is a link, which no package may hold");
    row("ln -s main.js x.ledraplugin/other.js", "“other.js” is a link, which no package may hold");
    row("mkfifo x.ledraplugin/pipe", "“pipe” is neither a file nor a folder");
    row("touch x.ledraplugin/util.js x.ledraplugin/Util.js",
        "til.js” differs from another name only in the case of its letters");
    row("mkdir x.ledraplugin/many; cd x.ledraplugin/many; seq 3000 | xargs touch",
        "the package is too large");
    row("rm -r x.ledraplugin", "no such file");
    row("rm -r x.ledraplugin; touch x.ledraplugin",
        "a plugin is a folder “NAME.ledraplugin” or a file “NAME.ledraplugin.zip”");
}

void PluginPackageTest::hostileFolders()
{
    QFETCH(QByteArray, script);
    QFETCH(QString, error);
    const PluginHome home;
    const QString package = home.package(u"x"_qs, "");
    QCOMPARE(test::shell(home.path(u"packages"_qs), script), "");
    const QString found = home.install(package);
    QVERIFY2(found.contains(error) && !found.contains(u'\n'), qPrintable(found));
    QVERIFY(home.manager->plugins().empty() && home.manager->folder().installed().empty());
    QCOMPARE(QDir(home.manager->folder().path()).entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList());
}

void PluginPackageTest::hostileArchives_data()
{
    QTest::addColumn<QByteArray>("archive");
    const auto row = [](const char* name, const QList<test::ZipEntry>& more) {
        QList<test::ZipEntry> entries = {{"plugin.json", manifest}, {"main.js", "1"}};
        QTest::newRow(name) << test::zipOf(entries + more);
    };
    constexpr int link = 0120777;
    row("upwards", {{"../evil.js", "x"}});
    row("upwards in the middle", {{"lib/../../evil.js", "x"}});
    row("absolute", {{"/tmp/evil.js", "x"}});
    row("by a link", {{.name = "lib", .content = "/tmp", .unixMode = link}, {"lib/evil.js", "x"}});
    row("by case", {{"lib/a.js", "x"}, {"lib/A.js", "x"}});
    row("by case of folders", {{"lib/a.js", "x"}, {"LIB/a.js", "x"}});
    row("twice", {{"main.js", "x"}});
    row("bomb", {{"bomb", QByteArray(20 << 20, '\0'), 8}});
    QTest::newRow("no archive") << QByteArray("PK no archive");
    QTest::newRow("nothing in it") << test::zipOf({{"readme", "x"}});
}

void PluginPackageTest::hostileArchives()
{
    QFETCH(QByteArray, archive);
    const PluginHome home;
    QVERIFY(home.put(home.path(u"x.ledraplugin.zip"_qs), archive));
    const auto before = test::treeOf(home.folder.path());
    const QString error = home.install(home.path(u"x.ledraplugin.zip"_qs));
    QVERIFY(!error.isEmpty() && !error.contains(u'\n'));
    QVERIFY(home.manager->folder().installed().empty());
    QCOMPARE(test::treeOf(home.folder.path()), before);
}

void PluginPackageTest::archivesAreInstalled()
{
    const PluginHome home;
    const QString archive = home.path(u"Packed.LEDRAPLUGIN.ZIP"_qs);
    QVERIFY(home.put(
        archive, test::zipOf({{"plugin.json", manifest}, {"main.js", "exports.exportInvoice = () => 1"}})));
    QCOMPARE(home.install(archive), QString());
    QCOMPARE(home.call(u"Packed"_qs, "exportInvoice"), "1");
    QVERIFY(home.put(archive, test::zipOf({{"inner.ledraplugin/plugin.json", manifest},
                                           {"inner.ledraplugin/main.js", ""}})));
    QCOMPARE(home.install(archive), QString());
    QVERIFY(home.manager->find(u"inner"_qs) && home.manager->plugins().size() == 2);
}

void PluginPackageTest::replacingIsWholeOrNot()
{
    const PluginHome home;
    QCOMPARE(home.install(u"x"_qs, "exports.exportInvoice = () => 1", manifest, {{u"old.js"_qs, ""}}),
             QString());
    QCOMPARE(home.call(u"x"_qs, "exportInvoice"), "1");
    QCOMPARE(home.install(u"x"_qs, "", "no manifest"),
             u"plugin.json: not JSON"_qs.left(13) + home.install(u"x"_qs, "", "no manifest").mid(13));
    QCOMPARE(home.call(u"x"_qs, "exportInvoice"), "1");
    QCOMPARE(home.install(u"x"_qs, "exports.exportInvoice = () => 2"), QString());
    QCOMPARE(home.call(u"x"_qs, "exportInvoice"), "2");
    QCOMPARE(PluginHome::names(home.manager->folder().pathOf(u"x"_qs)), u"main.js plugin.json"_qs);
    QCOMPARE(PluginHome::names(home.manager->folder().path()), u".lock x.ledraplugin"_qs);
}

void PluginPackageTest::killedInTheMiddle()
{
    PluginHome home;
    QCOMPARE(home.install(u"x"_qs, "exports.exportInvoice = () => 'old'"), QString());
    const QString newer = home.package(u"x"_qs, "exports.exportInvoice = () => 'new'");
    const QString folder = home.manager->folder().path();
    const auto installAndDie = [&] { // between the two renames
        PluginFolder plugins(folder, home.trash);
        plugins.betweenRenames = [] { ::_exit(7); };
        (void)plugins.install(newer, u"x"_qs);
        ::_exit(1);
    };
    const pid_t child = ::fork();
    if (child == 0)
        installAndDie();
    int status = 0;
    QCOMPARE(::waitpid(child, &status, 0), child);
    QVERIFY(WIFEXITED(status) && WEXITSTATUS(status) == 7);
    QVERIFY(PluginHome::names(folder).contains(u"ledraplugin-backup-x"_qs));
    QVERIFY(!QFileInfo::exists(home.manager->folder().pathOf(u"x"_qs)));
    home.start();
    QCOMPARE(PluginHome::names(folder), u".lock x.ledraplugin"_qs);
    QCOMPARE(home.call(u"x"_qs, "exportInvoice"), "\"old\"");

    // Killed when the new one has its place already.
    QCOMPARE(test::shell(folder, "cp -r x.ledraplugin ledraplugin-backup-x; echo 'exports.exportInvoice = () "
                                 "=> 3' > x.ledraplugin/main.js"),
             "");
    home.start();
    QCOMPARE(PluginHome::names(folder), u".lock x.ledraplugin"_qs);
    QCOMPARE(home.call(u"x"_qs, "exportInvoice"), "3");
}

void PluginPackageTest::enabledDisabledRemoved()
{
    PluginHome home;
    QCOMPARE(home.install(u"x"_qs, "exports.exportInvoice = () => 1"), QString());
    QVERIFY(home.manager->setEnabled(u"x"_qs, false));
    QCOMPARE(home.defaults.value(u"Plugins.disabledIDs"_qs).toStringList(), QStringList{u"x"_qs});
    home.start();
    QCOMPARE(home.manager->plugins().size(), std::size_t{1});
    QCOMPARE(home.call(u"x"_qs, "exportInvoice"), "error: x is disabled");
    QVERIFY(home.manager->setEnabled(u"x"_qs, true));
    QCOMPARE(home.call(u"x"_qs, "exportInvoice"), "1");
    QVERIFY(!home.manager->setEnabled(u"none"_qs, true) && !home.manager->remove(u"../x"_qs));

    // One that is spoilt later is seen, not run, and removed like any other.
    QVERIFY(home.put(home.manager->folder().pathOf(u"x"_qs) + u"/plugin.json"_qs,
                     "{\"name\":\"x\",\"minLedraVersion\":\"99\"}"));
    home.start();
    QVERIFY(home.loadAll() && !home.manager->runner().isRunning());
    QVERIFY(home.manager->runtime(u"x"_qs).lastError.contains(u"needs Ledra 99"_qs));
    QVERIFY(home.call(u"x"_qs, "exportInvoice").startsWith("error: plugin.json: "));

    qputenv("XDG_DATA_HOME", home.path(u"xdg"_qs).toUtf8());
    QVERIFY(home.manager->remove(u"x"_qs));
    QVERIFY(home.manager->plugins().empty());
    const std::vector<TrashedFile> trashed = home.trash.filesFrom(home.manager->folder().path());
    QVERIFY(trashed.size() == 1 && QFileInfo::exists(trashed[0].path + u"/main.js"_qs));
}

void PluginPackageTest::hostsAreConfirmedOnInstalling()
{
    const PluginHome home;
    const QByteArray wants = R"({"name":"Test","capabilities":["network:a.example","network:b.example"]})";
    const QByteArray main = "exports.exportInvoice = () => typeof fetch";
    const auto granted = [&] { return home.manager->grantedHosts(*home.manager->find(u"x"_qs)).join(u' '); };
    QCOMPARE(home.install(u"x"_qs, main, wants), QString());
    QCOMPARE(granted(), QString());
    QCOMPARE(home.call(u"x"_qs, "exportInvoice"), "\"undefined\"");
    QCOMPARE(home.install(u"x"_qs, main, wants, {}, HostGrant::all), QString());
    QCOMPARE(granted(), u"a.example b.example"_qs);
    QCOMPARE(home.call(u"x"_qs, "exportInvoice"), "\"function\"");
    // What the folder comes to ask for later is not confirmed; what another package of the name asks for
    // neither.
    QVERIFY(
        home.put(home.manager->folder().pathOf(u"x"_qs) + u"/plugin.json"_qs,
                 "{\"name\":\"Test\",\"capabilities\":[\"network:b.example\",\"network:evil.example\"]}"));
    QVERIFY(home.manager->setEnabled(u"x"_qs, true));
    QCOMPARE(granted(), u"b.example"_qs);
    QCOMPARE(home.install(u"x"_qs, main, wants), QString());
    QCOMPARE(granted(), QString());
}

void PluginPackageTest::timersAndOpening()
{
    PluginSetting setting;
    setting.timerUnit = std::chrono::milliseconds(40);
    const PluginHome home(setting);
    QCOMPARE(home.install(u"opening"_qs, "", "{\"name\":\"x\",\"capabilities\":[\"onOpen\"]}"), QString());
    QCOMPARE(home.install(u"timed"_qs, "", "{\"name\":\"x\",\"timer\":1}"), QString());
    QCOMPARE(home.install(u"off"_qs, "", "{\"name\":\"x\",\"timer\":1,\"capabilities\":[\"onOpen\"]}"),
             QString());
    QVERIFY(home.manager->setEnabled(u"off"_qs, false));
    QStringList due;
    connect(home.manager.get(), &PluginManager::updateDue, home.manager.get(),
            [&](const QString& id) { due += id; });
    home.manager->start();
    home.manager->start();
    QCOMPARE(due, QStringList{u"opening"_qs});
    QTRY_COMPARE(due, (QStringList{u"opening"_qs, u"timed"_qs, u"timed"_qs}));
    QVERIFY(home.manager->setEnabled(u"timed"_qs, false));
    due.clear();
    QTest::qWait(120);
    QCOMPARE(due, QStringList());
}

const test::RegisterSuite<PluginPackageTest> registration("plugin_package_test");

#include "plugin_package_test.moc"
