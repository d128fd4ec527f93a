#include "ui/components/ThumbnailView.h"

#include "support/WebServer.h"

#include <QBuffer>
#include <QImage>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;
using State = ThumbnailView::State;

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

/// What becomes of an address.
State outcome(const std::optional<QString> &address, ThumbnailView::Limits given = limits)
{
    ThumbnailView view(given);
    view.setUrlString(address);
    view.show();
    return settled(view);
}

TEST(ThumbnailViewTest, showsPicturesAndAPlaceholderForEverythingElse)
{
    const QByteArray small = picture({64, 36}, "PNG");
    const QByteArray svg = "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>";
    const struct {
        const char *name;
        QByteArray answer;
        State state;
    } cases[] = {
        {"png", response("200 OK", small), State::Shown},
        {"jpeg", response("200 OK", picture({64, 36}, "JPG")), State::Shown},
        {"webp", response("200 OK", picture({64, 36}, "WEBP")), State::Shown},
        {"a picture beside an error status", response("404 Not Found", small), State::Shown},
        {"an error page", response("200 OK", "<html>Not found</html>"), State::Failed},
        {"nothing", response("200 OK", {}), State::Failed},
        {"half a picture", response("200 OK", small.left(small.size() / 2)), State::Failed},
        {"a document", response("200 OK", svg), State::Failed},
        {"too many pixels", response("200 OK", picture({4000, 4000}, "PNG")), State::Failed},
        {"too many bytes of it", "HTTP/1.1 200 OK\r\n\r\n" + small + QByteArray(200'000, 'x'),
         State::Failed},
        {"no answer at all", "", State::Failed},
        {"a file behind a redirect",
         response("302 Found", {}, "Location: file:///etc/hostname\r\n"), State::Failed},
        {"a picture behind a redirect", response("301 Moved", {}, "Location: /moved\r\n"),
         State::Shown},
        {"a redirect to itself", response("302 Found", {}, "Location: /file\r\n"), State::Failed},
    };
    for (const auto &each : cases) {
        WebServer server([&](const QByteArray &path, QTcpSocket &socket) {
            socket.write(path == "/moved" ? response("200 OK", small) : each.answer);
            socket.disconnectFromHost();
        });
        EXPECT_EQ(outcome(server.url()), each.state) << each.name;
    }
}

TEST(ThumbnailViewTest, opensNothingButWebAddresses)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"picture.png"_s);
    ASSERT_TRUE(QImage(64, 36, QImage::Format_RGB32).save(path));
    for (const auto &address : QList<std::optional<QString>>{
             std::nullopt, QString(), u"no address"_s, path, u"file://"_s + path,
             u"qrc:/icons/photo.svg"_s, u"data:image/png;base64,AAAA"_s, u"http://"_s}) {
        ThumbnailView view(limits);
        view.setUrlString(address);
        view.show();
        EXPECT_EQ(view.state(), State::Failed) << address.value_or(QString()).toStdString();
    }
}

TEST(ThumbnailViewTest, aNewAddressShowsItsPictureAndNotTheOneBefore)
{
    QPointer<QTcpSocket> slow;
    WebServer server([&](const QByteArray &path, QTcpSocket &socket) {
        if (path == "/slow") {
            slow = &socket;
            return;
        }
        socket.write(response("200 OK", picture({64, 36}, "PNG", 0xFFFF0000)));
        socket.disconnectFromHost();
    });
    ThumbnailView view(limits);
    view.resize(120, 68);
    view.setUrlString(server.url(u"/slow"_s));
    view.show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return slow != nullptr; }));
    EXPECT_EQ(view.state(), State::Loading);
    view.setUrlString(server.url(u"/new"_s));
    EXPECT_EQ(settled(view), State::Shown);
    EXPECT_EQ(view.grab().toImage().pixelColor(60, 34), QColor(Qt::red));
    EXPECT_TRUE(QTest::qWaitFor([&] { return slow == nullptr; })) << "the first was given up";
}

TEST(ThumbnailViewTest, loadsOnlyWhileOnScreenAndNotForEver)
{
    WebServer silent;
    ThumbnailView::Limits brief = limits;
    brief.time = std::chrono::milliseconds(50);
    EXPECT_EQ(outcome(silent.url(), brief), State::Failed);
    EXPECT_TRUE(QTest::qWaitFor([&] { return silent.openConnections() == 0; }));

    ThumbnailView view(limits);
    view.setUrlString(silent.url());
    QCoreApplication::processEvents();
    EXPECT_EQ(silent.requestCount(), 1);
    view.show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return silent.requestCount() == 2; }));
    view.hide();
    EXPECT_TRUE(QTest::qWaitFor([&] { return silent.openConnections() == 0; }));
}

} // namespace
} // namespace clipwren::test
