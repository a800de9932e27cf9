// ledra-plugin-runner: runs the scripts of plugins for Ledra, which starts it and talks to it over the
// standard input and output. Started by hand with --check-sandbox it tells what it could not do to the
// computer.

#include "plugins/runner/plugin_runtime.h"
#include "plugins/runner/sandbox.h"
#include "plugins/runner/surface.h"

#include <QJsonArray>

#include <cstdlib>
#include <map>
#include <string_view>

namespace {

using namespace ledra;

constexpr std::size_t megabyte = std::size_t{1} << 20;
constexpr std::size_t memoryForCheck = 64;

/// An interpreter without a compiler: less to attack, and memory never has to become code.
void prepareLanguage()
{
    jsc_options_set_boolean(JSC_OPTIONS_USE_JIT, FALSE);
    const Owned<JSCContext> context(jsc_context_new());
    const Owned<JSCValue> warm(jsc_context_evaluate(context.get(), warmUpScript, -1));
}

class Runner
{
public:
    [[noreturn]] void run()
    {
        MessagePipe::send({{QStringLiteral("type"), QStringLiteral("ready")}});
        for (;;) {
            const QJsonObject message = pipe_.receive();
            const QString type = message[QStringLiteral("type")].toString();
            if (type == u"load")
                load(message);
            else if (type == u"call" || type == u"answer")
                goOn(type == u"call", message);
        }
    }

private:
    void load(const QJsonObject& message)
    {
        const QString plugin = message[QStringLiteral("plugin")].toString();
        std::unique_ptr<PluginRuntime>& runtime = runtimes_[plugin];
        runtime = std::make_unique<PluginRuntime>(pipe_, plugin);
        const QString error = runtime->load(message[QStringLiteral("fetch")].toBool(),
                                            message[QStringLiteral("connector")].toBool());
        MessagePipe::send(
            {{QStringLiteral("type"), QStringLiteral("loaded")},
             {QStringLiteral("plugin"), plugin},
             {QStringLiteral("error"), error},
             {QStringLiteral("entryPoints"), QJsonArray::fromStringList(runtime->entryPoints())}});
    }

    /// Begins the call or continues it with an answer; says that it waits, or how it ended.
    void goOn(bool isNew, const QJsonObject& message)
    {
        const auto runtime = runtimes_.find(message[QStringLiteral("plugin")].toString());
        if (runtime == runtimes_.end())
            return;
        const std::optional<CallResult> result =
            isNew ? runtime->second->call(message[QStringLiteral("operation")].toString(),
                                          message[QStringLiteral("arguments")].toString())
                  : runtime->second->answer(message);
        QJsonObject reply = {{QStringLiteral("type"), QStringLiteral("waiting")}};
        if (result)
            reply = {{QStringLiteral("type"), QStringLiteral("done")},
                     {QStringLiteral("isFine"), result->isFine},
                     {QStringLiteral("text"), result->text}};
        reply[QStringLiteral("call")] = message[QStringLiteral("call")];
        MessagePipe::send(reply);
    }

    MessagePipe pipe_;
    std::map<QString, std::unique_ptr<PluginRuntime>> runtimes_;
};

} // namespace

#ifdef __SANITIZE_ADDRESS__
/// Memory that is freed comes back soon, since it counts against the limit.
extern "C" const char* __asan_default_options() // NOLINT(bugprone-reserved-identifier): the sanitizer's name
{
    return "quarantine_size_mb=4:thread_local_quarantine_size_kb=64:detect_leaks=0";
}
#endif

/// @param argv the memory that plugins may take together, in megabytes
int main(int argc, char** argv)
{
    if (argc != 2)
        return EXIT_FAILURE;
    const bool isCheck = std::string_view(argv[1]) == "--check-sandbox";
    bindToParent();
    ::setenv("GIGACAGE_ENABLED", "0", 1); // it would lay memory out that no limit reaches
    prepareLanguage();
    const std::size_t memory = isCheck ? memoryForCheck : std::strtoul(argv[1], nullptr, 10);
    if (!enterSandbox(memory * megabyte))
        return EXIT_FAILURE; // no foreign script ever runs without
    if (isCheck)
        return checkSandbox();
    Runner().run();
}
