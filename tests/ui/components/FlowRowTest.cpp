#include "ui/components/FlowRow.h"

#include <QWidget>

#include <gtest/gtest.h>

namespace clipwren {
namespace {

class FixedWidget : public QWidget {
public:
    FixedWidget(int width, int height, QWidget *parent) : QWidget(parent), m_size(width, height)
    {
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }
    QSize sizeHint() const override { return m_size; }

private:
    QSize m_size;
};

TEST(FlowRowTest, movesToFurtherLinesWhatDoesNotFitBesideTheFirst)
{
    QWidget box;
    auto *row = new FlowRow(10, &box);
    EXPECT_EQ(row->heightForWidth(300), 0);
    auto *text = new QWidget(&box);
    text->setMinimumSize(100, 20);
    auto *cancel = new FixedWidget(60, 30, &box);
    auto *proceed = new FixedWidget(80, 30, &box);
    auto *hidden = new FixedWidget(500, 500, &box);
    for (QWidget *widget : {text, static_cast<QWidget *>(cancel), static_cast<QWidget *>(proceed),
                            static_cast<QWidget *>(hidden)})
        row->addWidget(widget);
    hidden->hide();
    EXPECT_EQ(row->minimumSize().width(), 100);

    const struct {
        int width;
        int height;
        QPoint cancel;
        QPoint proceed;
    } cases[] = {
        {300, 30, {150, 0}, {220, 0}},
        {260, 30, {110, 0}, {180, 0}},
        {259, 60, {109, 30}, {179, 30}},
        {149, 100, {89, 30}, {69, 70}},
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(each.width);
        EXPECT_EQ(row->heightForWidth(each.width), each.height);
        for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            box.setLayoutDirection(direction);
            row->setGeometry({0, 0, each.width, each.height});
            const auto left = [&](const QWidget &widget) {
                return direction == Qt::LeftToRight ? widget.x()
                                                    : each.width - widget.x() - widget.width();
            };
            EXPECT_EQ(QPoint(left(*cancel), cancel->y()), each.cancel);
            EXPECT_EQ(QPoint(left(*proceed), proceed->y()), each.proceed);
        }
    }
}

} // namespace
} // namespace clipwren
