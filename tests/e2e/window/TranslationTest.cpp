#include "app/window/AboutDialog.h"
#include "app/window/ShortcutsDialog.h"
#include "e2e/window/WindowFixture.h"
#include "support/LibraryFixture.h"
#include "support/Widgets.h"
#include "ui/components/Menu.h"
#include "ui/shell/HistoryList.h"
#include "ui/shell/LibraryListView.h"
#include "ui/shell/RecentList.h"
#include "workflow/download/DownloaderView.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRegularExpression>
#include <QTest>
#include <QTranslator>

#include <memory>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

/// A language whose texts are a third longer, and stand in brackets.
class BracketTranslator : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        // Key names and the texts of Qt's own are not ours.
        if (QLatin1StringView(context).startsWith("Q"_L1))
            return {};
        const QString source = QString::fromUtf8(text);
        return u"⟦"_s + source + QString(source.size() / 3, u'~') + u"⟧"_s;
    }
};

class TranslationTest : public WindowFixture {
protected:
    TranslationTest() { QApplication::installTranslator(&m_translator); }
    ~TranslationTest() override { QApplication::removeTranslator(&m_translator); }

    /// What can be read or heard in a window, but for what comes from outside, numbers, dates and
    /// the names of keys.
    static QStringList untranslated(const QWidget &root)
    {
        static const QRegularExpression foreign(
            u"^(⟦.*⟧|Clipwren|Talk|Someone|yt-dlp|ffmpeg|ffprobe|/.*|https?:.*|[\\d:.,%–·×+ /]*|"
            "VP9|brew install .*|.*\\.mp4|Talk, .*|.*/s · .*|"
            "\\w+ \\d+, \\d+ at .*|((Ctrl|Shift)\\+)?(F\\d+|[A-Z]|Return|Del|Space))$"_s,
            QRegularExpression::DotMatchesEverythingOption);
        QStringList texts = shownTexts(root);
        for (const QWidget *widget : root.findChildren<QWidget *>()) {
            if (!widget->isVisibleTo(&root))
                continue;
            texts << widget->accessibleName() << widget->toolTip();
            if (const auto *field = qobject_cast<const QLineEdit *>(widget))
                texts << field->placeholderText();
        }
        texts.removeIf([](const QString &text) { return foreign.match(text).hasMatch(); });
        texts.removeDuplicates();
        return texts;
    }
    void expectTranslated(const char *screen)
    {
        EXPECT_EQ(untranslated(window()).join(u" | "_s).toStdString(), "") << screen;
    }
    DownloaderView &downloader() { return *window().content().detail().downloader(); }
    bool reaches(Phase phase)
    {
        return QTest::qWaitFor([&] { return downloader().phase() == phase; }, 20'000);
    }

private:
    BracketTranslator m_translator;
};

TEST_F(TranslationTest, noTextOfAnyScreenIsLeftOut)
{
    open({fake.tools.directory()});
    expectTranslated("input");
    window().content().filterList();
    expectTranslated("filter");
    downloader().setUrlText(u"nonsense"_s);
    downloader().fetchInfo(false);
    QTest::qWait(50);
    expectTranslated("invalid address");
    fake.onLookup(u"sleep 60"_s);
    window().content().lookUp(u"https://site.example/1"_s);
    ASSERT_TRUE(reaches(Phase::fetching));
    QTest::qWait(50);
    expectTranslated("look-up");
    downloader().cancelFetch();
    fake.onLookup(u"echo 'ERROR: Private video' >&2; exit 1"_s);
    window().content().lookUp(u"https://site.example/1"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return downloader().fetchError().has_value(); }));
    QTest::qWait(50);
    expectTranslated("failed look-up");
    fake.onLookup(u"cat \"$0.json\""_s);
    window().content().lookUp(u"https://site.example/1"_s);
    ASSERT_TRUE(reaches(Phase::confirming));
    QTest::qWait(50);
    expectTranslated("confirmation");
    downloader().confirm();
    downloader().setTrimEnabled(true);
    QTest::qWait(400);
    for (const FormatOption &option : downloader().formatOptions()) {
        downloader().setOutputFormatRaw(rawValue(option.kind));
        QTest::qWait(50);
        expectTranslated("ready");
    }
    downloader().setOutputFormatRaw(u"bestResolution"_s);
    fake.onDownload(u"echo '42%||1.20MiB/s||00:10'; exec sleep 60"_s);
    downloader().start();
    ASSERT_TRUE(reaches(Phase::downloading));
    QTest::qWait(200);
    expectTranslated("download");
    downloader().cancelDownload();
    ASSERT_TRUE(reaches(Phase::ready));
    QTest::qWait(50);
    expectTranslated("cancelled");
    fake.onDownload(u"echo 'ERROR: gone' >&2; exit 1"_s);
    downloader().start();
    ASSERT_TRUE(QTest::qWaitFor([&] { return downloader().errorLog().has_value(); }));
    QTest::qWait(50);
    expectTranslated("failed download");

    DownloadRecord record = bareRecord(u"Talk"_s);
    record.trimStart = 1;
    record.trimEnd = 2;
    store.add(record);
    history.recordDownload(u"https://site.example/1"_s, u"Talk"_s, {}, {});
    history.recordDownload(u"https://site.example/1"_s, u"Talk"_s, {}, {});
    window().content().selection().select(record.id);
    QTest::qWait(50);
    expectTranslated("missing file");
    const SidebarView &sidebar = window().content().sidebar();
    for (LibraryListView *list : {&sidebar.recentList().view(), &sidebar.historyList().view()}) {
        const std::unique_ptr<Menu> menu(list->makeMenu(list->model()->index(1, 0)));
        for (const QAction *entry : menu->actions())
            EXPECT_TRUE(entry->isSeparator() || entry->text().startsWith(u'⟦'));
    }
    window().content().sidebar().setTab(SidebarView::Tab::history);
    expectTranslated("history");
    for (const QAction *entry : window().content().menu().actions())
        EXPECT_TRUE(entry->isSeparator() || entry->text().startsWith(u'⟦'));
}

TEST_F(TranslationTest, noTextOfTheSetUpOrTheDialogsIsLeftOut)
{
    open({fake.tools.path(u"nowhere"_s)});
    expectTranslated("set-up");
    const ShortcutsDialog shortcuts;
    const AboutDialog about(*tools);
    for (const QWidget *dialog : std::initializer_list<const QWidget *>{&shortcuts, &about})
        EXPECT_EQ(untranslated(*dialog).join(u" | "_s).toStdString(), "");
}

} // namespace
} // namespace clipwren::test
