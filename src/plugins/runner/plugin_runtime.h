#pragma once

#include "plugins/runner/message_pipe.h"

#include <QHash>
#include <QSet>
#include <QString>

#include <jsc/jsc.h>

#include <memory>
#include <optional>

namespace ledra {

struct ObjectRelease
{
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <class T>
using Owned = std::unique_ptr<T, ObjectRelease>;

/// The result of a call: JSON text, or what went wrong.
struct CallResult
{
    bool isFine = false;
    QString text;
};

/// One plugin's JavaScript, in a context of its own: its modules, its exports and the call that it is at.
/// Module sources and everything else from outside are asked of the program.
class PluginRuntime
{
public:
    PluginRuntime(MessagePipe& pipe, QString plugin) : pipe_(pipe), plugin_(std::move(plugin)) {}
    ~PluginRuntime();
    PluginRuntime(const PluginRuntime&) = delete;
    PluginRuntime& operator=(const PluginRuntime&) = delete;

    /// Makes the context and evaluates the main module; returns the error, empty when all is well.
    QString load(bool hasFetch, bool hasConnector);

    /// Of the four entry points those that the main module exports as functions.
    QStringList entryPoints() const;

    /// Calls one; the arguments are a JSON list. Returns nothing while the result has to wait for answers.
    std::optional<CallResult> call(const QString& operation, const QString& arguments);

    /// Hands in what the program answers to an asked question, and goes on with the call.
    std::optional<CallResult> answer(const QJsonObject& message);

private:
    static JSCValue* requireModule(const char* path, PluginRuntime* self);
    static void log(const char* text, PluginRuntime* self);
    static void ask(int number, const char* kind, const char* detail, PluginRuntime* self);
    static void finish(gboolean isFine, const char* text, PluginRuntime* self);

    JSCValue* load(const QString& path);
    Owned<JSCValue> evaluateModule(const QString& source, const QString& name);
    Owned<JSCValue> function(const char* name, GCallback callback, std::initializer_list<GType> parameters,
                             GType result);
    Owned<JSCValue> string(const QString& text) const;
    bool installSurface(bool hasFetch, bool hasConnector);
    void fail(const QString& message) const;
    QString takeException();
    std::optional<CallResult> progress();

    MessagePipe& pipe_;
    QString plugin_;
    Owned<JSCContext> context_;
    Owned<JSCValue> surface_;
    Owned<JSCValue> exports_;
    QHash<QString, JSCValue*> modules_; ///< exports by standardised path; owned
    QHash<QString, QString> pathOf_;    ///< standardised paths by what was required
    QSet<QString> evaluating_;
    std::optional<CallResult> result_;
    int loggedLines_ = 0;
};

} // namespace ledra
