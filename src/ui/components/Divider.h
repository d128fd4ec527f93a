#pragma once

#include <QWidget>

namespace clipwren {

/// A line between two things, one logical pixel high.
class Divider : public QWidget {
    Q_OBJECT
public:
    /// `inset` leaves room free at the leading edge; `opacity` fades the separator's colour.
    explicit Divider(int inset = 0, double opacity = 1, QWidget *parent = nullptr);

    QSize sizeHint() const override { return {m_inset + 1, 1}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    int m_inset;
    double m_opacity;
};

} // namespace clipwren
