#pragma once

#include <QWidget>

class QStackedLayout;

namespace clipwren {

class DownloaderView;
class PreviewPlayerView;
class WrappedLabel;

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
    WrappedLabel *m_failureText;
    QWidget *m_failure;
    PreviewPlayerView *m_player;
};

} // namespace clipwren
