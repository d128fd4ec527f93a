#include "Shot.h"
#include "support/BracketTranslator.h"
#include "support/Printing.h"
#include "support/Widgets.h"
#include "ui/components/Theme.h"
#include "workflow/download/OfferedFormats.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTest>

#include <functional>
#include <gtest/gtest.h>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

/// What can be read or heard in a window, but for what comes from outside, numbers, dates and the
/// names of keys.
QStringList untranslated(const QWidget &root)
{
    static const QRegularExpression foreign(
        u"^(<span[^>]*>)?("
        "⟦.*⟧|Clipwren|yt-dlp|ffmpeg|ffprobe|brew install .*|VP9|HEVC|H\\.264 \\+ AAC|"
        "(Building a tide clock|Night trains|Talk — how indexes|A very long title|بناء ساعة)[^⟦]*|"
        "Harbour Workshop|abc: Downloading webpage|/.*|https?:.*|.*/s · .*|"
        "[\\d:.,%–·×+ /]*|\\d+ KB|\\w+ \\d+, \\d+ at .*|"
        "((Ctrl|Shift)\\+)?(F\\d+|[A-Z]|Return|Del|Space)"
        ")(</span>)?$"_s,
        QRegularExpression::DotMatchesEverythingOption);
    QStringList texts = shownTexts(root);
    for (const QAction *entry : root.actions())
        texts << entry->text();
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

/// Brings the window, at its smallest, into each of its states.
void forEachScreen(const std::function<void(const QWidget &screen)> &check)
{
    SampleSite site;
    for (const Shot &shot : allShots()) {
        SCOPED_TRACE(shot.name.toStdString());
        SampleWindow sample(site, shot.title, {820, 520}, std::chrono::milliseconds(50));
        shot.prepare(sample);
        check(sample.window());
        for (const QWidget *dialog : sample.inFront())
            check(*dialog);
    }
    BackgroundTask::waitForAll(std::chrono::seconds(20));
}

void expectNothingCutOff(const QWidget &screen)
{
    // Layouts follow each other in the event loop.
    std::ignore = QTest::qWaitFor([&] { return cutOffTexts(screen).isEmpty(); });
    EXPECT_EQ(cutOffTexts(screen), QStringList());
}

TEST(TranslationTest, noTextIsLeftOutOrCutOffInALanguageOfLongerOnes)
{
    BracketTranslator longer;
    QApplication::installTranslator(&longer);
    forEachScreen([](const QWidget &screen) {
        EXPECT_EQ(untranslated(screen), QStringList());
        expectNothingCutOff(screen);
    });
    QApplication::removeTranslator(&longer);
}

TEST(TranslationTest, leavesOutNoFormat)
{
    BracketTranslator longer;
    QApplication::installTranslator(&longer);
    for (const FormatOption &option : offeredFormats(std::nullopt)) {
        EXPECT_TRUE(option.title.startsWith(u'⟦')) << option.title.toStdString();
        EXPECT_TRUE(option.subtitle.startsWith(u'⟦')) << option.subtitle.toStdString();
    }
    QApplication::removeTranslator(&longer);
}

TEST(TextScaleTest, noTextIsCutOffWhenTextsBecomeTwiceAsLarge)
{
    // Its texts are longer than those in English.
    QTranslator german;
    ASSERT_TRUE(german.load(u":/translations/clipwren_de.qm"_s));
    QApplication::installTranslator(&german);
    forEachScreen([](const QWidget &screen) {
        Theme::current().forceTextScale(2);
        expectNothingCutOff(screen);
        Theme::current().forceTextScale(std::nullopt);
    });
}

} // namespace
} // namespace clipwren::test
