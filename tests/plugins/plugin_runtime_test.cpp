#include "support/plugin_home.h"
#include "support/test_suite.h"

#include <sys/resource.h>

#include <csignal>

using namespace ledra;
using test::PluginHome;

namespace {

/// Limits that are soon reached; under a sanitizer everything takes longer, and memory is needed for its own
/// ends.
PluginSetting shortLimits()
{
    return {.limits = {.scriptSeconds = 2, .waitSeconds = 2, .megabytes = 128}};
}

QByteArray statusLine(qint64 process, const char* name)
{
    for (const QByteArray& line :
         test::contentOf(QStringLiteral("/proc/%1/status").arg(process)).split('\n')) {
        if (line.startsWith(QByteArray(name) + ':'))
            return line.mid(line.indexOf(':') + 1).trimmed();
    }
    return {};
}

} // namespace

/// Scripts of plugins, run by the real runner.
class PluginRuntimeTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void argumentsAndResultsCross();
    void largeArgumentsCross();
    void modules_data();
    void modules();
    void scriptsThatDoNotLoad_data();
    void scriptsThatDoNotLoad();
    void entryPointsAreKnownOnceLoaded();
    void pluginsNeverMeet();
    void limits_data();
    void limits();
    void floodOfLinesIsCut();
    void crashIsSurvived();
    void cancelledOrders();
    void brokenRunnerIsNotTrusted_data();
    void brokenRunnerIsNotTrusted();
    void runnerIsLockedUp();
    void idleRunnerEnds();
};

void PluginRuntimeTest::argumentsAndResultsCross()
{
    const PluginHome home;
    const QByteArray main = R"(
        exports.exportInvoice = (invoice, context) => `${invoice.name} ${context.n + 1} \u0000 ${typeof fetch}`;
        exports.exportInvoices = async (list) => { await null; return { content: list.join("|") }; };
        exports.importInvoices = () => undefined;
        exports.updateInvoices = async () => { throw new Error("no luck"); };)";
    QCOMPARE(home.install(u"p"_qs, main), QString());
    QCOMPARE(home.call(u"p"_qs, "exportInvoice", "[{\"name\":\"Köln \\\"Ä\\\" 発票\"},{\"n\":41}]"),
             "\"Köln \\\"Ä\\\" 発票 42 \\u0000 undefined\"");
    QCOMPARE(home.call(u"p"_qs, "exportInvoices", "[[\"a\",\"b\"],{}]"), "{\"content\":\"a|b\"}");
    QCOMPARE(home.call(u"p"_qs, "importInvoices"), "null");
    QCOMPARE(home.call(u"p"_qs, "updateInvoices"), "error: no luck (main.js:5)");
    QCOMPARE(home.manager->runtime(u"p"_qs).lastError, u"no luck (main.js:5)"_qs);
    QCOMPARE(home.call(u"p"_qs, "exportInvoices", "[[],{}]"), "{\"content\":\"\"}");
    QCOMPARE(home.manager->runtime(u"p"_qs).lastError, QString());
    QCOMPARE(home.call(u"none"_qs, "exportInvoice"), "error: no plugin is called \"none\"");
}

