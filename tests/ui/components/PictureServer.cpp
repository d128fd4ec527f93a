#include "PictureServer.h"

#include <QTcpSocket>

namespace clipwren::test {

PictureServer::PictureServer(std::function<void(const QByteArray &, QTcpSocket &)> answer)
    : m_answer(std::move(answer))
{
    listen(QHostAddress::LocalHost);
    connect(this, &QTcpServer::newConnection, this, [this] {
        QTcpSocket *socket = nextPendingConnection();
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
            const QByteArray request = socket->readAll();
            if (!request.endsWith("\r\n\r\n"))
                return;
            ++m_requests;
            m_answer(request.split(' ').value(1), *socket);
        });
    });
}

QString PictureServer::address(const QString &path) const
{
    return QStringLiteral("http://127.0.0.1:%1%2").arg(serverPort()).arg(path);
}

int PictureServer::openConnections() const
{
    return static_cast<int>(findChildren<QTcpSocket *>().size());
}

QByteArray response(const QByteArray &status, const QByteArray &body, const QByteArray &moreHead)
{
    return "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size())
        + "\r\nConnection: close\r\n" + moreHead + "\r\n" + body;
}

} // namespace clipwren::test
