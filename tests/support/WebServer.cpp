#include "support/WebServer.h"

namespace clipwren::test {

using namespace Qt::StringLiterals;

WebServer::WebServer(Answer answer)
{
    listen(QHostAddress::LocalHost);
    connect(this, &QTcpServer::newConnection, this, [this, answer = std::move(answer)] {
        QTcpSocket *socket = nextPendingConnection();
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QTcpSocket::readyRead, socket, [this, answer, socket] {
            const QByteArray request = socket->readAll();
            if (!request.endsWith("\r\n\r\n"))
                return;
            ++m_requests;
            answer(request.split(' ').value(1), *socket);
        });
    });
}

WebServer::WebServer(const QByteArray &answer)
    : WebServer([answer](const QByteArray &, QTcpSocket &socket) {
          socket.write(answer);
          socket.disconnectFromHost();
      })
{
}

WebServer::WebServer() : WebServer([](const QByteArray &, QTcpSocket &) {})
{
}

QString WebServer::url(const QString &path) const
{
    return u"http://127.0.0.1:%1%2"_s.arg(serverPort()).arg(path);
}

QByteArray response(const QByteArray &status, const QByteArray &body, const QByteArray &moreHead)
{
    return "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size())
        + "\r\nConnection: close\r\n" + moreHead + "\r\n" + body;
}

} // namespace clipwren::test
