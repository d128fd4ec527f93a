#include "ui/components/Glide.h"
#include "ui/components/RenderJoiner.h"
#include "ui/components/Theme.h"
#include "ui/components/WrappedLabel.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace clipwren {
namespace {

TEST(RenderJoiner, joinsTheChangesOfATurn)
{
    QWidget view;
    int renders = 0;
    RenderJoiner joiner(&view, [&] { ++renders; });
    joiner.request();
    EXPECT_EQ(renders, 1) << "at once before anybody sees it";
    view.show();
    for (int change = 0; change < 5; ++change)
        joiner.request();
    EXPECT_EQ(renders, 1);
    QCoreApplication::processEvents();
    EXPECT_EQ(renders, 2);
    joiner.request();
    QCoreApplication::processEvents();
    EXPECT_EQ(renders, 3);
}

TEST(Glide, movesWhatStandsBelowStepByStep)
{
    QWidget window;
    auto *content = new QWidget;
    auto *part = new QWidget;
    part->setFixedHeight(200);
    part->hide();
    (new QVBoxLayout(content))->addWidget(part);
    content->layout()->setContentsMargins(0, 0, 0, 0);
    auto *glide = new Glide(content);
    auto *below = new QWidget;
    auto *column = new QVBoxLayout(&window);
    column->addWidget(glide);
    column->addWidget(below, 1);
    window.resize(200, 400);
    window.show();
    const auto height = [&] {
        for (int turn = 0; turn < 3; ++turn)
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        return glide->height();
    };
    EXPECT_EQ(height(), 0);

    Theme::current().forceReducedMotion(false);
    glide->change(Spring{0.05, 1}, [&] { part->show(); });
    EXPECT_LT(glide->heightForWidth(200), 200);
    EXPECT_TRUE(QTest::qWaitFor([&] { return height() == 200; }, 5'000));
    Theme::current().forceReducedMotion(true);
    glide->change(Spring{0.05, 1}, [&] { part->hide(); });
    EXPECT_EQ(height(), 0);
}

TEST(WrappedLabel, breaksLongWordsAndEndsInAnEllipsis)
{
    WrappedLabel label(Theme::TextStyle::Caption, Theme::Color::Text, 2);
    label.setText(QString(300, u'w'));
    EXPECT_LE(label.minimumSizeHint().width(), 40);
    EXPECT_EQ(label.heightForWidth(200), 2 * label.fontMetrics().height());
    label.resize(200, 50);
    label.show();
    EXPECT_FALSE(label.toolTip().isEmpty());
    label.resize(10'000, 50);
    EXPECT_TRUE(label.toolTip().isEmpty());
    EXPECT_EQ(label.heightForWidth(10'000), label.fontMetrics().height());
}

TEST(Label, breaksLongWordsButCopiesThemWhole)
{
    const QString word = QStringLiteral("No /") + QString(300, u'w') + QStringLiteral("\nmore");
    Label label(Theme::TextStyle::Callout);
    label.setWordWrap(true);
    label.setSelectable(true);
    label.setBreakableText(word);
    EXPECT_LT(label.minimumSizeHint().width(), 300);
    label.setSelection(0, static_cast<int>(label.text().size()));
    QTest::keyClick(&label, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), word);
}

} // namespace
} // namespace clipwren
