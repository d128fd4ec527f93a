#pragma once

#include <QMetaObject>
#include <QWidget>

namespace clipwren {

class PlayerPane;
class PreviewPlayerController;

/// Shows the player of a preview, with controls.
///
/// Follows the controller while it is shown; hidden or destroyed, it pauses the player and detaches
/// from it.
class PreviewPlayerView : public QWidget {
    Q_OBJECT

public:
    /// The controller must outlive the time that the view is shown.
    explicit PreviewPlayerView(PreviewPlayerController &controller, QWidget *parent = nullptr);
    ~PreviewPlayerView() override;

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void render();
    void detach();

    PreviewPlayerController &m_controller;
    PlayerPane *m_pane;
    QMetaObject::Connection m_following;
};

} // namespace clipwren
