#pragma once

#include "ui/components/SpringAnimation.h"

#include <QWidget>

class QButtonGroup;

namespace clipwren {

/// A row of texts of which one is chosen. Arrow keys move the choice.
class SegmentedControl : public QWidget {
    Q_OBJECT
public:
    /// Two texts or more; the first is chosen.
    explicit SegmentedControl(const QStringList &texts, QWidget *parent = nullptr);

    int currentIndex() const;
    /// Chooses without `chosen()`.
    void setCurrentIndex(int index);

Q_SIGNALS:
    /// The user chose another one.
    void chosen(int index);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QButtonGroup *m_group;
    SpringAnimation m_thumb; // place of the chosen segment's background, in segments
};

} // namespace clipwren
