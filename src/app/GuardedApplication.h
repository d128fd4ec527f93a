#pragma once

class QEvent;
class QObject;

namespace clipwren {

/// Call while an exception is handled that nobody expected: tells it on standard error, and ends
/// the event loop with the status of a failure, so that tools are stopped and lists are saved.
/// Returns false.
bool endAfterException() noexcept;

/// An application whose slots may throw. Through the event loop, an exception would end the process
/// without a word.
template <typename Application> class GuardedApplication : public Application {
public:
    using Application::Application;

    bool notify(QObject *receiver, QEvent *event) override
    {
        try {
            return Application::notify(receiver, event);
        } catch (...) {
            return endAfterException();
        }
    }
};

} // namespace clipwren