/// Garbage is collected while arguments are on their way.
void PluginRuntimeTest::largeArgumentsCross()
{
    const PluginHome home;
    QCOMPARE(home.install(u"p"_qs,
                          "exports.exportInvoice = (text, list) => [text.length, list.length, list.at(-1)]"),
             QString());
    QByteArrayList items;
    for (int number = 0; number < 200'000; ++number)
        items += "{\"number\":" + QByteArray::number(number) + '}';
    const QByteArray text = '"' + QByteArray(8 << 20, 'x') + '"';
    QCOMPARE(home.call(u"p"_qs, "exportInvoice", '[' + text + ",[" + items.join(',') + "]]"),
             "[8388608,200000,{\"number\":199999}]");
    QCOMPARE(home.call(u"p"_qs, "exportInvoice", '"' + QByteArray(60 << 20, 'x') + '"'),
             "error: these are too many records for one call");
}

void PluginRuntimeTest::modules_data()
{
    QTest::addColumn<QByteArray>("script"); ///< the body of a function
    QTest::addColumn<QByteArray>("result");
    const auto row = [](const char* script, const char* result) {
        QTest::newRow(script) << QByteArray(script) << QByteArray(result);
    };
    row("return require('lib/util').name", R"("util")");
    row("return require('lib/util.js').name", R"("util")");
    row("return require('./lib/../lib/util') === require('lib/util')", "true");
    row("require('lib/count'); require('lib/count.js'); return globalThis.count", "1");
    row("return require('lib/both')", R"("file")"); // a file named so wins over the one with the extension
    row("return require('lib/nested')", R"("util nested")");
    row("return require('../other/x.js')", "error: Module path escapes plugin directory: ../other/x.js");
    row("return require('lib/../../p.ledraplugin.js')",
        "error: Module path escapes plugin directory: lib/../../p.ledraplugin.js");
    row("return require('/etc/passwd')", "error: Cannot find module: /etc/passwd"); // within the folder
    row("return require('link')", "error: Module path escapes plugin directory: link");
    row("return require('folder/util')", "error: Module path escapes plugin directory: folder/util");
    row("return require('a\"b')", "error: Cannot find module: a\"b");
    row("try { require('none') } catch (e) { return [e instanceof Error, e.message] }",
        R"([true,"Cannot find module: none"])");
    row("return require('lib/broken')", "error: it broke (lib/broken:2)");
    row("return require('lib/circle')", "error: Module requires itself: lib/circle");
    row("return require('lib/binary')", "error: Cannot find module: lib/binary");
    row("return require('')", "error: Module path escapes plugin directory: ");
}

void PluginRuntimeTest::modules()
{
    QFETCH(QByteArray, script);
    QFETCH(QByteArray, result);
    const PluginHome home;
    QCOMPARE(home.install(u"p"_qs, "exports.exportInvoice = () => {" + script + "}", "{\"name\":\"Test\"}",
                          {{u"lib/util.js"_qs, "exports.name = 'util'"},
                           {u"lib/count.js"_qs, "globalThis.count = (globalThis.count ?? 0) + 1"},
                           {u"lib/both"_qs, "module.exports = 'file'"},
                           {u"lib/both.js"_qs, "module.exports = 'extension'"},
                           {u"lib/nested.js"_qs, "module.exports = require('lib/util').name + ' nested'"},
                           {u"lib/broken.js"_qs, "\nthrow new Error('it broke')"},
                           {u"lib/circle.js"_qs, "require('lib/circle')"},
                           {u"lib/binary.js"_qs, "exports.x = '\xff\xfe'"}}),
             QString());
    // No package can bring links; somebody may put them there later.
    const QString folder = home.manager->folder().pathOf(u"p"_qs);
    QVERIFY(home.put(home.path(u"outside/util.js"_qs), "module.exports = 'outside'"));
    QVERIFY(QFile::link(home.path(u"outside/util.js"_qs), folder + u"/link.js"_qs));
    QVERIFY(QFile::link(home.path(u"outside"_qs), folder + u"/folder"_qs));
    const QByteArray found = home.call(u"p"_qs, "exportInvoice");
    QVERIFY2(found.startsWith(result), found.constData());
}

void PluginRuntimeTest::scriptsThatDoNotLoad_data()
{
    QTest::addColumn<QByteArray>("main");
    QTest::addColumn<QString>("error");
    QTest::newRow("syntax") << QByteArray("exports.x = (") << u"Plugin script failed to evaluate."_qs;
    QTest::newRow("throws") << QByteArray("null.x") << u"Plugin script failed to evaluate."_qs;
    QTest::newRow("out of its wrapper") << QByteArray("}) } (") << u"Plugin script failed to evaluate."_qs;
    QTest::newRow("no text") << QByteArray("'\xff'") << u"Could not read main.js"_qs;
    QTest::newRow("too large") << QByteArray(5 << 20, ' ') << u"Could not read main.js"_qs;
    QTest::newRow("endless") << QByteArray("for (;;);") << u"the plugin ran longer than 2 s"_qs;
}

void PluginRuntimeTest::scriptsThatDoNotLoad()
{
    QFETCH(QByteArray, main);
    QFETCH(QString, error);
    const PluginHome home(shortLimits());
    QCOMPARE(home.install(u"broken"_qs, main), QString());
    QCOMPARE(home.install(u"fine"_qs, "exports.exportInvoice = () => 1"), QString());
    QVERIFY(home.loadAll());
    const PluginRuntimeState broken = home.manager->runtime(u"broken"_qs);
    QCOMPARE(broken.lastError, error);
    QVERIFY(!broken.hasExportInvoice && !broken.hasImportInvoices);
    QVERIFY(home.manager->runtime(u"fine"_qs).hasExportInvoice);
    QCOMPARE(home.call(u"broken"_qs, "exportInvoice"), "error: " + error.toUtf8());
}

void PluginRuntimeTest::entryPointsAreKnownOnceLoaded()
{
    const PluginHome home;
    QCOMPARE(home.install(u"importer"_qs,
                          "module.exports = { importInvoices() { return []; }, exportInvoice: 1 };"),
             QString());
    QCOMPARE(
        home.install(u"others"_qs,
                     "exports.exportInvoice = exports.exportInvoices = exports.updateInvoices = () => 1;"),
        QString());
    QCOMPARE(home.install(u"none"_qs, "module.exports = null"), QString());
    QVERIFY(home.loadAll());
    const auto flags = [&](const char* id) {
        const PluginRuntimeState& state = home.manager->runtime(QString::fromLatin1(id));
        return QList<bool>{state.hasExportInvoice, state.hasExportInvoices, state.hasImportInvoices,
                           state.hasUpdateInvoices};
    };
    QCOMPARE(flags("importer"), (QList<bool>{false, false, true, false}));
    QCOMPARE(flags("others"), (QList<bool>{true, true, false, true}));
    QCOMPARE(flags("none"), (QList<bool>{false, false, false, false}));
}

void PluginRuntimeTest::pluginsNeverMeet()
{
    const PluginHome home;
    for (const QString& id : {u"a"_qs, u"b"_qs}) {
        const QByteArray main = "globalThis.shared = (globalThis.shared ?? '') + '" + id.toUtf8() + "';" + R"(
            Object.prototype.leak = shared; Array.prototype.map = null; JSON.parse = () => shared;
            exports.exportInvoice = (value) => [shared, ({}).leak, require('lib/own'), value];)";
        QCOMPARE(
            home.install(id, main, "{\"name\":\"Test\"}", {{u"lib/own.js"_qs, "module.exports = shared"}}),
            QString());
    }
    for (int round = 0; round < 2; ++round) {
        QCOMPARE(home.call(u"a"_qs, "exportInvoice", "[1]"), "[\"a\",\"a\",\"a\",1]");
        QCOMPARE(home.call(u"b"_qs, "exportInvoice", "[2]"), "[\"b\",\"b\",\"b\",2]");
    }
}

