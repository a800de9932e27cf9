#include "support/forge_server.h"
#include "support/plugin_home.h"
#include "support/shell.h"
#include "support/test_suite.h"
#include "support/zip_of_entries.h"

using namespace ledra;
using test::ForgeServer;
using test::PluginHome;
using test::ServerAnswer;

namespace {

const QByteArray commit = "0123456789abcdef0123456789abcdef01234567";

/// The setting in which all forges are this server.
PluginSetting settingFor(const ForgeServer& server)
{
    PluginSetting setting;
    setting.limits.waitSeconds = 2;
    setting.forge = {QUrl(QString::fromLatin1(server.base())), true};
    return setting;
}

/// A package as a forge packs it: below one folder.
QByteArray packed(const QByteArray& main, const QByteArray& version = "9")
{
    return test::zipOf({{"owner-name-1a2b/plugin.json", R"({"name":"New","version":")" + version + "\"}"},
                        {"owner-name-1a2b/main.js", main},
                        {"owner-name-1a2b/.ledra-source-version", "a lie"}});
}

const QByteArray returnsNew = "exports.exportInvoice = () => 'new'";

} // namespace

/// What plugins and their updates do over the network.
class PluginNetworkTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void versionsAreCompared();
    void updates_data();
    void updates();
    void updatesThatFail_data();
    void updatesThatFail();
    void killedUpdate();
    void fetch_data();
    void fetch();
    void connector();

private:
    static QString update(const PluginHome& home);
};

void PluginNetworkTest::versionsAreCompared()
{
    for (const auto& [offered, installed] : {std::pair("1.10", "1.9"),
                                             {"v2.0", "1.9"},
                                             {"1.0.1", "v1.0"},
                                             {"abc1234", "1.0"},
                                             {"1.0", "abc1234"},
                                             {"abc1234", "abc1235"},
                                             {"1.0", ""}})
        QVERIFY2(isNewer(QString::fromLatin1(offered), QString::fromLatin1(installed)), offered);
    for (const auto& [offered, installed] :
         {std::pair("1.9", "1.10"), {"v1.0", "1.0"}, {"abc1234", "abc1234"}, {"1.0", "1.0.1"}})
        QVERIFY2(!isNewer(QString::fromLatin1(offered), QString::fromLatin1(installed)), offered);
}

/// The version that was installed, "" for none, or "error: " and why.
QString PluginNetworkTest::update(const PluginHome& home)
{
    QString result;
    test::Waiting waiting;
    home.manager->update(u"x"_qs, [&](const PluginUpdater::Outcome& outcome) {
        result = outcome ? outcome->value_or(QString()) : u"error: "_qs + outcome.error();
        waiting.done();
    });
    return waiting.wait() ? result : u"no answer"_qs;
}

void PluginNetworkTest::updates_data()
{
    using Answers = QHash<QByteArray, ServerAnswer>;
    QTest::addColumn<QByteArray>("url");
    QTest::addColumn<Answers>("answers");
    QTest::addColumn<QString>("version"); ///< empty: nothing newer
    const auto row = [](const char* name, const char* url, const Answers& answers, const char* version) {
        Answers all = answers;
        all["/archive.zip"] = {200, packed(returnsNew)};
        QTest::newRow(name) << QByteArray(url) << all << QString::fromLatin1(version);
    };
    const ServerAnswer exists = {200, R"({"id":7})"};
    const ServerAnswer none = {200, "[]"};
    const auto release = [](const QByteArray& tag) {
        return ServerAnswer{200,
                            R"({"tag_name":")" + tag + R"(","zipball_url":"BASE/archive.zip","assets":[]})"};
    };
    const auto toArchive = ServerAnswer{302, {}, "BASE/archive.zip"};
    const ServerAnswer commits = {200, R"([{"sha":")" + commit + R"("}])"};

    const char* gitHub = "https://github.com/owner/name";
    row("GitHub, release", gitHub,
        {{"/repos/owner/name", exists}, {"/repos/owner/name/releases/latest", release("v1.1")}}, "v1.1");
    row("GitHub, same release", gitHub,
        {{"/repos/owner/name", exists}, {"/repos/owner/name/releases/latest", release("1.0")}}, "");
    row("GitHub, older release", gitHub,
        {{"/repos/owner/name", exists}, {"/repos/owner/name/releases/latest", release("v0.9")}}, "");
    row("GitHub, asset", "https://github.com/owner/name.git",
        {{"/repos/owner/name", exists},
         {"/repos/owner/name/releases/latest",
          {200,
           R"({"tag_name":"2.0","zipball_url":"BASE/none","assets":[{"name":"x.ledraplugin.zip","browser_download_url":"BASE/moved"}]})"}},
         {"/moved", toArchive}},
        "2.0");
    row("GitHub, commits", gitHub,
        {{"/repos/owner/name", exists},
         {"/repos/owner/name/commits?per_page=1", commits},
         {"/repos/owner/name/zipball/" + commit, toArchive}},
        commit.constData());
    row("GitLab, release", "https://gitlab.com/group/sub/name",
        {{"/projects/group%2Fsub%2Fname", exists},
         {"/projects/group%2Fsub%2Fname/releases?per_page=1",
          {200,
           R"([{"tag_name":"1.2","assets":{"sources":[{"format":"tar","url":"x"},{"format":"zip","url":"BASE/archive.zip"}],"links":[]}}])"}}},
        "1.2");
    row("GitLab of one's own, commits", "https://code.example.org:8443/group/name/",
        {{"/projects/group%2Fname", exists},
         {"/projects/group%2Fname/releases?per_page=1", none},
         {"/projects/group%2Fname/repository/commits?per_page=1", {200, R"([{"id":")" + commit + R"("}])"}},
         {"/projects/group%2Fname/repository/archive.zip?sha=" + commit, toArchive}},
        commit.constData());
    row("Gitea, release", "https://git.example.org/owner/name",
        {{"/repos/owner/name", exists}, {"/repos/owner/name/releases/latest", release("1.0.1")}}, "1.0.1");
    row("Gitea, commits", "https://git.example.org/owner/name",
        {{"/repos/owner/name", exists},
         {"/repos/owner/name/commits?limit=1", commits},
         {"/repos/owner/name/archive/" + commit + ".zip", {200, packed(returnsNew)}}},
        commit.constData());
}

