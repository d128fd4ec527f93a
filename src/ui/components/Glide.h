#pragma once

#include "ui/components/SpringAnimation.h"

#include <QPixmap>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

namespace clipwren {

/// Holds content whose height may change, and lets it glide from one look to the next instead of
/// jumping: the height moves on a spring while the old picture fades away over the new content.
///
/// Between such changes it is as high as its content. User-interface thread only.
class Glide : public QWidget {
    Q_OBJECT
public:
    /// Owns the content, which has a layout; without visible parts in it there is no height.
    explicit Glide(QWidget *content, QWidget *parent = nullptr);

    /// Makes a change of the content, on the spring if one is given and somebody sees it.
    void change(std::optional<Spring> spring, const std::function<void()> &change);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// A change is through. The layouts around follow in the event loop.
    void settled();

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    class Veil;

    int contentHeight(int width) const;
    void placeContent();
    void moveTo(double progress);

    QWidget *m_content;
    Veil *m_veil;
    int m_oldHeight = 0;
    double m_progress = 1; // from the old look to the new
    std::unique_ptr<SpringAnimation> m_animation;
};

} // namespace clipwren
