#include "plugins/runner/plugin_runtime.h"

#include "plugins/runner/surface.h"

#include <QStringList>

#include <array>

namespace ledra {

namespace {

constexpr std::array entryPointNames = {"exportInvoice", "exportInvoices", "importInvoices",
                                        "updateInvoices"};

constexpr int mostLoggedLines = 1000; ///< in a load or a call
constexpr qsizetype longestLine = 4000;
constexpr qsizetype longestResult = qsizetype{32} << 20;

} // namespace

PluginRuntime::~PluginRuntime()
{
    for (JSCValue* exports : std::as_const(modules_))
        g_object_unref(exports);
}

void PluginRuntime::log(const char* text, PluginRuntime* self)
{
    if (++self->loggedLines_ > mostLoggedLines)
        return;
    const bool isLast = self->loggedLines_ == mostLoggedLines;
    MessagePipe::send({{QStringLiteral("type"), QStringLiteral("log")},
                       {QStringLiteral("plugin"), self->plugin_},
                       {QStringLiteral("text"), isLast ? QStringLiteral("(further lines are left out)")
                                                       : QString::fromUtf8(text).left(longestLine)}});
}

void PluginRuntime::ask(int number, const char* kind, const char* detail, PluginRuntime*)
{
    MessagePipe::send({{QStringLiteral("type"), QStringLiteral("ask")},
                       {QStringLiteral("number"), number},
                       {QStringLiteral("kind"), QString::fromUtf8(kind)},
                       {QStringLiteral("detail"), QString::fromUtf8(detail)}});
}

void PluginRuntime::finish(gboolean isFine, const char* text, PluginRuntime* self)
{
    const QString result = QString::fromUtf8(text);
    self->result_ = result.size() > longestResult
                        ? CallResult{false, QStringLiteral("the result is too large")}
                        : CallResult{isFine != FALSE, result};
}

/// What a script throws that is stopped by us; inside a call from a script it is thrown there.
void PluginRuntime::fail(const QString& message) const
{
    jsc_context_throw(context_.get(), message.toUtf8().constData());
}

/// The words of the exception that is up; empty when there is none.
QString PluginRuntime::takeException()
{
    JSCException* exception = jsc_context_get_exception(context_.get());
    if (!exception)
        return {};
    const char* source = jsc_exception_get_source_uri(exception);
    const int line = static_cast<int>(jsc_exception_get_line_number(exception)) - 3; // of the wrapper
    QString text = QString::fromUtf8(jsc_exception_get_message(exception));
    if (source && *source && line > 0)
        text += QStringLiteral(" (%1:%2)").arg(QString::fromUtf8(source)).arg(line);
    jsc_context_clear_exception(context_.get());
    return text.isEmpty() ? QStringLiteral("unknown") : text;
}

Owned<JSCValue> PluginRuntime::function(const char* name, GCallback callback,
                                        std::initializer_list<GType> parameters, GType result)
{
    std::vector<GType> types(parameters);
    return Owned<JSCValue>(jsc_value_new_functionv(context_.get(), name, callback, this, nullptr, result,
                                                   static_cast<guint>(types.size()), types.data()));
}

/// A text that the garbage collector knows of. One that is made while the arguments of a call are gathered is
/// not known to it, and goes when the next, a large one, sets it off.
Owned<JSCValue> PluginRuntime::string(const QString& text) const
{
    return Owned<JSCValue>(jsc_value_new_string(context_.get(), text.toUtf8().constData()));
}

bool PluginRuntime::installSurface(bool hasFetch, bool hasConnector)
{
    const Owned<JSCValue> install(jsc_context_evaluate(context_.get(), surfaceScript, -1));
    const auto logger = function("log", G_CALLBACK(log), {G_TYPE_STRING}, G_TYPE_NONE);
    const auto loader = function("require", G_CALLBACK(requireModule), {G_TYPE_STRING}, JSC_TYPE_VALUE);
    const auto asker =
        function("ask", G_CALLBACK(ask), {G_TYPE_INT, G_TYPE_STRING, G_TYPE_STRING}, G_TYPE_NONE);
    surface_.reset(jsc_value_function_call(install.get(), JSC_TYPE_VALUE, logger.get(), JSC_TYPE_VALUE,
                                           loader.get(), JSC_TYPE_VALUE, asker.get(), G_TYPE_BOOLEAN,
                                           hasFetch ? TRUE : FALSE, G_TYPE_BOOLEAN,
                                           hasConnector ? TRUE : FALSE, G_TYPE_NONE));
    return takeException().isEmpty();
}

QString PluginRuntime::load(bool hasFetch, bool hasConnector)
{
    context_.reset(jsc_context_new());
    if (!context_ || !installSurface(hasFetch, hasConnector))
        return QStringLiteral("Plugin runtime could not be created.");
    const QString main = QStringLiteral("main.js");
    MessagePipe::send({{QStringLiteral("type"), QStringLiteral("read")},
                       {QStringLiteral("plugin"), plugin_},
                       {QStringLiteral("path"), main}});
    const QJsonObject module = pipe_.receive(QStringLiteral("module"));
    if (!module.contains(QStringLiteral("source")))
        return QStringLiteral("Could not read main.js");
    evaluating_.insert(module[QStringLiteral("path")].toString());
    exports_ = evaluateModule(module[QStringLiteral("source")].toString(), main);
    evaluating_.clear();
    if (const QString problem = takeException(); !problem.isEmpty()) {
        log(problem.toUtf8().constData(), this);
        exports_.reset();
        return QStringLiteral("Plugin script failed to evaluate.");
    }
    return {};
}

Owned<JSCValue> PluginRuntime::evaluateModule(const QString& source, const QString& name)
{
    const QByteArray text = "(function() {\n    var module = { exports: {} };\n"
                            "    (function(exports, module, require) {\n" +
                            source.toUtf8() +
                            "\n    })(module.exports, module, require);\n    return module.exports;\n})()";
    return Owned<JSCValue>(jsc_context_evaluate_with_source_uri(context_.get(), text.constData(), text.size(),
                                                                name.toUtf8().constData(), 1));
}

JSCValue* PluginRuntime::requireModule(const char* path, PluginRuntime* self)
{
    JSCValue* exports = self->load(QString::fromUtf8(path));
    return exports ? JSC_VALUE(g_object_ref(exports)) : nullptr;
}

/// The exports of a module, which stay the cache's; nothing when an error is thrown.
JSCValue* PluginRuntime::load(const QString& path)
{
    if (JSCValue* known = modules_.value(pathOf_.value(path)))
        return known;
    MessagePipe::send({{QStringLiteral("type"), QStringLiteral("read")},
                       {QStringLiteral("plugin"), plugin_},
                       {QStringLiteral("path"), path}});
    const QJsonObject module = pipe_.receive(QStringLiteral("module"));
    const QString place = module[QStringLiteral("path")].toString();
    if (module[QStringLiteral("escapes")].toBool()) {
        fail(QStringLiteral("Module path escapes plugin directory: ") + path);
    } else if (JSCValue* known = modules_.value(place)) {
        pathOf_.insert(path, place);
        return known;
    } else if (!module.contains(QStringLiteral("source"))) {
        fail(QStringLiteral("Cannot find module: ") + path);
    } else if (evaluating_.contains(place)) {
        fail(QStringLiteral("Module requires itself: ") + path);
    } else {
        evaluating_.insert(place);
        Owned<JSCValue> exports = evaluateModule(module[QStringLiteral("source")].toString(), path);
        evaluating_.remove(place);
        if (jsc_context_get_exception(context_.get()))
            return nullptr;
        pathOf_.insert(path, place);
        return modules_[place] = exports.release();
    }
    return nullptr;
}

QStringList PluginRuntime::entryPoints() const
{
    QStringList found;
    for (const char* name : entryPointNames) {
        if (!exports_ || !jsc_value_is_object(exports_.get()))
            continue;
        const Owned<JSCValue> property(jsc_value_object_get_property(exports_.get(), name));
        if (property && jsc_value_is_function(property.get()))
            found += QString::fromLatin1(name);
        jsc_context_clear_exception(context_.get()); // a getter may throw
    }
    return found;
}

/// Where the call stands once all microtasks have run.
std::optional<CallResult> PluginRuntime::progress()
{
    if (const QString problem = takeException(); !result_ && !problem.isEmpty())
        return CallResult{false, problem};
    const Owned<JSCValue> waiting(jsc_value_object_invoke_method(surface_.get(), "isWaiting", G_TYPE_NONE));
    if (!result_ && !jsc_value_to_boolean(waiting.get()))
        return CallResult{false, QStringLiteral("its promise was never kept")};
    return std::exchange(result_, std::nullopt);
}

std::optional<CallResult> PluginRuntime::call(const QString& operation, const QString& arguments)
{
    loggedLines_ = 0;
    result_.reset();
    jsc_context_clear_exception(context_.get());
    if (!entryPoints().contains(operation))
        return CallResult{false, QStringLiteral("the plugin has no ") + operation};
    const auto finisher =
        function("finish", G_CALLBACK(finish), {G_TYPE_BOOLEAN, G_TYPE_STRING}, G_TYPE_NONE);
    const Owned<JSCValue> name = string(operation);
    const Owned<JSCValue> texts = string(arguments);
    const Owned<JSCValue> promise(jsc_value_object_invoke_method(
        surface_.get(), "call", JSC_TYPE_VALUE, exports_.get(), JSC_TYPE_VALUE, name.get(), JSC_TYPE_VALUE,
        texts.get(), JSC_TYPE_VALUE, finisher.get(), G_TYPE_NONE));
    return progress();
}

std::optional<CallResult> PluginRuntime::answer(const QJsonObject& message)
{
    const Owned<JSCValue> problem = string(message[QStringLiteral("problem")].toString());
    const Owned<JSCValue> text = string(message[QStringLiteral("text")].toString());
    const Owned<JSCValue> nothing(jsc_value_object_invoke_method(
        surface_.get(), "answer", G_TYPE_INT, message[QStringLiteral("number")].toInt(), JSC_TYPE_VALUE,
        problem.get(), JSC_TYPE_VALUE, text.get(), G_TYPE_NONE));
    return progress();
}

} // namespace ledra