void PluginRuntimeTest::limits_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QByteArray>("errors"); ///< one of these, with "|" between them
    const auto row = [](const char* name, const char* script, const char* errors) {
        QTest::newRow(name) << QByteArray(script) << QByteArray(errors);
    };
    const char* tooLong = "the plugin ran longer than 2 s";
    const char* memory =
        "Out of memory|the plugin took too much memory or broke its runner|the plugin ran longer than 2 s";
    row("endless loop", "for (;;);", tooLong);
    row("endless expression", "return /^(a+)+$/.test('a'.repeat(50) + 'b')", tooLong);
    row("endless promises", "return (async () => { for (;;) await 0; })()", tooLong);
    row("endless sorting", "return Array(100).fill(0).sort(() => { for (;;); })", tooLong);
    row("recursion", "const f = () => f() + 1; return f()", "Maximum call stack size exceeded.");
    row("recursion of conversions", "const o = { toJSON: () => JSON.stringify(o) }; return o",
        "Maximum call stack");
    row("memory of arrays", "const a = []; for (;;) a.push(new Array(1000).fill(1))", memory);
    row("memory of buffers", "const a = []; for (;;) a.push(new Uint8Array(1 << 20).fill(1))", memory);
    row("memory of shapes",
        "const a = []; for (let i = 0;; ++i) { const o = {}; o['k' + i] = 1; a.push(o); }",
        "the plugin took too much memory or broke its runner|the plugin ran longer than 2 s");
    row("memory of a text", "let s = 'x'; for (;;) s += s", memory);
    row("large result", "return 'x'.repeat(40 << 20)", "the result is too large|the plugin took too much");
    row("promise of nobody", "return new Promise(() => {})", "its promise was never kept");
    row("endless requiring", "for (let i = 0;; ++i) try { require('x' + i) } catch {}",
        "the plugin asks for too much|the plugin ran longer than 2 s");
    row("deep result", "let o = {}; for (let i = 0; i < 5000; ++i) o = { o }; return o", "");
}

