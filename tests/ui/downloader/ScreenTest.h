#pragma once

#include "support/FakeDownloader.h"
#include "ui/downloader/DownloaderScreen.h"

#include <QAbstractButton>
#include <QLineEdit>

#include <gtest/gtest.h>

namespace clipwren::test {

/// A shown, active downloader screen over fake tools, found its way about by what a user sees.
class ScreenTest : public testing::Test {
protected:
    ScreenTest();

    /// Puts an address in and looks it up, up to a phase.
    void lookUp(Phase phase = Phase::confirming);
    /// Up to the choice of format and title.
    void getReady();
    /// Lets the screen render what changed.
    static void settle();

    /// The texts and names on the screen from top to bottom, without those of others in a row.
    QStringList shownTexts() const;
    bool shows(const QString &text) const { return shownTexts().contains(text); }
    /// The button that is shown with a text or name; null when there is none.
    QAbstractButton *button(const QString &name) const;
    QLineEdit *field(const QString &name) const;
    void click(const QString &name) const;
    void press(QWidget *where, int key, Qt::KeyboardModifiers modifiers = {}) const;

    static QString metadata(const QString &fields);

    FakeDownloader m_fake;
    DownloaderView m_view{m_fake.environment()};
    DownloaderScreen m_screen;
    int m_previewViews = 0;
};

} // namespace clipwren::test