void PluginNetworkTest::updates()
{
    using Answers = QHash<QByteArray, ServerAnswer>;
    QFETCH(QByteArray, url);
    QFETCH(Answers, answers);
    QFETCH(QString, version);
    ForgeServer server;
    server.answers = answers;
    const PluginHome home(settingFor(server));
    QCOMPARE(home.install(u"x"_qs, "exports.exportInvoice = () => 'old'",
                          "{\"name\":\"Old\",\"version\":\"1.0\",\"url\":\"" + url + "\"}"),
             QString());
    QCOMPARE(home.call(u"x"_qs, "exportInvoice"), "\"old\"");
    QCOMPARE(update(home), version);
    QCOMPARE(home.call(u"x"_qs, "exportInvoice"), version.isEmpty() ? "\"old\"" : "\"new\"");
    if (version.isEmpty())
        return;
    const Plugin& plugin = *home.manager->find(u"x"_qs);
    QCOMPARE(test::contentOf(plugin.directory + u"/.ledra-source-version"_qs), version.toUtf8());
    QCOMPARE(installedVersion(plugin), version);
    // The new manifest has no link, so this is as far as it goes.
    QCOMPARE(update(home), u"error: Plugin URL is not a valid repository link."_qs);
}

void PluginNetworkTest::updatesThatFail_data()
{
    QTest::addColumn<QByteArray>("url");
    QTest::addColumn<QByteArray>("archive");
    QTest::addColumn<QString>("error");
    const auto row = [](const char* name, const char* url, const QByteArray& archive, const char* error) {
        QTest::newRow(name) << QByteArray(url) << archive << QString::fromUtf8(error);
    };
    const char* fine = "https://github.com/owner/name";
    for (const char* bad :
         {"", "http://github.com/owner/name", "https://github.com/owner", "https://github.com/../name",
          "https://github.com/a/../b", "https://github.com/owner/name/tree/main",
          "https://user@github.com/owner/name", "file:///etc/passwd"})
        row(bad, bad, {}, "Plugin URL is not a valid repository link.");
    row("a host that is no forge", "https://www.example.org/owner/other", {},
        "Plugin updates are not supported for this repository host.");
    row("mistyped, deleted or private", "https://github.com/owner/gone.git", {},
        "The repository owner/gone was not found on github.com.");
    row("a group without it", "https://gitlab.com/group/sub/gone", {},
        "The repository group/sub/gone was not found on gitlab.com.");
    row("a forge of one's own without it", "https://git.example.org/owner/denied", {},
        "The repository owner/denied was not found on git.example.org.");
    row("a forge that is closed", "https://github.com/owner/limited", {},
        "github.com: answers with status 403");
    row("nothing there", "https://github.com/owner/empty", {},
        "Repository has no release or commits to update from.");
    row("broken archive", fine, packed(returnsNew).chopped(30), "");
    row("no archive", fine, "PK?", "");
    row("no manifest", fine, test::zipOf({{"a/main.js", "1"}}),
        "Downloaded archive does not contain a plugin.json.");
    row("no main module", fine, test::zipOf({{"a/plugin.json", R"({"name":"x"})"}}),
        "Installed plugin is missing main.js.");
    row("for a later Ledra", fine,
        test::zipOf({{"a/plugin.json", R"({"name":"x","minLedraVersion":"77"})"}, {"a/main.js", "1"}}),
        "plugin.json: the plugin needs Ledra 77 or newer");
    row("archive that leads out", fine,
        test::zipOf({{"a/plugin.json", R"({"name":"x"})"}, {"../main.js", "1"}}), "“../main.js”: ");
}

