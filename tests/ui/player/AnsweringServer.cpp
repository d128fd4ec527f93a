#include "AnsweringServer.h"

#include <QTcpSocket>

namespace clipwren::test {

AnsweringServer::AnsweringServer(const QByteArray &status, const QByteArray &body)
{
    m_server.listen(QHostAddress::LocalHost);
    const QByteArray answer = "HTTP/1.1 " + status
        + "\r\nContent-Type: text/html\r\nContent-Length: " + QByteArray::number(body.size())
        + "\r\nConnection: close\r\n\r\n" + body;
    QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this, status, answer] {
        QTcpSocket *const socket = m_server.nextPendingConnection();
        QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, status, answer, socket] {
            if (!socket->readAll().contains("\r\n\r\n"))
                return;
            ++m_requests;
            if (status.isEmpty())
                return;
            socket->write(answer);
            socket->disconnectFromHost();
        });
    });
}

QUrl AnsweringServer::url() const
{
    return QUrl(QStringLiteral("http://127.0.0.1:%1/video.mp4").arg(m_server.serverPort()));
}

QUrl AnsweringServer::closedUrl()
{
    return AnsweringServer({}).url();
}

} // namespace clipwren::test
