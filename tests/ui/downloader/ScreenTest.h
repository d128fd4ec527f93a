#pragma once

#include "support/FakeDownloader.h"
#include "support/Printing.h"
#include "support/Widgets.h"
#include "ui/downloader/DownloaderScreen.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace clipwren::test {

/// A shown, active downloader screen over fake tools, found its way about by what a user sees.
class ScreenTest : public testing::Test {
protected:
    ScreenTest()
    {
        // No picture, so that nothing is fetched from the net.
        m_fake.onLookup(
            metadata(u"\"title\":\"Talk\",\"duration\":60.5,\"uploader\":\"Someone\""_s));
        m_screen.resize(840, 900);
        showWindow(m_screen);
    }
    static QString metadata(const QString &fields)
    {
        return u"echo '[site] abc: Downloading webpage' >&2; echo '{%1,\"formats\":["
               "{\"vcodec\":\"vp9\",\"acodec\":\"none\",\"height\":2160},"
               "{\"vcodec\":\"avc1\",\"acodec\":\"none\",\"height\":1080}]}'"_s.arg(fields);
    }

    /// Puts an address in and looks it up.
    void enter(const QString &address)
    {
        m_view.setUrlText(address);
        m_view.fetchInfo(false);
        settle();
    }
    /// The same, up to a phase.
    void lookUp(Phase phase = Phase::confirming)
    {
        enter(u"https://site.example/watch?v=1"_s);
        EXPECT_TRUE(reaches(m_view, phase));
        settle();
    }
    /// Up to the choice of format and title.
    void getReady()
    {
        lookUp();
        m_view.confirm();
        settle();
    }
    template <typename Condition> static bool waitFor(const Condition &condition)
    {
        return QTest::qWaitFor(condition, 10'000);
    }
    /// Lets the screen render what changed, then the layouts that this changed.
    static void settle()
    {
        for (int turn = 0; turn < 4; ++turn)
            QCoreApplication::processEvents();
    }

    QString texts() const { return shownTexts(m_screen).join(u' '); }
    bool shows(const QString &text) const { return test::shows(m_screen, text); }
    /// The button that is shown with a text or name; null when there is none.
    QAbstractButton *button(const QString &name) const
    {
        return shown<QAbstractButton>(m_screen, name);
    }
    QLineEdit *field(const QString &name) const { return shown<QLineEdit>(m_screen, name); }
    void click(const QString &name) const
    {
        ASSERT_TRUE(button(name)) << name.toStdString();
        QTest::mouseClick(button(name), Qt::LeftButton);
        settle();
    }
    static void press(QWidget *where, Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(where, key, modifiers);
        settle();
    }
    /// Where the focus is.
    static void press(Qt::Key key) { press(QApplication::focusWidget(), key); }

    const QString m_folder = QDir::homePath() + u"/Movies/Clipwren"_s;
    FakeDownloader m_fake;
    DownloaderView m_view{m_fake.context()};
    DownloaderScreen m_screen{m_view, m_fake.desktop, m_folder};
};

} // namespace clipwren::test