void PluginNetworkTest::updatesThatFail()
{
    QFETCH(QByteArray, url);
    QFETCH(QByteArray, archive);
    QFETCH(QString, error);
    ForgeServer server;
    server.answers = {
        {"/repos/owner/name", {200, R"({"id":7})"}},
        {"/repos/owner/name/releases/latest", {200, R"({"tag_name":"3","zipball_url":"BASE/archive.zip"})"}},
        {"/repos/owner/empty", {200, R"({"id":7})"}},
        {"/repos/owner/denied", {404, R"({"message":"not found"})"}},
        {"/repos/owner/limited", {403, R"({"message":"too many requests"})"}},
        {"/repos/owner/empty/commits?per_page=1", {200, R"([])"}},
        {"/archive.zip", {200, archive}}};
    const PluginHome home(settingFor(server));
    QCOMPARE(home.install(u"x"_qs, "exports.exportInvoice = () => 'old'",
                          "{\"name\":\"Old\",\"url\":\"" + url + "\"}"),
             QString());
    const QString folder = home.manager->folder().path();
    const auto before = test::filesBelow(folder);
    const QString found = update(home);
    QVERIFY2(found.startsWith(u"error: "_qs + error) && !found.contains(u'\n'), qPrintable(found));
    QCOMPARE(test::filesBelow(folder), before);
    QCOMPARE(home.call(u"x"_qs, "exportInvoice"), "\"old\"");
}

/// What lies on the disk between the two renames is what a process leaves that is killed there.
void PluginNetworkTest::killedUpdate()
{
    ForgeServer server;
    server.answers = {
        {"/repos/owner/name", {200, R"({"id":7})"}},
        {"/repos/owner/name/releases/latest", {200, R"({"tag_name":"3","zipball_url":"BASE/archive.zip"})"}},
        {"/archive.zip", {200, packed(returnsNew)}}};
    PluginHome home(settingFor(server));
    QCOMPARE(home.install(u"x"_qs, "exports.exportInvoice = () => 'old'",
                          R"({"name":"Old","url":"https://github.com/owner/name"})",
                          {{u"lib/own.js"_qs, "7"}}),
             QString());
    PluginFolder folder(home.manager->folder().path(), home.trash);
    const QByteArrayList before = test::filesBelow(folder.pathOf(u"x"_qs)).values();
    folder.betweenRenames = [&] {
        (void)test::shell(home.path(u"."_qs), "cp -a " + folder.path().toUtf8() + " left");
    };
    PluginUpdater updater(folder, home.setting.forge);
    test::Waiting waiting;
    updater.update(*home.manager->find(u"x"_qs), [&](const PluginUpdater::Outcome& outcome) {
        QVERIFY(outcome);
        waiting.done();
    });
    QVERIFY(waiting.wait());
    QVERIFY(test::contentOf(folder.pathOf(u"x"_qs) + u"/main.js"_qs).contains("'new'"));

    PluginFolder left(home.path(u"left"_qs), home.trash);
    QVERIFY(left.installed().empty());
    left.recover();
    QCOMPARE(PluginHome::names(left.path()), u".lock x.ledraplugin"_qs);
    QCOMPARE(test::filesBelow(left.pathOf(u"x"_qs)).values(), before);
    QVERIFY(readManifest(left.pathOf(u"x"_qs)));
}

