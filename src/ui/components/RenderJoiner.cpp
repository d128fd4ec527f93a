#include "ui/components/RenderJoiner.h"

#include <utility>

namespace clipwren {

RenderJoiner::RenderJoiner(QWidget *view, std::function<void()> render)
    : QObject(view), m_view(view), m_render(std::move(render))
{
}

void RenderJoiner::request()
{
    if (!m_view->isVisible()) {
        m_render();
    } else if (!std::exchange(m_scheduled, true)) {
        QMetaObject::invokeMethod(this, &RenderJoiner::run, Qt::QueuedConnection);
    }
}

void RenderJoiner::run()
{
    m_scheduled = false;
    m_render();
}

} // namespace clipwren
