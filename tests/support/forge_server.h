#pragma once

#include <QHash>
#include <QHostAddress>
#include <QStringList>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>

namespace ledra::test {

/// What a place on the server answers with.
struct ServerAnswer
{
    int status = 200;
    QByteArray body = {};
    QByteArray location = {};
    bool isSilent = false; ///< keeps the connection and says nothing
};

/// An HTTP server on this computer that gives fixed answers, and 404 elsewhere. "BASE" in them stands for its
/// own address.
class ForgeServer : public QTcpServer
{
public:
    ForgeServer()
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket* socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] { serve(*socket); });
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        });
    }

    QByteArray base() const { return "http://127.0.0.1:" + QByteArray::number(serverPort()); }

    QHash<QByteArray, ServerAnswer> answers; ///< by path with query
    QByteArrayList requests;                 ///< "METHOD path", then the headers

private:
    void serve(QTcpSocket& socket)
    {
        const QByteArray request = socket.peek(1 << 20);
        const qsizetype end = request.indexOf("\r\n\r\n");
        if (end < 0)
            return;
        socket.readAll();
        requests += request.first(end);
        const ServerAnswer answer = answers.value(request.split(' ').value(1), {404, "{}", {}, false});
        if (answer.isSilent)
            return;
        QByteArray body = answer.body;
        if (!body.startsWith("PK"))
            body.replace("BASE", base());
        QByteArray head = "HTTP/1.1 " + QByteArray::number(answer.status) +
                          " X\r\nContent-Length: " + QByteArray::number(body.size()) +
                          "\r\nConnection: close\r\n";
        if (!answer.location.isEmpty())
            head += "Location: " + QByteArray(answer.location).replace("BASE", base()) + "\r\n";
        socket.write(head + "\r\n" + body);
        socket.disconnectFromHost();
    }
};

} // namespace ledra::test