void PluginNetworkTest::fetch_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QByteArray>("result");
    const auto row = [](const char* script, const char* result) {
        QTest::newRow(script) << QByteArray(script) << QByteArray(result);
    };
    row("const r = await fetch(base + '/ok'); return [r.ok, r.status, (await r.json()).x, "
        "r.headers.get('Content-Length')]",
        R"([true,200,"ä","10"])");
    row("return Promise.all([1, 2, 3].map(async () => (await fetch(base + '/ok')).status))", "[200,200,200]");
    row("const r = await fetch(base + '/none'); return [r.ok, r.status]", "[false,404]");
    row("return (await fetch(base + '/moved')).url === base + '/ok'", "true");
    row("await fetch(base + '/ok', { method: 'post', headers: { 'X-Key': 'k' }, body: 'b' }); return 1", "1");
    row("return fetch(base + '/away')", "error: 127.0.0.2: this address is not allowed");
    row("return fetch('http://127.0.0.2/')", "error: 127.0.0.2: this address is not allowed");
    row("return fetch(base.replace(/[0-9]+$/, '1') + '/ok')",
        "error: 127.0.0.1: this address is not allowed");
    row("return fetch(base.replace('//', '//me@') + '/ok')", "error: 127.0.0.1: this address is not allowed");
    row("return fetch('file:///etc/passwd')", "error: : this address is not allowed");
    row("return fetch(base + '/ok', { headers: { Host: 'x' } })",
        "error: fetch: a header that cannot be sent");
    row("return fetch(base + '/ok', { headers: { a: 'x\\r\\ny: z' } })",
        "error: fetch: a header that cannot be sent");
    row("return fetch(base + '/ok', { method: 'CONNECT' })", "error: fetch: an unknown method");
    row("try { await fetch(base + '/circle') } catch (e) { return e.message }",
        R"("127.0.0.1: too many redirections")");
    row("return fetch(base + '/silent')", "error: the plugin waited for answers longer than 2 s");
    row("return fetch(base + '/large')", "error: 127.0.0.1: the answer is too large");
    row("await fetch(base + '/ok'); for (;;);", "error: the plugin ran longer than 1 s");
}

void PluginNetworkTest::fetch()
{
    QFETCH(QByteArray, script);
    QFETCH(QByteArray, result);
    ForgeServer server;
    server.answers = {
        {"/ok", {200, "{\"x\":\"ä\"}"}},           {"/moved", {302, {}, "/ok"}},
        {"/away", {302, {}, "http://127.0.0.2/"}}, {"/circle", {302, {}, "BASE/circle"}},
        {"/silent", {.isSilent = true}},           {"/large", {200, QByteArray(17 << 20, 'x')}}};
    PluginSetting setting = settingFor(server);
    setting.limits.scriptSeconds = 1;
    const PluginHome home(setting);
    const QByteArray manifest = R"({"name":"x","capabilities":["network:)" + server.base().sliced(7) + "\"]}";
    QCOMPARE(home.install(u"x"_qs, "exports.exportInvoice = async (base) => {" + script + "}", manifest, {},
                          HostGrant::all),
             QString());
    QCOMPARE(home.call(u"x"_qs, "exportInvoice", "[\"" + server.base() + "\"]")
                 .left(result.size() + 2)
                 .replace(" (", ""),
             result);
    if (script.contains("'post'"))
        QVERIFY(server.requests.last().startsWith("POST /ok ") &&
                server.requests.last().toLower().contains("x-key: k"));
    QVERIFY(std::ranges::none_of(
        server.requests, [](const QByteArray& request) { return request.toLower().contains("cookie"); }));
}

void PluginNetworkTest::connector()
{
    const PluginHome home;
    const QByteArray main =
        "exports.exportInvoice = (value) => connector.run(value).then((reply) => reply.value)";
    QCOMPARE(home.install(u"x"_qs, main, "{\"name\":\"x\",\"capabilities\":[\"connector\"]}"), QString());
    const QString folder = home.manager->folder().path();
    QCOMPARE(home.call(u"x"_qs, "exportInvoice", "[7]"),
             "error: The Ledra connector isn’t installed. Add LedraConnector.scpt to " + folder.toUtf8());
    const QString script = folder + u"/LedraConnector.scpt"_qs;
    QVERIFY(home.put(script, "#!/bin/sh\necho \"[\\\"$1\\\",$(cat)]\"\n"));
    QVERIFY(QFile(script).setPermissions(QFile::ReadOwner | QFile::ExeOwner | QFile::WriteOwner));
    QCOMPARE(home.call(u"x"_qs, "exportInvoice", "[{\"a\":\"ä\"}]"), "[\"ledraRun\",{\"a\":\"ä\"}]");
    QVERIFY(home.put(script, "#!/bin/sh\nexit 3\n"));
    QCOMPARE(home.call(u"x"_qs, "exportInvoice", "[7]"), "error: LedraConnector.scpt failed");
}

const test::RegisterSuite<PluginNetworkTest> registration("plugin_network_test");

#include "plugin_network_test.moc"
