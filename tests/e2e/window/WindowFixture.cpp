#include "e2e/window/WindowFixture.h"

#include "support/LibraryFixture.h"
#include "support/Widgets.h"
#include "ui/player/SafeVideoPlayer.h"

#include <QTest>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

constexpr int patienceMilliseconds = 60'000;

} // namespace

WindowFixture::~WindowFixture()
{
    m_window.reset();
    BackgroundTask::waitForAll(std::chrono::seconds(20));
}

void WindowFixture::SetUpTestSuite()
{
    const SampleSite site;
    PlayerModule players;
    SafeVideoPlayer pane([&] { return players.makePlayer(); });
    pane.resize(640, 360);
    pane.setUrl(QUrl(site.address(u"/media/tide-clock.mp4"_s)));
    pane.show();
    QTest::qWait(1'500);
}

void WindowFixture::open(const QStringList &toolFolders)
{
    tools.emplace(toolFolders);
    const ApplicationContext context{.store = store,
                                     .history = history,
                                     .tools = *tools,
                                     .pendingFetch = pendingFetch,
                                     .desktop = desktop,
                                     .preferences = preferences,
                                     .makePlayer = [this] { return players.makePlayer(); },
                                     .downloadDirectory = m_folder.filePath(u"Movies/Clipwren"_s)};
    m_window = std::make_unique<MainWindow>(context, players);
    showWindow(*m_window);
}

QWidget *WindowFixture::await(const QString &name)
{
    const auto find = [&] { return shown<QWidget>(*m_window, name); };
    EXPECT_TRUE(QTest::qWaitFor([&] { return find() != nullptr; }, patienceMilliseconds))
        << name.toStdString()
        << " did not show; there is: " << shownTexts(*m_window).join(u" | "_s).toStdString();
    return find();
}

bool WindowFixture::awaitText(const QString &part) const
{
    return QTest::qWaitFor([&] { return !shownTexts(*m_window).filter(part).isEmpty(); },
                           patienceMilliseconds);
}

void WindowFixture::click(const QString &name)
{
    QWidget *const target = await(name);
    ASSERT_NE(target, nullptr);
    ASSERT_TRUE(QTest::qWaitFor([&] { return target->isEnabled(); }, 20'000)) << name.toStdString();
    QTest::mouseClick(target, Qt::LeftButton, Qt::NoModifier,
                      QPoint(std::min(target->width() / 2, 14), target->height() / 2));
}

void WindowFixture::startDownload(const QString &script)
{
    // Not for being asked its version.
    fake.onDownload(u"test -z \"$template\" || "_s + script);
    open({fake.tools.directory()});
    window().content().lookUp(u"https://site.example/1"_s);
    QTest::keyClick(await(u"Continue"_s), Qt::Key_Return);
    QTest::keyClick(await(u"Download"_s), Qt::Key_Space);
}

DownloadRecord WindowFixture::addRecord(const QString &title)
{
    DownloadRecord record = bareRecord(title);
    store.add(record);
    return record;
}

void WindowFixture::chooseForLastRow(LibraryListView &list, const QString &item)
{
    openRowMenu(list, list.model()->rowCount() - 1);
    chooseFromMenu(item);
}

} // namespace clipwren::test
