#include "plugins/plugin_caller.h"

#include "plugins/message_frame.h"
#include "plugins/module_reader.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <array>
#include <vector>

namespace ledra {

namespace {

constexpr qsizetype longestError = 1000;
constexpr qsizetype longestLoggedLine = 4000;

struct EntryPoint
{
    QStringView name;
    bool PluginRuntimeState::* flag;
};

constexpr std::array entryPoints = {
    EntryPoint{u"exportInvoice", &PluginRuntimeState::hasExportInvoice},
    EntryPoint{u"exportInvoices", &PluginRuntimeState::hasExportInvoices},
    EntryPoint{u"importInvoices", &PluginRuntimeState::hasImportInvoices},
    EntryPoint{u"updateInvoices", &PluginRuntimeState::hasUpdateInvoices},
};

QString textIn(const QJsonObject& message, const char* key)
{
    return message[QLatin1StringView(key)].toString();
}

} // namespace

PluginCaller::PluginCaller(QString program, const PluginLimits& limits)
    : program_(std::move(program)), limits_(limits)
{
    clock_.setSingleShot(true);
    idle_.setSingleShot(true);
    connect(&runner_, &RunnerProcess::received, this, &PluginCaller::handle);
    connect(&runner_, &RunnerProcess::ended, this,
            [this] { breakOff(QStringLiteral("the plugin took too much memory or broke its runner")); });
    connect(&clock_, &QTimer::timeout, this, [this] {
        breakOff(
            isPaused_
                ? QStringLiteral("the plugin waited for answers longer than %1 s").arg(limits_.waitSeconds)
                : QStringLiteral("the plugin ran longer than %1 s").arg(limits_.scriptSeconds));
    });
    connect(&idle_, &QTimer::timeout, this, [this] {
        runner_.stop();
        loaded_.clear();
    });
}

PluginTicket PluginCaller::take(PluginOrder order)
{
    order.ticket = ++lastTicket_;
    waiting_.push_back(std::move(order));
    QMetaObject::invokeMethod(this, &PluginCaller::next, Qt::QueuedConnection);
    return lastTicket_;
}

void PluginCaller::cancel(PluginTicket ticket)
{
    cancelIf([ticket](const PluginOrder& order) { return order.ticket == ticket; });
}

void PluginCaller::cancelAll(const QString& id)
{
    cancelIf([&id](const PluginOrder& order) { return order.plugin.id() == id; });
}

void PluginCaller::cancelIf(const std::function<bool(const PluginOrder&)>& isMeant)
{
    std::vector<PluginOrder> cancelled;
    for (auto order = waiting_.begin(); order != waiting_.end();) {
        if (!isMeant(*order)) {
            ++order;
            continue;
        }
        cancelled.push_back(std::move(*order));
        order = waiting_.erase(order);
    }
    if (current_ && isMeant(*current_)) {
        endRunner();
        conclude(std::unexpected(pluginCancelled));
    }
    for (const PluginOrder& order : cancelled) { // whose answers may give further orders
        if (order.answer)
            order.answer(std::unexpected(pluginCancelled));
    }
}

void PluginCaller::forget(const QString& id)
{
    loaded_.remove(id);
    states_.remove(id);
}

void PluginCaller::note(const QString& id, const QString& error)
{
    states_[id].lastError = error;
    Q_EMIT stateChanged(id);
}

void PluginCaller::next()
{
    if (current_ || waiting_.empty())
        return;
    idle_.stop();
    current_ = std::make_unique<PluginOrder>(std::move(waiting_.front()));
    waiting_.pop_front();
    if (runner_.isRunning())
        return goOn();
    loaded_.clear();
    enter(Phase::starting);
    runner_.start(program_, limits_.megabytes);
}

/// Every phase has the whole time for itself.
void PluginCaller::enter(Phase phase)
{
    phase_ = phase;
    messages_ = 0;
    isPaused_ = false;
    scriptTime_ = qint64{limits_.scriptSeconds} * 1000;
    waitTime_ = qint64{limits_.waitSeconds} * 1000;
    sincePhase_.start();
    clock_.start(static_cast<int>(scriptTime_));
}

void PluginCaller::pause()
{
    if (isPaused_) // whoever says it again shall not wait longer for it
        return;
    scriptTime_ -= sincePhase_.restart();
    isPaused_ = true;
    clock_.start(static_cast<int>(std::max(waitTime_, qint64{1})));
}

void PluginCaller::resume()
{
    if (!isPaused_)
        return;
    waitTime_ -= sincePhase_.restart();
    isPaused_ = false;
    clock_.start(static_cast<int>(std::max(scriptTime_, qint64{1})));
}

void PluginCaller::goOn()
{
    if (!loaded_.contains(current_->plugin.id()))
        load();
    else if (current_->operation.isEmpty())
        finish(QByteArray());
    else
        call();
}

void PluginCaller::load()
{
    enter(Phase::loading);
    runner_.send({{QStringLiteral("type"), QStringLiteral("load")},
                  {QStringLiteral("plugin"), current_->plugin.id()},
                  {QStringLiteral("fetch"), !current_->grants.hosts.isEmpty()},
                  {QStringLiteral("connector"), current_->grants.hasConnector}});
}

void PluginCaller::call()
{
    // As a text within the message it grows, by what has to be escaped.
    if (current_->arguments.size() > largestMessage / 2)
        return finish(std::unexpected(QStringLiteral("these are too many records for one call")));
    enter(Phase::calling);
    requests_ = std::make_unique<PluginRequests>(current_->grants);
    openAnswers_ = 0;
    runner_.send({{QStringLiteral("type"), QStringLiteral("call")},
                  {QStringLiteral("plugin"), current_->plugin.id()},
                  {QStringLiteral("call"), ++call_},
                  {QStringLiteral("operation"), current_->operation},
                  {QStringLiteral("arguments"), QString::fromUtf8(current_->arguments)}});
}

void PluginCaller::finish(const std::expected<QByteArray, QString>& result)
{
    const QString id = current_->plugin.id();
    // What went wrong in a call stays to be read while the plugin is merely loaded again.
    if (!result || !current_->operation.isEmpty())
        states_[id].lastError = result ? QString() : result.error();
    conclude(result);
    Q_EMIT stateChanged(id);
}

/// Makes room for the next order and hands out the answer.
void PluginCaller::conclude(const std::expected<QByteArray, QString>& result)
{
    clock_.stop();
    phase_ = Phase::idle;
    if (requests_)
        requests_.release()->deleteLater(); // it may be the one that led here
    const PluginOrder order = std::move(*current_);
    current_.reset();
    if (waiting_.empty())
        idle_.start(limits_.idle);
    else
        QMetaObject::invokeMethod(this, &PluginCaller::next, Qt::QueuedConnection);
    if (order.answer)
        order.answer(result);
}

void PluginCaller::endRunner()
{
    runner_.stop();
    loaded_.clear();
    idle_.stop();
}

/// The runner is of no use any more: it is ended, and with it what was going on.
void PluginCaller::breakOff(const QString& reason)
{
    endRunner();
    if (!current_)
        return;
    states_[current_->plugin.id()].isLoaded = true;
    finish(std::unexpected(phase_ == Phase::starting ? QStringLiteral("Plugin runtime could not be created.")
                                                     : reason));
}

// ---- what the runner says

void PluginCaller::handle(const QJsonObject& message)
{
    struct Row
    {
        QStringView type;
        Phase from; ///< in which it may come, to the other
        Phase to;
        void (PluginCaller::*handle)(const QJsonObject&);
    };
    static constexpr std::array rows = {
        Row{u"read", Phase::loading, Phase::calling, &PluginCaller::handleRead},
        Row{u"ask", Phase::calling, Phase::calling, &PluginCaller::handleAsk},
        Row{u"loaded", Phase::loading, Phase::loading, &PluginCaller::handleLoaded},
        Row{u"done", Phase::calling, Phase::calling, &PluginCaller::handleDone},
    };
    const QString type = textIn(message, "type");
    if (++messages_ > limits_.messages)
        return breakOff(QStringLiteral("the plugin asks for too much"));
    if (type == u"log" && current_) {
        Q_EMIT logged(current_->plugin.id(), plainLine(textIn(message, "text"), longestLoggedLine));
        return;
    }
    if (type == u"ready" && phase_ == Phase::starting)
        return goOn();
    const bool isOfCall = message[QStringLiteral("call")].toInt() == call_;
    if (type == u"waiting" && phase_ == Phase::calling && isOfCall)
        return openAnswers_ > 0 ? pause() : void(); // else an answer is on its way there
    for (const Row& row : rows) {
        if (type == row.type && phase_ >= row.from && phase_ <= row.to)
            return (this->*row.handle)(message);
    }
    breakOff(QStringLiteral("the plugin broke its runner"));
}

void PluginCaller::handleRead(const QJsonObject& message)
{
    const ModuleAnswer module = readModule(current_->plugin.directory, textIn(message, "path"));
    QJsonObject answer = {{QStringLiteral("type"), QStringLiteral("module")},
                          {QStringLiteral("path"), module.path}};
    if (module.kind == ModuleAnswer::Kind::escapes)
        answer[QStringLiteral("escapes")] = true;
    if (module.kind == ModuleAnswer::Kind::found)
        answer[QStringLiteral("source")] = module.source;
    runner_.send(answer);
}

void PluginCaller::handleAsk(const QJsonObject& message)
{
    const QJsonDocument detail = QJsonDocument::fromJson(textIn(message, "detail").toUtf8());
    const int number = message[QStringLiteral("number")].toInt();
    const int call = call_;
    ++openAnswers_;
    requests_->ask(textIn(message, "kind"), detail.object(),
                   [this, number, call](const PluginRequests::Result& result) {
                       if (call != call_ || phase_ != Phase::calling) // it has ended meanwhile
                           return;
                       --openAnswers_;
                       resume();
                       const QByteArray text =
                           result ? QJsonDocument(*result).toJson(QJsonDocument::Compact) : QByteArray();
                       runner_.send({{QStringLiteral("type"), QStringLiteral("answer")},
                                     {QStringLiteral("plugin"), current_->plugin.id()},
                                     {QStringLiteral("call"), call_},
                                     {QStringLiteral("number"), number},
                                     {QStringLiteral("problem"), result ? QString() : result.error()},
                                     {QStringLiteral("text"), QString::fromUtf8(text)}});
                   });
}

void PluginCaller::handleLoaded(const QJsonObject& message)
{
    const QString id = current_->plugin.id();
    PluginRuntimeState& state = states_[id];
    const QString earlierError = state.lastError;
    state = {.isLoaded = true, .lastError = plainLine(textIn(message, "error"), longestError)};
    const QJsonArray names = message[QStringLiteral("entryPoints")].toArray();
    for (const EntryPoint& entryPoint : entryPoints)
        state.*entryPoint.flag = state.lastError.isEmpty() && names.contains(entryPoint.name.toString());
    if (!state.lastError.isEmpty())
        return finish(std::unexpected(state.lastError));
    state.lastError = earlierError;
    loaded_.insert(id);
    goOn();
}

void PluginCaller::handleDone(const QJsonObject& message)
{
    const QString text = textIn(message, "text");
    if (message[QStringLiteral("isFine")].toBool())
        finish(text.toUtf8());
    else
        finish(std::unexpected(plainLine(text, longestError)));
}

} // namespace ledra
