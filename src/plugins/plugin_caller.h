#pragma once

#include "plugins/plugin.h"
#include "plugins/plugin_requests.h"
#include "plugins/runner_process.h"

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QSet>
#include <QTimer>

#include <chrono>
#include <deque>
#include <expected>
#include <functional>
#include <memory>

namespace ledra {

/// The bounds of what plugins may take.
struct PluginLimits
{
    int scriptSeconds = 10; ///< of a load or of a call, without what it waits for
    int waitSeconds = 120;  ///< for all answers in a call together
    int megabytes = 512;    ///< all plugins together, on top of the bare runner
    int messages = 20'000;  ///< that the runner may send in a load or a call
    std::chrono::milliseconds idle = std::chrono::seconds(60); ///< until the runner is ended
};

/// What is known of a plugin's runtime once it has been loaded.
struct PluginRuntimeState
{
    bool isLoaded = false; ///< it has been tried
    QString lastError;     ///< empty when all is well
    bool hasExportInvoice = false;
    bool hasExportInvoices = false;
    bool hasImportInvoices = false;
    bool hasUpdateInvoices = false;
};

/// Names an order while it is not done, so that it can be cancelled; 0 names none.
using PluginTicket = quint64;

/// What the answer to a cancelled order says.
inline const QString pluginCancelled = QStringLiteral("the run was cancelled");

/// One thing to do with a plugin: load it if need be, and call an entry point.
struct PluginOrder
{
    using Answer = std::function<void(const std::expected<QByteArray, QString>& json)>;

    Plugin plugin;
    PluginGrants grants;
    QString operation;    ///< empty: only load it
    QByteArray arguments; ///< a JSON list
    Answer answer;
    PluginTicket ticket = 0; ///< given by the caller
};

/// Has the scripts of plugins run in the runner's process, one order after the other, so that it is always
/// clear whose script it is that takes too long or breaks the runner. A runner that had to be ended is
/// started anew with the next order, and plugins are loaded again when they are called next.
class PluginCaller : public QObject
{
    Q_OBJECT

public:
    PluginCaller(QString program, const PluginLimits& limits);

    PluginTicket take(PluginOrder order);

    /// Ends an order with an error that is not kept as the plugin's last one. A runner that is at work on it
    /// is ended with it.
    void cancel(PluginTicket ticket);

    /// The same for all orders of a plugin.
    void cancelAll(const QString& id);

    /// The plugin's files or rights have changed: it is loaded again before its next call.
    void forget(const QString& id);

    /// The plugin cannot be used at all.
    void exclude(const QString& id, const QString& error)
    {
        states_[id] = {.isLoaded = true, .lastError = error};
    }

    /// What came back from a call could not be used.
    void note(const QString& id, const QString& error);

    const PluginRuntimeState& state(const QString& id) { return states_[id]; }
    const RunnerProcess& runner() const { return runner_; }

Q_SIGNALS:
    void logged(const QString& id, const QString& text);
    void stateChanged(const QString& id); ///< its entry points are known, or its last error is another

private:
    enum class Phase { idle, starting, loading, calling };

    void next();
    void enter(Phase phase);
    void goOn();
    void load();
    void call();
    void finish(const std::expected<QByteArray, QString>& result);
    void conclude(const std::expected<QByteArray, QString>& result);
    void cancelIf(const std::function<bool(const PluginOrder&)>& isMeant);
    void endRunner();
    void breakOff(const QString& reason);
    void pause();
    void resume();

    void handle(const QJsonObject& message);
    void handleRead(const QJsonObject& message);
    void handleAsk(const QJsonObject& message);
    void handleLoaded(const QJsonObject& message);
    void handleDone(const QJsonObject& message);

    QString program_;
    PluginLimits limits_;
    RunnerProcess runner_;
    std::deque<PluginOrder> waiting_;
    std::unique_ptr<PluginOrder> current_;
    std::unique_ptr<PluginRequests> requests_; ///< of the current call
    QHash<QString, PluginRuntimeState> states_;
    QSet<QString> loaded_; ///< in this runner
    Phase phase_ = Phase::idle;
    PluginTicket lastTicket_ = 0;
    int call_ = 0; ///< the current one's number
    int messages_ = 0;
    int openAnswers_ = 0;
    QTimer clock_; ///< runs out when the script, or what it waits for, has taken too long
    QElapsedTimer sincePhase_;
    bool isPaused_ = false;
    qint64 scriptTime_ = 0; ///< milliseconds left
    qint64 waitTime_ = 0;
    QTimer idle_;
};

} // namespace ledra
