#include "platform/network/HttpTransfer.h"

#include <QCoreApplication>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPointer>

#include <utility>

namespace clipwren {
namespace {

constexpr int redirectsAllowed = 5;
// What is not yet read from the network waits there.
constexpr qint64 bufferBytes = 256 * 1024;

bool cameWhole(QNetworkReply::NetworkError error)
{
    return error == QNetworkReply::NoError
        || (error >= QNetworkReply::ContentAccessDenied
            && error <= QNetworkReply::UnknownContentError)
        || (error >= QNetworkReply::InternalServerError
            && error <= QNetworkReply::UnknownServerError);
}

class NetworkTransfer : public HttpTransfer {
public:
    NetworkTransfer(const QUrl &address, Callbacks callbacks) : m_callbacks(std::move(callbacks))
    {
        QNetworkRequest request(address);
        request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                             QNetworkRequest::NoLessSafeRedirectPolicy);
        request.setMaximumRedirectsAllowed(redirectsAllowed);
        m_reply = m_network->get(request);
        m_reply->setReadBufferSize(bufferBytes);
        QObject::connect(m_reply, &QNetworkReply::readyRead, &m_context, [this] { receive(); });
        QObject::connect(m_reply, &QNetworkReply::finished, &m_context, [this] {
            const QPointer<QObject> stillHere(&m_context);
            receive();
            if (!stillHere)
                return;
            const auto finished = m_callbacks.finished;
            finished(cameWhole(m_reply->error()));
        });
    }
    NetworkTransfer(const NetworkTransfer &) = delete;
    NetworkTransfer &operator=(const NetworkTransfer &) = delete;

    ~NetworkTransfer() override
    {
        m_reply->disconnect(&m_context);
        // With its thread, its connections and the reply, which may be calling us.
        m_network->deleteLater();
    }

private:
    void receive()
    {
        // As a copy: it may destroy us.
        const auto received = m_callbacks.received;
        received(m_reply->readAll());
    }

    Callbacks m_callbacks;
    QNetworkAccessManager *const m_network =
        new QNetworkAccessManager(QCoreApplication::instance());
    QNetworkReply *m_reply;
    QObject m_context; // of the connections
};

} // namespace
} // namespace clipwren

clipwren::HttpTransfer *clipwrenHttpTransfer1(const QUrl &address,
                                              clipwren::HttpTransfer::Callbacks callbacks)
{
    return new clipwren::NetworkTransfer(address, std::move(callbacks));
}
