#pragma once

#include "ui/components/Icon.h"

#include <QWidget>

namespace clipwren {

/// A short verdict with its symbol on a capsule of the same colour.
class Pill : public QWidget {
    Q_OBJECT
public:
    enum class Tone { Green, Blue, Orange };

    explicit Pill(QWidget *parent = nullptr);

    void display(Tone tone, Icon icon, const QString &text);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Tone m_tone = Tone::Green;
    Icon m_icon;
    QString m_text;
};

} // namespace clipwren
