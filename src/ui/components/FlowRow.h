#pragma once

#include <QLayout>
#include <QList>

namespace clipwren {

/// A row whose first item takes the room that the others leave. Where that would be too little,
/// with large or long texts, the others go to lines of their own below it, at the far side.
///
/// User-interface thread only, as all layouts.
class FlowRow : public QLayout {
    Q_OBJECT
public:
    explicit FlowRow(int spacing, QWidget *parent = nullptr);
    ~FlowRow() override;
    FlowRow(const FlowRow &) = delete;
    FlowRow &operator=(const FlowRow &) = delete;

    void addLayout(QLayout *layout);

    void addItem(QLayoutItem *item) override;
    int count() const override;
    QLayoutItem *itemAt(int index) const override;
    QLayoutItem *takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect &rect) override;

private:
    struct Placed {
        QLayoutItem *item;
        QRect place; ///< from the left
    };
    struct Arrangement {
        QList<Placed> items;
        int height = 0;
    };

    Arrangement arranged(int width) const;

    QList<QLayoutItem *> m_items;
};

} // namespace clipwren
