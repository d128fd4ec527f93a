#include "ScreenTest.h"

#include <QAccessible>
#include <QLabel>
#include <QTest>

namespace clipwren::test {

namespace {

using namespace Qt::StringLiterals;

QString nameOf(QWidget *widget)
{
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
}

} // namespace

ScreenTest::ScreenTest()
    : m_screen(m_view, m_fake.desktop, m_fake.downloadFolder(),
               [this](PreviewPlayerController &, QWidget *parent) {
                   ++m_previewViews;
                   auto *view = new QWidget(parent);
                   view->setFocusPolicy(Qt::StrongFocus);
                   view->setAccessibleName(u"Player"_s);
                   return view;
               })
{
    // No picture, so that nothing is fetched from the net.
    m_fake.onLookup(metadata(u"\"title\":\"Talk\",\"duration\":60.5,\"uploader\":\"Someone\""_s));
    m_screen.resize(840, 900);
    m_screen.show();
    m_screen.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&m_screen));
}

QString ScreenTest::metadata(const QString &fields)
{
    return u"echo '[site] abc: Downloading webpage' >&2; echo '{%1,\"formats\":["
           "{\"vcodec\":\"vp9\",\"acodec\":\"none\",\"height\":2160,\"ext\":\"webm\"},"
           "{\"vcodec\":\"avc1.64001F\",\"acodec\":\"none\",\"height\":1080,\"ext\":\"mp4\"}]}'"_s
               .arg(fields);
}

void ScreenTest::lookUp(Phase phase)
{
    m_view.setUrlText(u"https://site.example/watch?v=1"_s);
    m_view.fetchInfo(false);
    EXPECT_TRUE(reaches(m_view, phase));
    settle();
}

void ScreenTest::getReady()
{
    lookUp();
    m_view.confirm();
    settle();
}

void ScreenTest::settle()
{
    // Rendering, then the layouts that it changed.
    for (int turn = 0; turn < 4; ++turn)
        QCoreApplication::processEvents();
}

QStringList ScreenTest::shownTexts() const
{
    QStringList texts;
    for (QWidget *widget : m_screen.findChildren<QWidget *>()) {
        const bool speaks =
            qobject_cast<QLabel *>(widget) || qobject_cast<QAbstractButton *>(widget);
        if (speaks && widget->isVisible() && !nameOf(widget).isEmpty())
            texts << nameOf(widget);
    }
    return texts;
}

QAbstractButton *ScreenTest::button(const QString &name) const
{
    for (auto *each : m_screen.findChildren<QAbstractButton *>()) {
        if (each->isVisible() && nameOf(each) == name)
            return each;
    }
    return nullptr;
}

QLineEdit *ScreenTest::field(const QString &name) const
{
    for (auto *each : m_screen.findChildren<QLineEdit *>()) {
        if (each->isVisible() && each->accessibleName() == name)
            return each;
    }
    return nullptr;
}

void ScreenTest::click(const QString &name) const
{
    QAbstractButton *found = button(name);
    ASSERT_TRUE(found) << name.toStdString();
    QTest::mouseClick(found, Qt::LeftButton);
    settle();
}

void ScreenTest::press(QWidget *where, int key, Qt::KeyboardModifiers modifiers) const
{
    QTest::keyClick(where, static_cast<Qt::Key>(key), modifiers);
    settle();
}

} // namespace clipwren::test
