#include "app/instance/InstanceChannel.h"

#include "core/Logging.h"
#include "core/json/JsonObjectReader.h"
#include "core/text/BoundedText.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QJsonDocument>
#include <QLocalSocket>
#include <QTimer>

#include <algorithm>
#include <fcntl.h>
#include <utility>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

// Each message is one line, answered by one.
const QByteArray doneAnswer = "ok\n"_ba;
const QByteArray failedAnswer = "failed\n"_ba;
// A record is a few hundred bytes; nothing longer than this is read.
constexpr qint64 longestMessage = 1024LL * 1024;

FileDescriptor openFolder(const QString &path)
{
    return FileDescriptor(
        ::open(QFile::encodeName(path).constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
}

/// A socket's address has room for 107 bytes, too few for some folders' own names.
QString socketIn(const FileDescriptor &folder)
{
    return u"/proc/self/fd/%1/socket"_s.arg(folder.get());
}

} // namespace

QByteArray InstanceMessage::toJson() const
{
    QJsonObject json;
    if (show) {
        json.insert("show"_L1,
                    QJsonObject{{u"address"_s, show->address},
                                {u"newDownload"_s, show->newDownload},
                                {u"activationToken"_s, show->activationToken}});
    }
    if (saved) {
        json.insert("saved"_L1,
                    QJsonObject{{u"record"_s, saved->record.toJson()},
                                {u"historyTitle"_s, saved->historyTitle}});
    }
    return QJsonDocument(json).toJson(QJsonDocument::Compact);
}

InstanceMessage InstanceMessage::fromJson(const QByteArray &utf8)
{
    const JsonObjectReader json = JsonObjectReader::fromDocument(utf8);
    InstanceMessage message;
    if (const auto show = json.object("show"_L1)) {
        message.show = Show{.address = show->requiredText("address"_L1),
                            .newDownload = show->boolean("newDownload"_L1).value_or(false),
                            .activationToken = show->requiredText("activationToken"_L1)};
    }
    if (const auto saved = json.object("saved"_L1)) {
        const auto record = saved->object("record"_L1);
        if (!record)
            saved->fail("record"_L1, u"an object"_s);
        message.saved = Saved{DownloadRecord::fromJson(*record),
                              boundedText(saved->requiredText("historyTitle"_L1), longestTitle)};
    }
    return message;
}

InstanceServer::InstanceServer(const QString &libraryFolder, Handler handler,
                               std::chrono::milliseconds patience)
    : m_handler(std::move(handler)), m_patience(patience), m_folder(openFolder(libraryFolder))
{
    connect(&m_server, &QLocalServer::newConnection, this, &InstanceServer::accept);
    // Such a socket takes the place of one that is left over.
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    if (!m_server.listen(socketIn(m_folder)))
        qCWarning(libraryLog).noquote()
            << "Later starts will not reach this one:" << m_server.errorString();
}

void InstanceServer::accept()
{
    while (QLocalSocket *const caller = m_server.nextPendingConnection()) {
        caller->setReadBufferSize(longestMessage);
        connect(caller, &QLocalSocket::readyRead, this, [this, caller] { receive(*caller); });
        connect(caller, &QLocalSocket::disconnected, caller, &QObject::deleteLater);
        QTimer::singleShot(m_patience, caller, &QObject::deleteLater);
    }
}

void InstanceServer::receive(QLocalSocket &caller)
{
    const bool isComplete = caller.canReadLine();
    if (!isComplete && caller.bytesAvailable() < longestMessage)
        return;
    caller.disconnect(this);
    if (isComplete) {
        try {
            const InstanceMessage message = InstanceMessage::fromJson(caller.readLine());
            caller.write(m_handler(message) ? doneAnswer : failedAnswer);
        } catch (const DecodingError &error) {
            // No answer tells it.
            qCWarning(libraryLog) << "Not understood:" << error.errorDescription();
        }
    }
    caller.disconnectFromServer();
}

InstanceAnswer sendToRunningInstance(const InstanceMessage &message, const QString &libraryFolder,
                                     std::chrono::milliseconds patience,
                                     const std::stop_token &stop)
{
    constexpr qint64 untilNextLook = 100; // for a stop
    const QDeadlineTimer deadline(patience);
    const FileDescriptor folder = openFolder(libraryFolder);
    QLocalSocket socket;
    socket.connectToServer(socketIn(folder));
    if (!socket.waitForConnected(static_cast<int>(deadline.remainingTime())))
        return InstanceAnswer::None;
    socket.write(message.toJson() + '\n');
    while (socket.state() != QLocalSocket::UnconnectedState && !socket.canReadLine()
           && !deadline.hasExpired() && !stop.stop_requested())
        socket.waitForReadyRead(
            static_cast<int>(std::min(deadline.remainingTime(), untilNextLook)));
    const QByteArray answer = socket.canReadLine() ? socket.readLine() : QByteArray();
    return answer == doneAnswer  ? InstanceAnswer::Done
        : answer == failedAnswer ? InstanceAnswer::Failed
                                 : InstanceAnswer::None;
}

} // namespace clipwren
