#pragma once

#include "core/process/FileDescriptor.h"

#include <QObject>

namespace clipwren {

/// Turns SIGINT, SIGTERM and SIGHUP into a Qt signal on the user-interface thread, for as long as
/// it lives. One at a time per process. A signal that the process ignores stays ignored.
class InterruptSignal : public QObject {
    Q_OBJECT

public:
    explicit InterruptSignal(QObject *parent = nullptr);
    ~InterruptSignal() override;

Q_SIGNALS:
    void interrupted();

private:
    Pipe m_pipe = Pipe::open();
};

} // namespace clipwren
