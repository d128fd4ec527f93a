#pragma once

#include <QByteArray>
#include <QTcpServer>
#include <QTcpSocket>

#include <functional>

namespace clipwren::test {

using namespace Qt::StringLiterals;

/// A web server on this machine that answers every request with what a test wrote.
class WebServer : public QTcpServer {
public:
    /// Gets the requested path and writes the whole answer, or leaves the caller waiting.
    using Answer = std::function<void(const QByteArray &path, QTcpSocket &socket)>;

    explicit WebServer(Answer answer);
    /// Gives that answer to all and hangs up.
    explicit WebServer(const QByteArray &answer);
    /// Never answers.
    WebServer();

    QString url(const QString &path = u"/file"_s) const;
    int requestCount() const { return m_requests; }
    int openConnections() const { return static_cast<int>(findChildren<QTcpSocket *>().size()); }

private:
    int m_requests = 0;
};

/// A whole answer with its head. `status` is such as "404 Not Found".
QByteArray response(const QByteArray &status, const QByteArray &body = {},
                    const QByteArray &moreHead = {});

} // namespace clipwren::test
