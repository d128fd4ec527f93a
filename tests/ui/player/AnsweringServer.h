#pragma once

#include <QByteArray>
#include <QTcpServer>
#include <QUrl>

namespace clipwren::test {

/// Answers every HTTP request on 127.0.0.1 alike, or not at all.
class AnsweringServer {
public:
    /// `status` such as "404 Not Found". With an empty one, requests wait for ever.
    explicit AnsweringServer(const QByteArray &status, const QByteArray &body = {});

    QUrl url() const;
    int requestCount() const { return m_requests; }
    /// The address of a port where nothing listens any more.
    static QUrl closedUrl();

private:
    QTcpServer m_server;
    int m_requests = 0;
};

} // namespace clipwren::test
