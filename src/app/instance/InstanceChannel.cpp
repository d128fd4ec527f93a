#include "app/instance/InstanceChannel.h"

#include "core/json/JsonObjectReader.h"
#include "core/library/LibraryFolder.h"

#include <QDeadlineTimer>
#include <QDebug>
#include <QFile>
#include <QSocketNotifier>
#include <QStandardPaths>
#include <QThread>

#include <array>
#include <cerrno>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <system_error>
#include <unistd.h>
#include <utility>

// Plain sockets: for these alone, each start would have to load Qt Network.

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

// Each message is one line, answered by one.
const QByteArray acknowledgement = QByteArrayLiteral("ok\n");
// A record is a few hundred bytes; nothing longer than this is read.
constexpr qsizetype longestMessage = 1024 * 1024;

/// Calls `call`, which is bind() or connect(), with a new socket and the address of the path.
/// Throws `std::system_error`.
template <typename Call> FileDescriptor openSocket(const QString &path, const Call &call)
{
    const QByteArray name = QFile::encodeName(path);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (name.size() >= static_cast<qsizetype>(sizeof address.sun_path))
        throw std::system_error(ENAMETOOLONG, std::generic_category());
    std::memcpy(address.sun_path, name.constData(), static_cast<std::size_t>(name.size()));
    FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!socket.isOpen()
        || call(socket.get(), reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0)
        throw std::system_error(errno, std::generic_category());
    return socket;
}

/// Waits until the socket takes or has something to read; false when the time is over.
bool waitFor(short events, const FileDescriptor &socket, const QDeadlineTimer &deadline)
{
    pollfd waiting{socket.get(), events, 0};
    return ::poll(&waiting, 1, static_cast<int>(deadline.remainingTime())) > 0;
}

bool deliver(const FileDescriptor &socket, const InstanceMessage &message,
             const QDeadlineTimer &deadline)
{
    QByteArray rest = message.toJson() + '\n';
    while (!rest.isEmpty() && waitFor(POLLOUT, socket, deadline)) {
        const ssize_t sent = ::send(socket.get(), rest.constData(),
                                    static_cast<std::size_t>(rest.size()), MSG_NOSIGNAL);
        if (sent < 0 && errno != EAGAIN && errno != EINTR)
            return false;
        rest.remove(0, std::max<ssize_t>(sent, 0));
    }
    QByteArray answer;
    std::array<char, 16> bytes{};
    while (answer.size() < acknowledgement.size() && waitFor(POLLIN, socket, deadline)) {
        const ssize_t count = ::recv(socket.get(), bytes.data(), bytes.size(), 0);
        if (count == 0 || (count < 0 && errno != EAGAIN && errno != EINTR))
            return false;
        answer.append(bytes.data(), std::max<ssize_t>(count, 0));
    }
    return answer == acknowledgement;
}

} // namespace

/// Somebody who has something to say. Destroys itself when all is said.
class InstanceServer::Connection : public QSocketNotifier {
public:
    Connection(FileDescriptor socket, InstanceServer &server)
        : QSocketNotifier(socket.get(), Read, &server), m_server(server),
          m_socket(std::move(socket))
    {
        connect(this, &QSocketNotifier::activated, this, &Connection::receive);
    }

private:
    void receive()
    {
        std::array<char, 4096> bytes{};
        const ssize_t count = ::recv(m_socket.get(), bytes.data(), bytes.size(), 0);
        if (count < 0 && (errno == EAGAIN || errno == EINTR))
            return;
        m_message.append(bytes.data(), std::max<ssize_t>(count, 0));
        const bool isOver = count <= 0 || m_message.size() > longestMessage;
        if (!isOver && !m_message.contains('\n'))
            return;
        setEnabled(false);
        deleteLater();
        if (isOver)
            return;
        try {
            Q_EMIT m_server.received(InstanceMessage::fromJson(m_message));
            [[maybe_unused]] const ssize_t sent =
                ::send(m_socket.get(), acknowledgement.constData(),
                       static_cast<std::size_t>(acknowledgement.size()), MSG_NOSIGNAL);
        } catch (const DecodingError &) {
            // No answer tells it.
        }
    }

    InstanceServer &m_server;
    FileDescriptor m_socket;
    QByteArray m_message;
};

InstanceServer::InstanceServer(const QString &socketPath) : m_path(QFile::encodeName(socketPath))
{
    try {
        ::unlink(m_path.constData());
        m_socket = openSocket(socketPath, ::bind);
        // Nobody connects before it listens.
        if (::chmod(m_path.constData(), S_IRUSR | S_IWUSR) != 0
            || ::listen(m_socket.get(), SOMAXCONN) != 0)
            throw std::system_error(errno, std::generic_category());
    } catch (const std::system_error &error) {
        qWarning().noquote() << "Later starts will not reach this one:" << error.what();
        return;
    }
    const auto *notifier = new QSocketNotifier(m_socket.get(), QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &InstanceServer::accept);
}

InstanceServer::~InstanceServer()
{
    ::unlink(m_path.constData());
}

QString InstanceServer::defaultSocketPath()
{
    QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (folder.isEmpty())
        folder = defaultLibraryFolder();
    return folder + u"/clipwren.socket"_s;
}

void InstanceServer::accept()
{
    FileDescriptor socket(
        ::accept4(m_socket.get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    if (socket.isOpen())
        new Connection(std::move(socket), *this);
}

bool sendToRunningInstance(const InstanceMessage &message, const QString &socketPath,
                           std::chrono::milliseconds patience)
{
    const QDeadlineTimer deadline(patience);
    do {
        try {
            return deliver(openSocket(socketPath, ::connect), message, deadline);
        } catch (const std::system_error &) {
            // It holds the lock but does not listen yet.
            QThread::msleep(20);
        }
    } while (!deadline.hasExpired());
    return false;
}

} // namespace clipwren
