#pragma once

#include <QMetaObject>
#include <QWidget>

namespace clipwren {

class PlayerModule;
class PlayerPane;
class PreviewPlayerController;

/// Shows the player of a preview, with controls.
///
/// Follows the controller while it is shown; hidden or destroyed, it pauses the player and lets
/// go of it.
class PreviewPlayerView : public QWidget {
    Q_OBJECT

public:
    static constexpr double usualRadius = 10;

    /// The module must outlive the view, and the controller the time that the view is shown.
    /// `radius` is that of the corners, in logical pixels.
    PreviewPlayerView(PreviewPlayerController &controller, PlayerModule &module,
                      QWidget *parent = nullptr, double radius = usualRadius);
    ~PreviewPlayerView() override;

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void render();
    void letGo();

    PreviewPlayerController &m_controller;
    PlayerPane *m_pane;
    QMetaObject::Connection m_following;
};

} // namespace clipwren
