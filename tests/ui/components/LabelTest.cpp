#include "ui/components/DigitText.h"
#include "ui/components/ElidedLabel.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

#include <gtest/gtest.h>

using namespace clipwren;

namespace {

const auto longText = QStringLiteral("/home/somebody/Movies/Clipwren/Building a tide clock.mp4");

ElidedLabel *shownLabel(QWidget &window, const QString &text, int width)
{
    auto *label = new ElidedLabel(Theme::TextStyle::Body, Theme::Color::Text, text, &window);
    label->resize(width, 20);
    window.show();
    return label;
}

} // namespace

TEST(ElidedLabelTest, cutsOnlyWhatDoesNotFitAndKeepsTheWholeForToolTipAndName)
{
    QWidget window;
    ElidedLabel *label = shownLabel(window, longText, 120);
    EXPECT_TRUE(label->text().endsWith(QChar(0x2026)));
    EXPECT_TRUE(label->toolTip().contains(longText));
    EXPECT_EQ(label->accessibleName(), longText);

    label->setElideMode(Qt::ElideMiddle);
    EXPECT_TRUE(label->text().endsWith(QStringLiteral(".mp4")));

    label->resize(label->sizeHint());
    EXPECT_EQ(label->text(), longText);
    EXPECT_EQ(label->toolTip(), QString());
}

TEST(ElidedLabelTest, copyingACutTextTakesTheWhole)
{
    QWidget window;
    ElidedLabel *label = shownLabel(window, longText, 120);
    label->setSelectable(true);
    label->setSelection(0, static_cast<int>(label->text().size()));
    QTest::keyClick(label, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), longText);
}

TEST(ElidedLabelTest, copyingAWholeTextTakesTheMarkedPart)
{
    QWidget window;
    ElidedLabel *label = shownLabel(window, longText, 900);
    label->setSelectable(true);
    label->setSelection(1, 4);
    QTest::keyClick(label, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("home"));
}

TEST(ElidedLabelTest, takesNothingForMarkupAndLineBreaksForSpaces)
{
    QWidget window;
    ElidedLabel *label =
        shownLabel(window, QStringLiteral("<img src='file:///etc/passwd'>\nsecond line"), 90);
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
    EXPECT_FALSE(label->toolTip().contains(QStringLiteral("<img")));
    label->resize(label->sizeHint());
    EXPECT_EQ(label->text(), QStringLiteral("<img src='file:///etc/passwd'> second line"));
}

TEST(ElidedLabelTest, aTextFromRightToLeftStandsBesideItsPicture)
{
    QWidget window;
    ElidedLabel *label = shownLabel(window, QStringLiteral("\u05E9\u05E2\u05D5\u05DF"), 300);
    EXPECT_EQ(label->alignment(), Qt::AlignAbsolute | Qt::AlignLeft | Qt::AlignVCenter);
}

TEST(LabelTest, markdownShowsEmphasisAndNoMarkup)
{
    Label label(Theme::TextStyle::Callout);
    label.setMarkdown(QStringLiteral("open in **VLC** or *IINA* <b>now</b>"));
    EXPECT_EQ(label.text(),
              QStringLiteral("open in <b>VLC</b> or <i>IINA</i> &lt;b&gt;now&lt;/b&gt;"));
}

TEST(DigitTextTest, numbersOfEqualLengthAreEquallyWide)
{
    const QFont font = Theme::font(Theme::TextStyle::Time);
    EXPECT_EQ(DigitText(QStringLiteral("1:11"), font).width(),
              DigitText(QStringLiteral("8:04"), font).width());
    EXPECT_EQ(DigitText(QStringLiteral("no digits"), font).width(),
              QFontMetricsF(font).horizontalAdvance(QStringLiteral("no digits")));
}
