#include "platform/desktop/SettingsPreferences.h"
#include "platform/system/Activities.h"
#include "platform/system/FileManager.h"
#include "platform/system/Notifier.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QDBusVirtualObject>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <csignal>
#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

TEST(SettingsPreferences, keepsTextsOnTheDiskAtOnce)
{
    const QTemporaryDir folder;
    qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
    SettingsPreferences preferences;
    EXPECT_EQ(preferences.text(u"outputFormat"_s), std::nullopt);
    for (const QString &text :
         {u"audioMP3"_s, u"a, b; \"c\"=\\d"_s, u"@Variant(x)"_s, u"ü…"_s, u""_s}) {
        preferences.setText(u"outputFormat"_s, text);
        EXPECT_EQ(SettingsPreferences().text(u"outputFormat"_s), text);
    }
    EXPECT_TRUE(QFile::exists(folder.filePath(u"Clipwren/clipwren.conf"_s)));
    qunsetenv("XDG_CONFIG_HOME");
}

TEST(CompletionSound, liesInTheProgram)
{
    QFile sound(u":/sounds/complete.oga"_s);
    EXPECT_TRUE(sound.open(QIODevice::ReadOnly) && sound.read(4) == "OggS");
}

/// The desktop's file manager, and who opens folders where there is none.
class FakeFileManager : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")
public:
    QStringList shown;

public Q_SLOTS:
    void ShowItems(const QStringList &addresses, const QString &) { shown += addresses; }
    void open(const QUrl &address) { shown << u"opened "_s + address.toString(); }
};

/// The desktop's other services: notifications, the portal and logind, for sleep, and a dock.
class FakeDesktop : public QObject {
    Q_OBJECT
public:
    FakeDesktop()
    {
        EXPECT_TRUE(m_bus.registerVirtualObject(u"/"_s, &m_object, QDBusConnection::SubPath));
        EXPECT_TRUE(m_bus.connect({}, {}, u"com.canonical.Unity.LauncherEntry"_s, u"Update"_s, this,
                                  SLOT(showProgress(QString, QVariantMap))));
    }
    ~FakeDesktop() override { QDBusConnection::disconnectFromBus(m_bus.name()); }
    FakeDesktop(const FakeDesktop &) = delete;
    FakeDesktop &operator=(const FakeDesktop &) = delete;

    void offer(const QString &service) { EXPECT_TRUE(m_bus.registerService(service)); }
    void withdraw(const QString &service) { m_bus.unregisterService(service); }
    void signal(const QString &member, const QVariantList &arguments)
    {
        auto message = QDBusMessage::createSignal(u"/org/freedesktop/Notifications"_s,
                                                  u"org.freedesktop.Notifications"_s, member);
        message.setArguments(arguments);
        m_bus.send(message);
    }
    bool hasCalls(qsizetype count) const
    {
        return QTest::qWaitFor([&] { return calls.size() >= count; });
    }

    QStringList capabilities{u"actions"_s, u"body-markup"_s};
    QList<QDBusMessage> calls;
    QStringList progress;
    int logindLock = -1; ///< our end of what logind gave away

public Q_SLOTS:
    void showProgress(const QString &application, const QVariantMap &properties)
    {
        progress << u"%1 %2 %3"_s.arg(application, properties[u"progress-visible"_s].toString(),
                                      properties[u"progress"_s].toString());
    }

private:
    class Object : public QDBusVirtualObject {
    public:
        explicit Object(FakeDesktop &desktop) : m_desktop(desktop) { }
        QString introspect(const QString &) const override { return {}; }
        bool handleMessage(const QDBusMessage &call, const QDBusConnection &bus) override
        {
            return m_desktop.answer(call, bus);
        }

    private:
        FakeDesktop &m_desktop;
    };

    bool answer(const QDBusMessage &call, const QDBusConnection &bus)
    {
        QVariant result;
        if (call.member() == "GetCapabilities"_L1) {
            bus.send(call.createReply(capabilities));
            return true;
        }
        if (call.member() == "Notify"_L1)
            result = 7U;
        if (call.interface() == "org.freedesktop.portal.Inhibit"_L1)
            result = QVariant::fromValue(QDBusObjectPath(u"/request"_s));
        if (call.interface() == "org.freedesktop.login1.Manager"_L1) {
            int ends[2];
            EXPECT_EQ(::pipe(ends), 0);
            result = QVariant::fromValue(QDBusUnixFileDescriptor(ends[1]));
            ::close(ends[1]);
            logindLock = ends[0];
        }
        calls << call;
        bus.send(result.isValid() ? call.createReply(result) : call.createReply());
        return true;
    }

