#include "app/instance/InstanceChannel.h"

#include "core/json/JsonObjectReader.h"
#include "core/library/LibraryFolder.h"

#include <QDeadlineTimer>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QThread>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

// Each message is one line, answered by one.
const QByteArray acknowledgement = QByteArrayLiteral("ok\n");
// A record is a few hundred bytes; nothing longer than this is read.
constexpr qint64 longestMessage = 1024 * 1024;

bool deliver(QLocalSocket &socket, const InstanceMessage &message, const QDeadlineTimer &deadline)
{
    socket.write(message.toJson() + '\n');
    while (!socket.canReadLine()) {
        if (!socket.waitForReadyRead(static_cast<int>(deadline.remainingTime())))
            return false;
    }
    return socket.readLine() == acknowledgement;
}

} // namespace

InstanceServer::InstanceServer(const QString &socketPath)
{
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket *socket = m_server.nextPendingConnection())
            serve(socket);
    });
    QLocalServer::removeServer(socketPath);
    m_server.listen(socketPath);
}

QString InstanceServer::defaultSocketPath()
{
    QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (folder.isEmpty())
        folder = defaultLibraryFolder();
    return folder + u"/clipwren.socket"_s;
}

void InstanceServer::serve(QLocalSocket *socket)
{
    connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
    connect(socket, &QLocalSocket::readyRead, this, [this, socket] {
        if (!socket->canReadLine()) {
            if (socket->bytesAvailable() > longestMessage)
                socket->abort();
            return;
        }
        try {
            Q_EMIT received(InstanceMessage::fromJson(socket->readLine()));
            socket->write(acknowledgement);
        } catch (const DecodingError &) {
            socket->abort();
        }
    });
}

bool sendToRunningInstance(const InstanceMessage &message, const QString &socketPath,
                           std::chrono::milliseconds patience)
{
    const QDeadlineTimer deadline(patience);
    do {
        QLocalSocket socket;
        socket.connectToServer(socketPath);
        if (socket.waitForConnected(100))
            return deliver(socket, message, deadline);
        // It holds the lock but does not listen yet.
        QThread::msleep(20);
    } while (!deadline.hasExpired());
    return false;
}

} // namespace clipwren
