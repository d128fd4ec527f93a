#pragma once

#include <QProgressBar>

namespace clipwren {

/// A thin bar that fills from the left, in the accent colour.
class LinearProgress : public QProgressBar {
    Q_OBJECT
public:
    explicit LinearProgress(QWidget *parent = nullptr);

    /// 0 to 1. What lies outside is taken for the nearer end, and no number for 0.
    void setFraction(double fraction);

    QSize sizeHint() const override { return {120, 6}; }
    QSize minimumSizeHint() const override { return {24, 6}; }

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace clipwren
