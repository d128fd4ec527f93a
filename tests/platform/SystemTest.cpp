#include "platform/desktop/SettingsPreferences.h"
#include "platform/system/FileManager.h"

#include <QDBusConnection>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <csignal>
#include <gtest/gtest.h>

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

/// On a bus of its own. Qt keeps its connection, so that it is made before the first test.
class FileManagerTest : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        QProcess daemon;
        daemon.start(u"dbus-daemon"_s,
                     {u"--session"_s, u"--fork"_s, u"--print-address=1"_s, u"--print-pid=1"_s});
        ASSERT_TRUE(daemon.waitForFinished());
        qputenv("DBUS_SESSION_BUS_ADDRESS", daemon.readLine().trimmed());
        bus = daemon.readLine().toInt();
        QDBusConnection::sessionBus();
    }
    static void TearDownTestSuite()
    {
        QDBusConnection::disconnectFromBus(QDBusConnection::sessionBus().name());
        ::kill(bus, SIGTERM);
    }

    static inline pid_t bus = 0;
    const QTemporaryDir folder;
};

TEST_F(FileManagerTest, showsTheNearestThatExists)
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

} // namespace
} // namespace clipwren

#include "SystemTest.moc"
