#pragma once

#include <QMetaObject>
#include <QWidget>

class QStackedLayout;

namespace clipwren {

class DownloaderView;
class PlayerPane;
class PreviewPlayerController;
class Label;

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

/// The picture of the preview stream, or what keeps it from being there.
class PreviewPane : public QWidget {
    Q_OBJECT
public:
    explicit PreviewPane(DownloaderView &view, QWidget *parent = nullptr);

    void render();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QWidget *makeLoading();
    QWidget *makeFailure();

    DownloaderView &m_view;
    QStackedLayout *m_pages;
    QWidget *m_nothing;
    QWidget *m_loading;
    Label *m_failureText;
    QWidget *m_failure;
    PreviewPlayerView *m_player;
};

} // namespace clipwren
