#include "ui/components/Label.h"

#include "support/Printing.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

const auto longText = u"/home/somebody/Movies/Clipwren/Building a tide clock.mp4"_s;

struct ElidedTextTest : testing::Test {
    QWidget window;
    Label label{Label::Mode::Elided, Theme::TextStyle::Body, Theme::Color::Text, longText, &window};

    ElidedTextTest()
    {
        label.resize(120, 20);
        window.show();
    }
};

/// What copying some marked letters takes.
QString copied(Label &label, int from, qsizetype length)
{
    label.setSelectable(true);
    label.setSelection(from, static_cast<int>(length));
    QTest::keyClick(&label, Qt::Key_C, Qt::ControlModifier);
    return QGuiApplication::clipboard()->text();
}

TEST_F(ElidedTextTest, cutsOnlyWhatDoesNotFitAndKeepsTheWholeForToolTipNameAndCopies)
{
    EXPECT_TRUE(label.text().endsWith(QChar(0x2026)));
    EXPECT_TRUE(label.toolTip().contains(longText));
    EXPECT_EQ(label.accessibleName(), longText);
    EXPECT_EQ(copied(label, 0, label.text().size()), longText);

    label.setElideMode(Qt::ElideMiddle);
    EXPECT_TRUE(label.text().endsWith(u".mp4"));

    label.resize(label.sizeHint());
    EXPECT_EQ(label.text(), longText);
    EXPECT_EQ(label.toolTip(), QString());
    EXPECT_EQ(copied(label, 1, 4), u"home");
}

TEST_F(ElidedTextTest, takesNothingForMarkupAndLineBreaksForSpaces)
{
    label.setText(u"<img src='file:///etc/passwd'>\nsecond line"_s);
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    EXPECT_FALSE(label.toolTip().contains(u"<img"));
    label.resize(label.sizeHint());
    EXPECT_EQ(label.text(), u"<img src='file:///etc/passwd'> second line");
}

TEST_F(ElidedTextTest, keepsTheBlanksOfANameAndItsBreaksForCopies)
{
    const auto name = u" A  talk\t(part   1)\r\nend\u2028.mp4 "_s;
    label.setText(name);
    EXPECT_TRUE(label.toolTip().contains(u" A  talk (part   1) end .mp4 "_s));
    EXPECT_TRUE(label.toolTip().contains(u"pre-wrap"_s));
    label.resize(label.sizeHint());
    EXPECT_EQ(label.text(), u" A  talk (part   1) end .mp4 "_s);
    EXPECT_EQ(copied(label, 0, label.text().size()), name);
    EXPECT_EQ(copied(label, 2, 6), u"  talk"_s);
}

TEST(LabelTest, breaksLongWordsButCopiesThemWhole)
{
    const QString word = u"No /"_s + QString(300, u'w') + u"\nmore"_s;
    Label label(Label::Mode::Paragraph, Theme::TextStyle::Callout, Theme::Color::Text, word);
    EXPECT_LT(label.minimumSizeHint().width(), 300);
    EXPECT_EQ(copied(label, 0, label.text().size()), word);
}

TEST(LabelTest, breaksNoLetterAndNothingThatBreaksByItself)
{
    const auto broken = [](const QString &text) {
        Label label(Label::Mode::Paragraph, Theme::TextStyle::Callout, Theme::Color::Text, text);
        return label.text().replace(QChar(0x200B), u'|');
    };
    const QString start(24, u'w');
    const QString family = u"\U0001F468\u200D\U0001F469\u200D\U0001F467\u200D\U0001F466"_s;
    const QString flag = u"\U0001F1EF\U0001F1F5"_s;
    const QString khmer = u"\u1781\u17D2\u1798\u17C2"_s; // one cluster of a letter below another
    const QString hindi = u"\u0915\u094D\u0937"_s;
    const QString accent = u"e\u0301"_s;
    for (const QString &letter : {family, flag, khmer, hindi, accent})
        EXPECT_EQ(broken(start + letter + letter).remove(letter).remove(u'|'), start);
    EXPECT_EQ(broken(start + accent + accent), start + u'|' + accent + u'|' + accent);
    EXPECT_EQ(broken(start.chopped(4) + khmer.repeated(6)),
              start.chopped(4) + khmer.repeated(4) + u'|' + khmer + u'|' + khmer);

    for (const QString &whole :
         {flag.repeated(40), family.repeated(40), QString(60, QChar(0x65E5)),
          u"\u1019\u103C\u1014\u103A\u1019\u102C\u1005\u102C"_s.repeated(10),
          u"https://example.org/watch/"_s.repeated(6), start + u' ' + start + u' '})
        EXPECT_EQ(broken(whole), whole);
}

TEST(LabelTest, wrappedTextFitsItsLinesAtEveryWidthAndEndsInAnEllipsis)
{
    Label label(Label::Mode::Wrapped, Theme::TextStyle::Caption);
    const int lineHeight = label.fontMetrics().height();
    EXPECT_EQ(label.heightForWidth(200), lineHeight) << "while empty";
    label.setText(QString(300, u'w'));
    EXPECT_LE(label.minimumSizeHint().width(), 40);
    // More widths than a layout asks for, and back to the first.
    int height = label.heightForWidth(100);
    const int atFirst = height;
    for (int width = 200; width <= 1200; width += 100) {
        EXPECT_LE(label.heightForWidth(width), height);
        height = label.heightForWidth(width);
    }
    EXPECT_LT(height, atFirst);
    EXPECT_EQ(label.heightForWidth(100), atFirst);
    label.setMaximumLines(2);
    EXPECT_EQ(label.heightForWidth(200), 2 * lineHeight);
    label.resize(200, 50);
    label.show();
    EXPECT_FALSE(label.toolTip().isEmpty());
    label.resize(10'000, 50);
    EXPECT_TRUE(label.toolTip().isEmpty());
    EXPECT_EQ(label.heightForWidth(10'000), lineHeight);
    label.setText(u"w"_s);
    EXPECT_EQ(label.heightForWidth(200), lineHeight) << "of the text before";
}

TEST(LabelTest, markdownShowsEmphasisAndNoMarkup)
{
    Label label(Theme::TextStyle::Callout);
    label.setMarkdown(u"open in **VLC** or *IINA* <b>now</b>"_s);
    EXPECT_EQ(label.text(), u"open in <b>VLC</b> or <i>IINA</i> &lt;b&gt;now&lt;/b&gt;");
}

} // namespace
} // namespace clipwren