    Object m_object{*this};
    QDBusConnection m_bus{
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"fake desktop"_s)};
};

/// On a bus of its own. Qt keeps its connection, so that it is made before the first test.
class SessionBusTest : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        QProcess daemon;
        daemon.start(u"dbus-daemon"_s,
                     {u"--session"_s, u"--fork"_s, u"--print-address=1"_s, u"--print-pid=1"_s});
        ASSERT_TRUE(daemon.waitForFinished());
        const QByteArray address = daemon.readLine().trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", address);
        bus = daemon.readLine().toInt();
        QDBusConnection::sessionBus();
        QDBusConnection::systemBus();
    }
    static void TearDownTestSuite()
    {
        for (const QDBusConnection &each :
             {QDBusConnection::sessionBus(), QDBusConnection::systemBus()})
            QDBusConnection::disconnectFromBus(each.name());
        ::kill(bus, SIGTERM);
    }

    static inline pid_t bus = 0;
    const QTemporaryDir folder;
};

TEST_F(SessionBusTest, revealsTheNearestThatExists)
{
    const QString path = folder.filePath(u"ü 1.mp4"_s);
    ASSERT_TRUE(QFile(path).open(QIODevice::WriteOnly));
    const QString parent = QUrl::fromLocalFile(folder.path()).toString();
    const QString file = QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded);
    const struct {
        QString path, shown, opened;
    } cases[] = {
        {path, file, parent},
        {folder.path(), parent, parent},
        {folder.filePath(u"gone/too/a.mp4"_s), parent, parent},
    };
    FakeFileManager manager;
    QDesktopServices::setUrlHandler(u"file"_s, &manager, "open");
    QDBusConnection session = QDBusConnection::sessionBus();
    ASSERT_TRUE(session.registerObject(u"/org/freedesktop/FileManager1"_s, &manager,
                                       QDBusConnection::ExportAllSlots));
    for (const bool hasManager : {true, false}) {
        if (hasManager) {
            ASSERT_TRUE(session.registerService(u"org.freedesktop.FileManager1"_s));
        }
        for (const auto &each : cases) {
            manager.shown.clear();
            revealInFileManager(each.path);
            EXPECT_TRUE(QTest::qWaitFor([&] { return !manager.shown.isEmpty(); }));
            EXPECT_EQ(manager.shown,
                      QStringList(hasManager ? each.shown : u"opened "_s + each.opened));
        }
        session.unregisterService(u"org.freedesktop.FileManager1"_s);
    }
    QDesktopServices::unsetUrlHandler(u"file"_s);
}

TEST_F(SessionBusTest, revealsThroughThePortalFromASandbox)
{
    FakeDesktop desktop;
    desktop.offer(u"org.freedesktop.portal.Desktop"_s);
    const QString path = folder.filePath(u"ü 1.mp4"_s);
    ASSERT_TRUE(QFile(path).open(QIODevice::WriteOnly));
    revealInFileManager(path, true);
    ASSERT_TRUE(desktop.hasCalls(1));
    EXPECT_EQ(desktop.calls.first().member(), u"OpenDirectory"_s);
    const auto file = desktop.calls.first().arguments().at(1).value<QDBusUnixFileDescriptor>();
    EXPECT_EQ(QFile::symLinkTarget(u"/proc/self/fd/%1"_s.arg(file.fileDescriptor())), path);
    // The answer is on the way.
    QTest::qWait(50);
}

