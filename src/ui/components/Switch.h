#pragma once

#include "ui/components/Animation.h"
#include "ui/components/Icon.h"

#include <QAbstractButton>

namespace clipwren {

/// A setting that is on or off, with a symbol and a text beside it. A check box to assistive
/// tools.
class Switch : public QAbstractButton {
    Q_OBJECT
public:
    explicit Switch(const QString &text, Icon icon = {}, QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Icon m_icon;
    SpringAnimation m_knob; // 0 is off, 1 is on
};

} // namespace clipwren
