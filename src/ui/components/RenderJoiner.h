#pragma once

#include <QWidget>

#include <functional>

namespace clipwren {

/// Runs the `render()` of a view once per turn of the event loop, however many changes come in it.
///
/// While nobody sees the view, a change renders it at once, so that it is shown as it should be.
/// Lives as a child of the view.
class RenderJoiner : public QObject {
    Q_OBJECT
public:
    RenderJoiner(QWidget *view, std::function<void()> render);

    /// Something changed.
    void request();

private:
    void run();

    QWidget *m_view;
    std::function<void()> m_render;
    bool m_scheduled = false;
};

} // namespace clipwren