void PluginRuntimeTest::limits()
{
    QFETCH(QByteArray, script);
    QFETCH(QByteArray, errors);
    const PluginHome home(shortLimits());
    QCOMPARE(home.install(u"hog"_qs, "exports.exportInvoice = () => {" + script + "}"), QString());
    QCOMPARE(home.install(u"fine"_qs, "let calls = 0; exports.exportInvoice = () => ++calls"), QString());
    QCOMPARE(home.call(u"fine"_qs, "exportInvoice"), "1");
    bool isAlive = false; // the thread of the windows goes on meanwhile
    QTimer::singleShot(0, [&] { isAlive = true; });
    const QByteArray result = home.call(u"hog"_qs, "exportInvoice");
    const QByteArrayList expected = errors.split('|');
    QVERIFY2(std::ranges::any_of(expected,
                                 [&](const QByteArray& error) {
                                     return result.startsWith(error.isEmpty() ? QByteArray("{")
                                                                              : "error: " + error);
                                 }),
             result.constData());
    QVERIFY(isAlive);
    QVERIFY(errors.isEmpty() || result == "error: " + home.manager->runtime(u"hog"_qs).lastError.toUtf8());
    const QByteArray again =
        home.call(u"fine"_qs, "exportInvoice"); // in the same runner or, loaded again, in the next
    QVERIFY2(again == "1" || again == "2", again.constData());
}

void PluginRuntimeTest::floodOfLinesIsCut()
{
    const PluginHome home;
    const QByteArray main = R"(exports.exportInvoice = () => {
        console.log("a\u001b[31m", 1, { b: [2] }, new Error("c"), undefined);
        for (let i = 0; i < 2000; ++i) console.log("x".repeat(5000));
        return 1; })";
    QCOMPARE(home.install(u"p"_qs, main), QString());
    QCOMPARE(home.call(u"p"_qs, "exportInvoice"), "1");
    QCOMPARE(home.console.informations.size(), 1000);
    QVERIFY(home.console.informations[0].startsWith(u"p: a [31m 1 {\"b\":[2]} c"_qs));
    QVERIFY(home.console.informations[1].size() <= 4003);
    QCOMPARE(home.console.informations.last(), u"p: (further lines are left out)"_qs);
}

