#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <functional>
#include <memory>

class QUrl;

namespace clipwren {

/// The reading of one http or https address, on the user-interface thread. Destroying it ends it;
/// its callbacks may do that.
class HttpTransfer {
public:
    struct Callbacks {
        std::function<void(const QByteArray &bytes)> received;
        /// The last call. True when the answer came whole, whatever its status code says.
        std::function<void(bool isWhole)> finished;
    };

    virtual ~HttpTransfer() = default;

    /// Follows a few redirects, none from https to http. Null without the module for it.
    static std::unique_ptr<HttpTransfer> start(const QUrl &address, Callbacks callbacks);
};

} // namespace clipwren

/// The one function that the network module exports. The number in its name counts changes of this
/// interface, so that a module of another build is not taken for ours.
extern "C" Q_DECL_EXPORT clipwren::HttpTransfer *
clipwrenHttpTransfer1(const QUrl &address, clipwren::HttpTransfer::Callbacks callbacks);
