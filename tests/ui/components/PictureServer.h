#pragma once

#include <QByteArray>
#include <QTcpServer>

#include <functional>

class QTcpSocket;

namespace clipwren::test {

/// A web server on this machine that answers every request with what a test wrote.
class PictureServer : public QTcpServer {
    Q_OBJECT
public:
    /// `answer` gets the requested path and writes the whole answer.
    explicit PictureServer(std::function<void(const QByteArray &path, QTcpSocket &socket)> answer);

    QString address(const QString &path = QStringLiteral("/picture")) const;
    int requestCount() const { return m_requests; }
    int openConnections() const;

private:
    std::function<void(const QByteArray &, QTcpSocket &)> m_answer;
    int m_requests = 0;
};

/// A whole answer with its head.
QByteArray response(const QByteArray &status, const QByteArray &body,
                    const QByteArray &moreHead = {});

} // namespace clipwren::test
