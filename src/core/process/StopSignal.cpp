#include "core/process/StopSignal.h"

namespace clipwren {

StopSignal::StopSignal(const std::stop_token &stop)
{
    if (!stop.stop_possible())
        return;
    m_pipe = Pipe::open();
    m_callback.emplace(stop, [this] { m_pipe.writeEnd.close(); });
}

} // namespace clipwren
