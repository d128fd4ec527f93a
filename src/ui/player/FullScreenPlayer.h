#pragma once

#include "ui/player/PlayerPane.h"

#include <QWidget>

namespace clipwren {

/// A window that fills the screen of its owner with a player, which somebody else owns.
///
/// Nothing else may show the player at the same time.
class FullScreenPlayer : public QWidget {
    Q_OBJECT

public:
    FullScreenPlayer(PlayerModule &module, MediaPlayer &player,
                     std::chrono::milliseconds hideControlsAfter, QWidget *owner);

    /// Fills the screen.
    void open();
    /// Closes without a word, and shows the player no more.
    void dismiss();

Q_SIGNALS:
    /// The user wants out of it, or the window was closed.
    void left();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    PlayerPane *m_pane;
};

} // namespace clipwren