void PluginRuntimeTest::crashIsSurvived()
{
    const PluginHome home;
    QCOMPARE(home.install(u"p"_qs,
                          "exports.exportInvoice = () => { for (;;); }; exports.exportInvoices = () => 7"),
             QString());
    QVERIFY(home.loadAll());
    const qint64 process = home.manager->runner().processId();
    QVERIFY(process > 0);
    QTimer::singleShot(300, [&] { ::kill(static_cast<pid_t>(process), SIGKILL); });
    QCOMPARE(home.call(u"p"_qs, "exportInvoice"),
             "error: the plugin took too much memory or broke its runner");
    QCOMPARE(home.call(u"p"_qs, "exportInvoices"), "7");
    QVERIFY(home.manager->runner().processId() != process);

    PluginSetting noRunner;
    noRunner.runner = u"/none"_qs;
    const PluginHome other(noRunner);
    QCOMPARE(other.install(u"p"_qs, "exports.exportInvoice = () => 1"), QString());
    QCOMPARE(other.call(u"p"_qs, "exportInvoice"), "error: Plugin runtime could not be created.");
}

void PluginRuntimeTest::cancelledOrders()
{
    const PluginHome home;
    QCOMPARE(home.install(u"hog"_qs, "exports.exportInvoice = () => { for (;;); }"), QString());
    QCOMPARE(home.install(u"fine"_qs, "exports.exportInvoice = () => 1"), QString());
    QVERIFY(home.loadAll());
    QByteArrayList answers;
    test::Waiting waiting;
    const auto call = [&](const QString& id) {
        return home.manager->call(id, u"exportInvoice"_qs, "[]", [&, id](const auto& json) {
            answers += id.toUtf8() + ": " + (json ? *json : json.error().toUtf8());
            if (id == u"fine")
                waiting.done();
        });
    };
    const PluginTicket running = call(u"hog"_qs);
    const PluginTicket waitingOne = call(u"hog"_qs);
    call(u"hog"_qs);
    call(u"fine"_qs);
    QCoreApplication::processEvents(); // the first one is begun
    home.manager->cancel(waitingOne);
    home.manager->cancel(running);
    home.manager->cancel(running); // is gone already
    QCOMPARE(home.manager->runtime(u"hog"_qs).lastError, QString());
    QVERIFY(home.manager->setEnabled(u"hog"_qs, false)); // and with it what is left
    QVERIFY(waiting.wait());
    const QByteArray cancelled = "hog: the run was cancelled";
    QCOMPARE(answers, (QByteArrayList{cancelled, cancelled, cancelled, "fine: 1"}));
}

void PluginRuntimeTest::brokenRunnerIsNotTrusted_data()
{
    QTest::addColumn<QByteArray>("script"); ///< of a shell that stands in the place of the runner
    QTest::addColumn<QByteArray>("error");
    const QByteArray notStarted = "Plugin runtime could not be created.";
    const QByteArray broken = "the plugin broke its runner";
    const auto row = [](const char* name, const QByteArray& script, const QByteArray& error) {
        QTest::newRow(name) << "#!/bin/sh\n" + script << error;
    };
    const auto saying = [](const QByteArrayList& messages) {
        QByteArray script;
        for (const QByteArray& message : messages)
            script += "printf '\\" + QByteArray::number(message.size() % 256, 8) + "\\" +
                      QByteArray::number(message.size() / 256, 8) + "\\0\\0%s' '" + message + "'\n";
        return script + "exec sleep 60\n";
    };
    const QByteArray ready = R"({"type":"ready"})";
    const QByteArray loaded = R"({"type":"loaded","entryPoints":["exportInvoice"]})";
    const QByteArray done = R"({"type":"done","isFine":true,"text":"1"})";
    row("says nothing", "exec sleep 60\n", notStarted);
    row("ends", "", notStarted);
    row("endless message", R"(printf '\377\377\377\377'; exec cat /dev/zero)", notStarted);
    row("noise", "exec head -c 10000000 /dev/urandom\n", notStarted);
    row("no object", saying({"[]"}), notStarted);
    row("too deep", saying({QByteArray(2000, '[')}), notStarted);
    row("done too early", saying({done}), notStarted);
    row("unknown type", saying({ready, R"({"type":"fly"})"}), broken);
    row("done while loading", saying({ready, done}), broken);
    row("asks while loading", saying({ready, R"({"type":"ask","kind":"fetch","detail":"{}"})"}), broken);
    row("loaded twice", saying({ready, loaded, loaded}), broken);
    row("waits for nothing", saying({ready, loaded, R"({"type":"waiting","call":1})"}),
        "the plugin ran longer than 1 s");
    row("ends in a call", saying({ready, loaded}).chopped(14),
        "the plugin took too much memory or broke its runner");
}

