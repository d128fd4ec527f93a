#include "ui/shell/ThumbnailView.h"

#include "PictureServer.h"

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QPointer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

using namespace clipwren;
using test::PictureServer;
using test::response;
using State = ThumbnailView::State;

namespace {

constexpr ThumbnailView::Limits limits{100'000, 10'000'000, std::chrono::seconds(10)};

QByteArray picture(QSize size, const char *format, QRgb color = 0xFF00FF00)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    EXPECT_TRUE(image.save(&buffer, format));
    return bytes;
}

State settled(ThumbnailView &view)
{
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.state() != State::Loading; }, 15'000));
    return view.state();
}

/// What becomes of an address, at a view of the usual size.
State outcome(const std::optional<QString> &address, ThumbnailView::Limits given = limits)
{
    ThumbnailView view(given);
    view.resize(120, 68);
    view.setUrlString(address);
    view.show();
    return settled(view);
}

} // namespace

TEST(ThumbnailViewTest, showsPicturesAndAPlaceholderForEverythingElse)
{
    const QByteArray small = picture({64, 36}, "PNG");
    const QByteArray svg = "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>";
    struct Case {
        const char *name;
        QByteArray answer;
        State state;
    };
    const QList<Case> cases = {
        {"png", response("200 OK", small), State::Shown},
        {"jpeg", response("200 OK", picture({64, 36}, "JPG")), State::Shown},
        {"webp", response("200 OK", picture({64, 36}, "WEBP")), State::Shown},
        {"a picture beside an error status", response("404 Not Found", small), State::Shown},
        {"an error page", response("200 OK", "<html>Not found</html>"), State::Failed},
        {"nothing", response("200 OK", {}), State::Failed},
        {"half a picture", response("200 OK", small.left(small.size() / 2)), State::Failed},
        {"a document", response("200 OK", svg), State::Failed},
        {"too many pixels", response("200 OK", picture({4000, 4000}, "PNG")), State::Failed},
        {"too many bytes", response("200 OK", QByteArray(200'000, 'x')), State::Failed},
        {"no answer at all", "", State::Failed},
        {"a file behind a redirect",
         response("302 Found", {}, "Location: file:///etc/hostname\r\n"), State::Failed},
        {"a redirect to itself", response("302 Found", {}, "Location: /picture\r\n"),
         State::Failed},
    };
    for (const Case &each : cases) {
        PictureServer server([&](const QByteArray &, QTcpSocket &socket) {
            socket.write(each.answer);
            socket.disconnectFromHost();
        });
        EXPECT_EQ(outcome(server.address()), each.state) << each.name;
    }
}

TEST(ThumbnailViewTest, opensNothingButWebAddresses)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("picture.png"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(picture({64, 36}, "PNG"));
    file.close();
    for (const auto &address : QList<std::optional<QString>>{
             std::nullopt, QString(), QStringLiteral("no address"), path,
             QStringLiteral("file://") + path, QStringLiteral("qrc:/icons/photo.svg"),
             QStringLiteral("data:image/png;base64,AAAA"), QStringLiteral("http://")}) {
        ThumbnailView view(limits);
        view.setUrlString(address);
        view.show();
        EXPECT_EQ(view.state(), State::Failed) << address.value_or(QString()).toStdString();
    }
}

TEST(ThumbnailViewTest, followsARedirect)
{
    PictureServer server([&](const QByteArray &path, QTcpSocket &socket) {
        socket.write(path == "/old" ? response("301 Moved", {}, "Location: /new\r\n")
                                    : response("200 OK", picture({64, 36}, "PNG")));
        socket.disconnectFromHost();
    });
    EXPECT_EQ(outcome(server.address(QStringLiteral("/old"))), State::Shown);
    EXPECT_EQ(server.requestCount(), 2);
}

TEST(ThumbnailViewTest, givesUpAnEndlessPictureAtItsLimit)
{
    qint64 sent = 0;
    PictureServer server([&](const QByteArray &, QTcpSocket &socket) {
        socket.write("HTTP/1.1 200 OK\r\nContent-Type: image/png\r\n\r\n"
                     + picture({64, 36}, "PNG"));
        const auto more = [&sent, &socket] { sent += socket.write(QByteArray(16'384, 'x')); };
        QObject::connect(&socket, &QTcpSocket::bytesWritten, &socket, more);
        more();
    });
    EXPECT_EQ(outcome(server.address()), State::Failed);
    EXPECT_TRUE(QTest::qWaitFor([&] { return server.openConnections() == 0; }));
    EXPECT_LT(sent, 20'000'000) << "the rest was not read";
}

TEST(ThumbnailViewTest, givesUpASilentServerAtItsTimeLimit)
{
    PictureServer server([](const QByteArray &, QTcpSocket &) {});
    ThumbnailView::Limits brief = limits;
    brief.time = std::chrono::milliseconds(50);
    EXPECT_EQ(outcome(server.address(), brief), State::Failed);
    EXPECT_TRUE(QTest::qWaitFor([&] { return server.openConnections() == 0; }));
}

TEST(ThumbnailViewTest, aNewAddressShowsItsPictureAndNotTheOneBefore)
{
    QPointer<QTcpSocket> slow;
    PictureServer server([&](const QByteArray &path, QTcpSocket &socket) {
        if (path == "/slow") {
            slow = &socket;
            return;
        }
        socket.write(response("200 OK", picture({64, 36}, "PNG", 0xFFFF0000)));
        socket.disconnectFromHost();
    });
    ThumbnailView view(limits);
    view.resize(120, 68);
    view.setUrlString(server.address(QStringLiteral("/slow")));
    view.show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return slow != nullptr; }));
    EXPECT_EQ(view.state(), State::Loading);
    view.setUrlString(server.address(QStringLiteral("/new")));
    EXPECT_EQ(settled(view), State::Shown);
    EXPECT_EQ(view.grab().toImage().pixelColor(60, 34), QColor(Qt::red));
    EXPECT_TRUE(QTest::qWaitFor([&] { return slow == nullptr; })) << "the first was given up";
}

TEST(ThumbnailViewTest, loadsOnlyWhileOnScreen)
{
    PictureServer server([](const QByteArray &, QTcpSocket &) {});
    ThumbnailView view(limits);
    view.setUrlString(server.address());
    QCoreApplication::processEvents();
    EXPECT_EQ(server.requestCount(), 0);
    view.show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return server.requestCount() == 1; }));
    view.hide();
    EXPECT_TRUE(QTest::qWaitFor([&] { return server.openConnections() == 0; }));
}
