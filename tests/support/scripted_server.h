#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include <functional>

namespace ledra::test {

/// What a client asked for.
struct HttpRequest
{
    QByteArray method;
    QByteArray path;
    QByteArray head; ///< all header lines
    QByteArray body;
};

/// What it is answered. The body goes out piece by piece, each in a packet of its own.
struct HttpResponse
{
    enum class Ending { whole, cut, never };

    int status = 200;
    QList<QByteArray> pieces = {};
    QByteArray type = "application/json";
    QByteArray moreHead = {};      ///< header lines, each with its line end
    Ending ending = Ending::whole; ///< cut: the connection breaks off before the announced end
};

/// A web server on 127.0.0.1 that answers as it is told. It lives in the event loop of the test.
class ScriptedServer
{
public:
    using Handler = std::function<HttpResponse(const HttpRequest&)>;

    explicit ScriptedServer(Handler handler) : handler_(std::move(handler))
    {
        server_.listen(QHostAddress::LocalHost);
        QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this] { follow(); });
    }

    QString address(const QString& path = {}) const
    {
        return QStringLiteral("http://127.0.0.1:%1").arg(server_.serverPort()) + path;
    }

    QList<HttpRequest> requests;
    int hangUps = 0; ///< connections that the client has closed before their answer was over

private:
    void follow()
    {
        QTcpSocket* socket = server_.nextPendingConnection();
        socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { read(socket); });
        QObject::connect(socket, &QTcpSocket::disconnected, socket, [this, socket] {
            hangUps += socket->property("isOver").toBool() ? 0 : 1;
            socket->deleteLater();
        });
    }

    void read(QTcpSocket* socket)
    {
        QByteArray& received = received_[socket];
        received += socket->readAll();
        const qsizetype headEnd = received.indexOf("\r\n\r\n");
        if (headEnd < 0)
            return;
        const QByteArray head = received.left(headEnd);
        const qsizetype mark = head.toLower().indexOf("content-length: ");
        const qsizetype size = mark < 0 ? 0 : head.mid(mark + 16).split('\r').front().toLongLong();
        if (received.size() < headEnd + 4 + size)
            return;
        const QList<QByteArray> words = head.split('\r').front().split(' ');
        requests.append({words.value(0), words.value(1), head, received.mid(headEnd + 4)});
        received_.remove(socket);
        const HttpResponse response = handler_(requests.back());
        QByteArray start = "HTTP/1.1 " + QByteArray::number(response.status) +
                           " Scripted\r\nContent-Type: " + response.type +
                           "\r\nTransfer-Encoding: chunked\r\nConnection: close\r\n" + response.moreHead +
                           "\r\n";
        socket->write(start);
        send(socket, response, 0);
    }

    /// The next piece goes out when the event loop has let the client look at the one before.
    void send(const QPointer<QTcpSocket>& socket, const HttpResponse& response, qsizetype position)
    {
        if (!socket)
            return;
        if (position < response.pieces.size()) {
            const QByteArray& piece = response.pieces[position];
            socket->write(QByteArray::number(piece.size(), 16) + "\r\n" + piece + "\r\n");
            socket->flush();
            QTimer::singleShot(1, socket,
                               [this, socket, response, position] { send(socket, response, position + 1); });
            return;
        }
        if (response.ending == HttpResponse::Ending::never)
            return;
        if (response.ending == HttpResponse::Ending::whole)
            socket->write("0\r\n\r\n");
        socket->setProperty("isOver", true);
        socket->disconnectFromHost();
    }

    Handler handler_;
    QTcpServer server_;
    QMap<QTcpSocket*, QByteArray> received_;
};

} // namespace ledra::test
