#pragma once

#include "support/scripted_server.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace ledra::test {

inline QByteArray quoted(const QString& text)
{
    return QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact).chopped(1).mid(1);
}

/// The events with which a model server streams an answer, a few letters each.
inline QByteArray eventsOf(const QString& answer, qsizetype lettersEach = 3)
{
    QByteArray events;
    for (qsizetype i = 0; i < answer.size(); i += lettersEach)
        events += R"(data: {"choices":[{"delta":{"content":)" + quoted(answer.mid(i, lettersEach)) +
                  R"(},"finish_reason":null}]})" + "\n\n";
    return events + "data: {\"choices\":[{\"delta\":{},\"finish_reason\":\"stop\"}]}\n\ndata: [DONE]\n\n";
}

inline HttpResponse models(const QByteArray& ids = R"({"id":"tiny"},{"id":"other"})")
{
    return {.pieces = {R"({"object":"list","data":[)" + ids + "]}"}};
}

/// An answer that streams in pieces of this many bytes.
inline HttpResponse streamed(const QByteArray& events, qsizetype bytesEach = 4096)
{
    HttpResponse response{.type = "text/event-stream"};
    for (qsizetype i = 0; i < events.size(); i += bytesEach)
        response.pieces += events.mid(i, bytesEach);
    return response;
}

/// A model server that has models and gives one answer to all questions.
inline ScriptedServer::Handler modelServer(const HttpResponse& answer, const HttpResponse& list = models())
{
    return [=](const HttpRequest& request) { return request.path == "/v1/models" ? list : answer; };
}

} // namespace ledra::test
