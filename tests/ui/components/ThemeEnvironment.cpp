#include "ui/components/Theme.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QDBusConnection>
#include <QHostAddress>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSignalSpy>
#include <QTcpServer>
#include <QWidget>

#include <gtest/gtest.h>
#include <memory>

namespace {

/// Gives all tests a theme, and opens what Qt keeps open from its first use of bus and network.
class ThemeEnvironment : public testing::Environment {
public:
    void SetUp() override
    {
        m_theme = std::make_unique<clipwren::Theme>();
        const auto name = QStringLiteral("first");
        QDBusConnection::connectToBus(QStringLiteral("unix:path=/nonexistent"), name);
        QDBusConnection::disconnectFromBus(name);

        // Assistive tools are reached over the session's bus, which is kept.
        QDBusConnection::sessionBus();
        QWidget asked;
        QAccessible::queryAccessibleInterface(&asked);
        QCoreApplication::processEvents();

        QNetworkAccessManager network;
        const std::unique_ptr<QNetworkReply> reply(
            network.get(QNetworkRequest(QUrl(QStringLiteral("http://127.0.0.1:1/")))));
        QSignalSpy(reply.get(), &QNetworkReply::finished).wait();
    }
    void TearDown() override { m_theme.reset(); }

private:
    std::unique_ptr<clipwren::Theme> m_theme;
};

[[maybe_unused]] const auto *const environment =
    testing::AddGlobalTestEnvironment(new ThemeEnvironment);

} // namespace