TEST_F(SessionBusTest, notifiesAndTellsWhatTheUserChose)
{
    FakeDesktop desktop;
    desktop.offer(u"org.freedesktop.Notifications"_s);
    Notifier notifier;
    QStringList chosen;
    QObject::connect(&notifier, &Notifier::revealRequested,
                     [&](const QString &path) { chosen << u"reveal "_s + path; });
    QObject::connect(&notifier, &Notifier::openRequested,
                     [&](const QString &path) { chosen << u"open "_s + path; });
    QObject::connect(&notifier, &Notifier::activated,
                     [&](const QString &token) { chosen << u"activate "_s + token; });

    notifier.notify({u"Download complete"_s, u"Salt & <b>pepper</b>"_s, u"/a.mp4"_s});
    ASSERT_TRUE(desktop.hasCalls(1));
    const QVariantList arguments = desktop.calls.first().arguments();
    EXPECT_EQ(arguments.at(3), u"Download complete"_s);
    EXPECT_EQ(arguments.at(4), u"Salt &amp; &lt;b&gt;pepper&lt;/b&gt;"_s);
    EXPECT_EQ(arguments.at(5),
              (QStringList{u"default"_s, u"Show Clipwren"_s, u"reveal"_s, u"Show in Folder"_s,
                           u"open"_s, u"Open"_s}));
    // The reply that tells its number is on the way.
    QTest::qWait(50);
    desktop.signal(u"ActionInvoked"_s, {8U, u"open"_s});
    desktop.signal(u"ActionInvoked"_s, {7U, u"reveal"_s});
    desktop.signal(u"ActionInvoked"_s, {7U, u"open"_s});
    desktop.signal(u"ActivationToken"_s, {7U, u"token"_s});
    desktop.signal(u"ActionInvoked"_s, {7U, u"default"_s});
    desktop.signal(u"NotificationClosed"_s, {7U, 2U});
    desktop.signal(u"ActionInvoked"_s, {7U, u"open"_s});
    const QStringList expected{u"reveal /a.mp4"_s, u"open /a.mp4"_s, u"activate token"_s};
    EXPECT_TRUE(QTest::qWaitFor([&] { return chosen.size() >= 3; }));
    QTest::qWait(50);
    EXPECT_EQ(chosen, expected);

    desktop.capabilities.clear();
    notifier.notify({u"Download failed"_s, u"No <format>"_s});
    ASSERT_TRUE(desktop.hasCalls(2));
    EXPECT_EQ(desktop.calls.last().arguments().at(4), u"No <format>"_s);
    EXPECT_EQ(desktop.calls.last().arguments().at(5), QStringList());
    desktop.withdraw(u"org.freedesktop.Notifications"_s);
}

TEST_F(SessionBusTest, keepsTheMachineAwakeWhileAnythingRunsAndShowsItsProgress)
{
    const QString portal = u"org.freedesktop.portal.Desktop"_s;
    FakeDesktop desktop;
    desktop.offer(portal);
    Activities activities;
    std::unique_ptr<Desktop::Activity> download = activities.begin();
    std::unique_ptr<Desktop::Activity> conversion = activities.begin();
    ASSERT_TRUE(desktop.hasCalls(1));
    EXPECT_EQ(desktop.calls.first().member(), u"Inhibit"_s);
    EXPECT_EQ(desktop.calls.first().arguments().at(1), 4U);
    download->setProgress(0.5);
    conversion->setProgress(0.251);
    conversion->setProgress(0.259);
    conversion.reset();
    EXPECT_EQ(desktop.calls.size(), 1);
    download.reset();
    ASSERT_TRUE(desktop.hasCalls(2));
    EXPECT_EQ(desktop.calls.last().member(), u"Close"_s);
    EXPECT_TRUE(
        desktop.calls.last().path().startsWith(u"/org/freedesktop/portal/desktop/request/1_"_s));
    const QString entry = u"application://org.clipwren.Clipwren.desktop"_s;
    EXPECT_TRUE(QTest::qWaitFor([&] { return desktop.progress.size() >= 4; }));
    EXPECT_EQ(desktop.progress,
              (QStringList{entry + u" true 0.5"_s, entry + u" true 0.25"_s, entry + u" true 0.5"_s,
                           entry + u" false 0"_s}));
    desktop.withdraw(portal);

    // Without a portal, logind's lock is let go at the end.
    desktop.offer(u"org.freedesktop.login1"_s);
    download = activities.begin();
    ASSERT_TRUE(desktop.hasCalls(3));
    EXPECT_EQ(desktop.calls.last().arguments().first(), u"sleep:idle"_s);
    QTest::qWait(50);
    pollfd lock{desktop.logindLock, POLLIN, 0};
    EXPECT_EQ(::poll(&lock, 1, 0), 0);
    download.reset();
    EXPECT_TRUE(QTest::qWaitFor([&] { return ::poll(&lock, 1, 0) == 1; }));
    EXPECT_TRUE((lock.revents & POLLHUP) != 0);
    ::close(desktop.logindLock);
    desktop.withdraw(u"org.freedesktop.login1"_s);
}

} // namespace
} // namespace clipwren

#include "SystemTest.moc"
