#pragma once

#include <QAbstractButton>

namespace clipwren {

/// One choice of a `SegmentedControl`, which draws everything behind its text.
class Segment : public QAbstractButton {
    Q_OBJECT
public:
    explicit Segment(const QString &text, QWidget *parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace clipwren
