#pragma once

#include <QWidget>

#include <functional>

class QStackedLayout;

namespace clipwren {

class PreviewPlayerController;
class WrappedLabel;

/// Makes the view of a preview's player with its controls, as a child of the given widget.
using PreviewViewFactory = std::function<QWidget *(PreviewPlayerController &, QWidget *parent)>;

/// The picture of the preview stream, or what keeps it from being there.
class PreviewPane : public QWidget {
    Q_OBJECT
public:
    PreviewPane(PreviewPlayerController &preview, PreviewViewFactory makeView,
                QWidget *parent = nullptr);

    void render();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QWidget *makeLoading();
    QWidget *makeFailure();
    void showPlayer();
    void dropPlayer();

    PreviewPlayerController &m_preview;
    PreviewViewFactory m_makeView;
    QStackedLayout *m_pages;
    QWidget *m_nothing;
    QWidget *m_loading;
    WrappedLabel *m_failureText;
    QWidget *m_failure;
    QWidget *m_player = nullptr;
};

} // namespace clipwren
