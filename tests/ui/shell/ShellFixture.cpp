#include "ui/shell/ShellFixture.h"

#include "ui/components/ElidedLabel.h"

#include <QApplication>

#include <algorithm>
#include <memory>

namespace clipwren::test {

namespace {

/// Gives all tests a theme, and opens what Qt keeps open from its first window on.
class ThemeEnvironment : public testing::Environment {
public:
    void SetUp() override
    {
        m_theme = std::make_unique<Theme>();
        m_theme->forceReducedMotion(true);
        QWidget first;
        showWindow(first);
    }
    void TearDown() override { m_theme.reset(); }

private:
    std::unique_ptr<Theme> m_theme;
};

[[maybe_unused]] const auto *const environment =
    testing::AddGlobalTestEnvironment(new ThemeEnvironment);

} // namespace

ShellFixture::ShellFixture()
{
    for (const char *name : {"yt-dlp", "ffmpeg", "ffprobe"})
        tools.add(QString::fromLatin1(name), {});
    environment.refresh();
}

DownloadRecord ShellFixture::addRecord(const QString &title, bool withFile)
{
    DownloadRecord record = bareRecord(title);
    record.filePath = path(title + QStringLiteral(".mp4"));
    if (withFile)
        writeFile(title + QStringLiteral(".mp4"), "film");
    store.add(record);
    return store.records().constFirst();
}

Button *buttonIn(const QWidget &root, const QString &text)
{
    for (Button *button : root.findChildren<Button *>()) {
        if (button->isVisibleTo(&root) && (button->text() == text || button->toolTip() == text))
            return button;
    }
    return nullptr;
}

bool shows(const QWidget &root, const QString &text)
{
    const auto labels = root.findChildren<Label *>();
    return std::ranges::any_of(labels, [&](const Label *label) {
        const auto *elided = qobject_cast<const ElidedLabel *>(label);
        return label->isVisibleTo(&root) && (elided ? elided->fullText() : label->text()) == text;
    });
}

void showWindow(QWidget &view)
{
    view.show();
    view.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
}

QMenu *openMenu()
{
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    if (!menu)
        throw std::runtime_error("no menu is open");
    return menu;
}

QStringList itemsOf(const QMenu &menu)
{
    QStringList items;
    for (const QAction *action : menu.actions()) {
        items << (action->isSeparator()     ? QStringLiteral("-")
                      : action->isEnabled() ? action->text()
                                            : u'(' + action->text() + u')');
    }
    return items;
}

void chooseFromMenu(const QString &text)
{
    QMenu *menu = openMenu();
    for (QAction *action : menu->actions()) {
        if (action->text() != text)
            continue;
        menu->setActiveAction(action);
        QTest::keyClick(menu, Qt::Key_Return);
        return;
    }
    throw std::runtime_error("no such item: " + text.toStdString());
}

} // namespace clipwren::test
