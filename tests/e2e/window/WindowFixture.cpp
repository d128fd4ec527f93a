#include "e2e/window/WindowFixture.h"

#include "ui/player/SafeVideoPlayer.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QTest>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

QString textOf(const QWidget *widget)
{
    if (const auto *button = qobject_cast<const QAbstractButton *>(widget))
        return button->text();
    if (const auto *label = qobject_cast<const QLabel *>(widget))
        return label->text();
    return {};
}

} // namespace

WindowFixture::WindowFixture()
    : store(m_folder.filePath(u"library"_s)), history(m_folder.filePath(u"library"_s)),
      players({QStringLiteral(CLIPWREN_PLAYER_FOLDER)})
{
}

WindowFixture::~WindowFixture()
{
    m_window.reset();
    BackgroundTask::waitForAll(std::chrono::seconds(20));
}

void WindowFixture::SetUpTestSuite()
{
    const SampleSite site;
    PlayerModule players({QStringLiteral(CLIPWREN_PLAYER_FOLDER)});
    SafeVideoPlayer pane(players);
    pane.resize(640, 360);
    pane.setUrl(QUrl(site.address(u"/media/tide-clock.mp4"_s)));
    pane.show();
    QTest::qWait(1'500);
}

void WindowFixture::open(const QStringList &toolFolders)
{
    tools.emplace(toolFolders);
    m_window = std::make_unique<MainWindow>(
        DownloaderView::Environment{store, history, *tools, pendingFetch, desktop, preferences,
                                    [this] { return players.makePlayer(); }, downloadFolder()},
        players);
    m_window->show();
    m_window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
}

QWidget *WindowFixture::find(const QString &name) const
{
    // What is shown in front comes first.
    QList<QWidget *> roots{m_window.get()};
    if (QWidget *modal = QApplication::activeModalWidget())
        roots.prepend(modal);
    for (const QWidget *root : roots) {
        for (QWidget *widget : root->findChildren<QWidget *>()) {
            if (widget->isVisible() && (widget->accessibleName() == name || textOf(widget) == name))
                return widget;
        }
    }
    return nullptr;
}

QWidget *WindowFixture::await(const QString &name, int milliseconds)
{
    EXPECT_TRUE(QTest::qWaitFor([&] { return find(name) != nullptr; }, milliseconds))
        << name.toStdString()
        << " did not show; there is: " << texts().join(u" | "_s).toStdString();
    return find(name);
}

void WindowFixture::click(const QString &name)
{
    QWidget *const target = await(name);
    ASSERT_NE(target, nullptr);
    ASSERT_TRUE(QTest::qWaitFor([&] { return target->isEnabled(); }, 20'000)) << name.toStdString();
    QTest::mouseClick(target, Qt::LeftButton, Qt::NoModifier,
                      QPoint(std::min(target->width() / 2, 14), target->height() / 2));
}

QStringList WindowFixture::texts() const
{
    QStringList texts;
    for (const QWidget *widget : m_window->findChildren<QWidget *>()) {
        if (widget->isVisible() && !textOf(widget).isEmpty())
            texts << textOf(widget);
    }
    return texts;
}

bool WindowFixture::awaitText(const QString &part, int milliseconds)
{
    return QTest::qWaitFor([&] { return !texts().filter(part).isEmpty(); }, milliseconds);
}

} // namespace clipwren::test
