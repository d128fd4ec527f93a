#pragma once

#include "ui/components/SpringAnimation.h"

#include <QPixmap>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

namespace clipwren {

/// Holds content whose height may change, and animates each change: the height moves on a spring
/// while a picture of the old content fades away over the new.
///
/// Between changes it is as high as its content. User-interface thread only.
class AnimatedHeight : public QWidget {
    Q_OBJECT
public:
    /// Owns the content, which has a layout; without visible parts in it there is no height.
    explicit AnimatedHeight(QWidget *content, QWidget *parent = nullptr);

    /// Makes a change of the content; animated when a spring's response is given and it is visible.
    void change(std::optional<double> responseSeconds, const std::function<void()> &change);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// A change has ended. The layouts around follow in the event loop.
    void settled();

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    class OldLook;

    int contentHeight(int width) const;
    void placeContent();
    void moveTo(double progress);

    QWidget *m_content;
    OldLook *m_oldLook;
    int m_oldHeight = 0;
    double m_progress = 1; // from the old look to the new
    std::unique_ptr<SpringAnimation> m_animation;
};

} // namespace clipwren
