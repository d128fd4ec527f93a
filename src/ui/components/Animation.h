#pragma once

#include <QPixmap>
#include <QVariantAnimation>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

namespace clipwren {

/// Moves a number to its target like a critically damped spring, so without overshoot; at once
/// under reduced motion.
///
/// User-interface thread only. Runs no timer while at rest.
class SpringAnimation : public QVariantAnimation {
    Q_OBJECT
public:
    /// `responseSeconds` is one period of the spring without damping. `moved` is called with every
    /// new position.
    SpringAnimation(double responseSeconds, double position, std::function<void(double)> moved,
                    QObject *parent = nullptr);

    double position() const { return m_position; }
    /// Starts from the current position.
    void moveTo(double target);
    void jumpTo(double target);

protected:
    void updateCurrentValue(const QVariant &value) override;

private:
    double m_position;
    double m_target;
    std::function<void(double)> m_moved;
};

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
