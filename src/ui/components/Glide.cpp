#include "ui/components/Glide.h"

#include "ui/components/Theme.h"

#include <QEvent>
#include <QLayout>
#include <QPainter>

#include <cmath>

namespace clipwren {

/// The picture of what was there before.
class Glide::Veil : public QWidget {
public:
    explicit Veil(QWidget *parent) : QWidget(parent)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        hide();
    }

    void show(const QPixmap &picture)
    {
        m_picture = picture;
        setOpacity(1);
        QWidget::show();
        raise();
    }
    void setOpacity(double opacity)
    {
        m_opacity = opacity;
        if (opacity > 0) {
            update();
            return;
        }
        hide();
        m_picture = {};
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setOpacity(m_opacity);
        painter.drawPixmap(0, 0, m_picture);
    }

private:
    QPixmap m_picture;
    double m_opacity = 0;
};

Glide::Glide(QWidget *content, QWidget *parent)
    : QWidget(parent), m_content(content), m_veil(new Veil(this))
{
    // Not fixed: that would limit it to the height of its preferred width.
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    m_content->setParent(this);
}

void Glide::change(std::optional<Spring> spring, const std::function<void()> &change)
{
    m_animation.reset();
    if (!spring || !isVisible() || Theme::current().reducedMotion()) {
        moveTo(1);
        change();
        Q_EMIT settled();
        return;
    }
    m_veil->show(grab());
    m_oldHeight = height();
    change();
    moveTo(0);
    m_animation = std::make_unique<SpringAnimation>(*spring, 0,
                                                    [this](double progress) { moveTo(progress); });
    connect(m_animation.get(), &SpringAnimation::finished, this, &Glide::settled);
    m_animation->moveTo(1);
}

void Glide::moveTo(double progress)
{
    m_progress = progress;
    m_veil->setOpacity(1 - progress);
    updateGeometry();
}

int Glide::contentHeight(int width) const
{
    QLayout *layout = m_content->layout();
    if (layout->isEmpty())
        return 0;
    return layout->hasHeightForWidth() ? layout->totalHeightForWidth(width)
                                       : layout->totalSizeHint().height();
}

int Glide::heightForWidth(int width) const
{
    const int target = contentHeight(width);
    return static_cast<int>(std::lround(m_oldHeight + (target - m_oldHeight) * m_progress));
}

QSize Glide::sizeHint() const
{
    const int width = m_content->layout()->totalSizeHint().width();
    return {width, heightForWidth(width)};
}

QSize Glide::minimumSizeHint() const
{
    return {m_content->layout()->totalMinimumSize().width(), 0};
}

bool Glide::event(QEvent *event)
{
    // The content is in no layout, so its changes come here.
    if (event->type() == QEvent::LayoutRequest) {
        placeContent();
        updateGeometry();
    }
    return QWidget::event(event);
}

void Glide::resizeEvent(QResizeEvent *)
{
    placeContent();
}

void Glide::placeContent()
{
    m_content->setGeometry(0, 0, width(), contentHeight(width()));
    m_veil->setGeometry(rect());
}

} // namespace clipwren
