#include "app/instance/InstanceChannel.h"

#include "core/json/JsonObjectReader.h"

#include <QDeadlineTimer>
#include <QDebug>
#include <QFile>
#include <QSocketNotifier>
#include <QTimer>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
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

constexpr const char *socketName = "socket";
// Each message is one line, answered by one.
const QByteArray doneAnswer = QByteArrayLiteral("ok\n");
const QByteArray failedAnswer = QByteArrayLiteral("failed\n");
// A record is a few hundred bytes; nothing longer than this is read.
constexpr qsizetype longestMessage = 1024 * 1024;
// Others wait until one of these is done.
constexpr int mostConnections = 16;

FileDescriptor openFolder(const QString &path)
{
    return FileDescriptor(
        ::open(QFile::encodeName(path).constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
}

/// Calls `call`, which is bind() or connect(), with a new socket and the address of the socket in
/// the folder. Throws `std::system_error`.
template <typename Call> FileDescriptor openSocket(const FileDescriptor &folder, const Call &call)
{
    // A socket's address has room for 107 bytes, too few for some folders' own names.
    const QByteArray path = "/proc/self/fd/" + QByteArray::number(folder.get()) + '/' + socketName;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.constData(), static_cast<std::size_t>(path.size()));
    FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!socket.isOpen()
        || call(socket.get(), reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0)
        throw std::system_error(errno, std::generic_category());
    return socket;
}

/// Waits until the socket takes or has something to read; false when the time is over.
bool waitFor(short events, const FileDescriptor &socket, const QDeadlineTimer &deadline,
             const std::stop_token &stop)
{
    constexpr qint64 untilNextLook = 100; // for a stop
    while (!deadline.hasExpired() && !stop.stop_requested()) {
        pollfd waiting{socket.get(), events, 0};
        const auto time = static_cast<int>(std::min(deadline.remainingTime(), untilNextLook));
        if (::poll(&waiting, 1, time) > 0)
            return true;
    }
    return false;
}

/// True when a call on a socket is worth another try.
bool isTemporary(int error)
{
    return error == EAGAIN || error == EINTR;
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
        QTimer::singleShot(server.m_patience, this, &Connection::end);
    }

private:
    void receive()
    {
        std::array<char, 4096> bytes{};
        const ssize_t count = ::recv(m_socket.get(), bytes.data(), bytes.size(), 0);
        if (count < 0 && isTemporary(errno))
            return;
        m_message.append(bytes.data(), std::max<ssize_t>(count, 0));
        if (count <= 0 || m_message.size() > longestMessage) {
            end();
        } else if (m_message.contains('\n')) {
            end();
            answer();
        }
    }

    void answer()
    {
        try {
            const InstanceMessage message = InstanceMessage::fromJson(m_message);
            const QByteArray &text = m_server.m_handler(message) ? doneAnswer : failedAnswer;
            [[maybe_unused]] const ssize_t sent =
                ::send(m_socket.get(), text.constData(), static_cast<std::size_t>(text.size()),
                       MSG_NOSIGNAL);
        } catch (const DecodingError &) {
            // No answer tells it.
        }
    }

    void end()
    {
        setEnabled(false);
        deleteLater();
    }

    InstanceServer &m_server;
    FileDescriptor m_socket;
    QByteArray m_message;
};

InstanceServer::InstanceServer(const QString &libraryFolder, Handler handler,
                               std::chrono::milliseconds patience)
    : m_handler(std::move(handler)), m_patience(patience), m_folder(openFolder(libraryFolder))
{
    try {
        ::unlinkat(m_folder.get(), socketName, 0);
        m_socket = openSocket(m_folder, ::bind);
        // Nobody connects before it listens.
        if (::fchmodat(m_folder.get(), socketName, S_IRUSR | S_IWUSR, 0) != 0
            || ::listen(m_socket.get(), SOMAXCONN) != 0)
            throw std::system_error(errno, std::generic_category());
    } catch (const std::system_error &error) {
        qWarning().noquote() << "Later starts will not reach this one:" << error.what();
        return;
    }
    m_callers = new QSocketNotifier(m_socket.get(), QSocketNotifier::Read, this);
    connect(m_callers, &QSocketNotifier::activated, this, &InstanceServer::accept);
}

InstanceServer::~InstanceServer()
{
    ::unlinkat(m_folder.get(), socketName, 0);
}

void InstanceServer::accept()
{
    FileDescriptor socket(
        ::accept4(m_socket.get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    if (socket.isOpen()) {
        ++m_connectionCount;
        connect(new Connection(std::move(socket), *this), &QObject::destroyed, this, [this] {
            --m_connectionCount;
            m_callers->setEnabled(true);
        });
        m_callers->setEnabled(m_connectionCount < mostConnections);
    } else if (!isTemporary(errno)) {
        // Such as for want of descriptors: trying again at once would keep a core busy.
        m_callers->setEnabled(false);
        QTimer::singleShot(std::chrono::seconds(1), this, [this] { m_callers->setEnabled(true); });
    }
}

InstanceAnswer sendToRunningInstance(const InstanceMessage &message, const QString &libraryFolder,
                                     std::chrono::milliseconds patience,
                                     const std::stop_token &stop)
try {
    const QDeadlineTimer deadline(patience);
    const FileDescriptor socket = openSocket(openFolder(libraryFolder), ::connect);
    QByteArray rest = message.toJson() + '\n';
    while (!rest.isEmpty() && waitFor(POLLOUT, socket, deadline, stop)) {
        const ssize_t sent = ::send(socket.get(), rest.constData(),
                                    static_cast<std::size_t>(rest.size()), MSG_NOSIGNAL);
        if (sent < 0 && !isTemporary(errno))
            return InstanceAnswer::None;
        rest.remove(0, std::max<ssize_t>(sent, 0));
    }
    QByteArray answer;
    std::array<char, 16> bytes{};
    while (!answer.endsWith('\n') && waitFor(POLLIN, socket, deadline, stop)) {
        const ssize_t count = ::recv(socket.get(), bytes.data(), bytes.size(), 0);
        if (count == 0 || (count < 0 && !isTemporary(errno)))
            return InstanceAnswer::None;
        answer.append(bytes.data(), std::max<ssize_t>(count, 0));
    }
    return answer == doneAnswer  ? InstanceAnswer::Done
        : answer == failedAnswer ? InstanceAnswer::Failed
                                 : InstanceAnswer::None;
} catch (const std::system_error &) {
    return InstanceAnswer::None;
}

} // namespace clipwren
