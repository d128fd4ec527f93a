#pragma once

#include "core/tasks/BackgroundTask.h"
#include "platform/media/MediaPlayer.h"
#include "platform/modules/Module.h"

#include <chrono>
#include <memory>

class QWidget;

namespace clipwren {

class PlayerBackend;

/// Makes players and the widgets that show them, from a module that is loaded when the first
/// one is needed: the libraries behind it cost more start-up and memory than all the rest.
///
/// Used on the user-interface thread.
class PlayerModule {
public:
    /// Looks for the module in these folders, in this order. A server that sends nothing for
    /// `networkTimeout` fails the stream.
    explicit PlayerModule(const QStringList &folders = Module::defaultFolders(),
                          std::chrono::milliseconds networkTimeout = std::chrono::seconds(20));

    /// Loads the module in the background, once, so that the first player comes at once.
    void warmUp();

    /// Never null: without the module, a player that fails each load with a sentence.
    std::unique_ptr<MediaPlayer> makePlayer();
    /// A widget that shows the pictures of a player made here; black for any other player. At
    /// most one surface shows a player at a time. Either may be destroyed first.
    QWidget *makeSurface(MediaPlayer &player, QWidget *parent);

private:
    /// Null when the module cannot be used; `m_failure` then says why.
    PlayerBackend *backend();

    Module m_module;
    std::chrono::milliseconds m_networkTimeout;
    PlayerBackend *m_backend = nullptr;
    QString m_failure;
    bool m_isWarm = false; ///< the module is loaded, or on its way
    BackgroundTask m_warmUp;
};

} // namespace clipwren