void PluginRuntimeTest::brokenRunnerIsNotTrusted()
{
    QFETCH(QByteArray, script);
    QFETCH(QByteArray, error);
    PluginSetting setting = shortLimits();
    setting.limits.scriptSeconds = 1;
    const QTemporaryDir folder;
    setting.runner = folder.filePath(u"runner"_qs);
    QVERIFY(test::writeFile(setting.runner, script));
    QVERIFY(QFile(setting.runner).setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    const PluginHome home(setting);
    QCOMPARE(home.install(u"p"_qs, ""), QString());
    QCOMPARE(home.call(u"p"_qs, "exportInvoice"), "error: " + error);
    QVERIFY(!home.manager->runner().isRunning());
}

void PluginRuntimeTest::runnerIsLockedUp()
{
    const test::ProgramRun check = [] {
        QProcess process;
        process.start(QStringLiteral(LEDRA_PLUGIN_RUNNER), {u"--check-sandbox"_qs});
        return test::endOf(process);
    }();
    QCOMPARE(check.output.count(": forbidden\n"), 9);
    QVERIFY2(check.exitCode == 0, check.output.constData());

    const PluginHome home;
    const QByteArray main = R"(exports.exportInvoice = () =>
        ["fetch", "connector", "process", "Deno", "load", "readFile", "XMLHttpRequest", "WebSocket", "setTimeout", "print"]
            .filter((name) => name in globalThis))";
    QCOMPARE(home.install(u"p"_qs, main), QString());
    QCOMPARE(home.call(u"p"_qs, "exportInvoice"), "[]");
    const qint64 process = home.manager->runner().processId();
    QCOMPARE(statusLine(process, "Seccomp"), "2");
    QCOMPARE(statusLine(process, "NoNewPrivs"), "1");
    for (const QString& entry : QDir(u"/proc/%1/fd"_qs.arg(process)).entryList(QDir::Files | QDir::System)) {
        const QString target = QFile::symLinkTarget(u"/proc/%1/fd/"_qs.arg(process) + entry);
        const QStringList harmless = {u"/dev/null"_qs, u"/dev/urandom"_qs, u"/proc/%1/statm"_qs.arg(process)};
        const bool isHarmless =
            target.contains(u"pipe:"_qs) || target.contains(u"eventfd"_qs) || harmless.contains(target);
        QVERIFY2(isHarmless, qPrintable(target));
    }
    rlimit data{};
    QVERIFY(::prlimit(static_cast<pid_t>(process), RLIMIT_DATA, nullptr, &data) == 0 &&
            data.rlim_cur != RLIM_INFINITY);
}

void PluginRuntimeTest::idleRunnerEnds()
{
    PluginSetting setting;
    setting.limits.idle = std::chrono::milliseconds(50);
    const PluginHome home(setting);
    QCOMPARE(home.manager->runner().processId(), 0); // nothing is started before it is wanted
    QCOMPARE(home.install(u"p"_qs, "let calls = 0; exports.exportInvoice = () => ++calls"), QString());
    QCOMPARE(home.call(u"p"_qs, "exportInvoice"), "1");
    QTRY_VERIFY(!home.manager->runner().isRunning());
    QCOMPARE(home.call(u"p"_qs, "exportInvoice"), "1");
}

const test::RegisterSuite<PluginRuntimeTest> registration("plugin_runtime_test");

#include "plugin_runtime_test.moc"
