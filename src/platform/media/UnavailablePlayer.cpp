#include "platform/media/UnavailablePlayer.h"

namespace clipwren {

void UnavailablePlayer::load(const QUrl &url)
{
    m_url = url;
    m_status = Status::Failed;
    Q_EMIT statusChanged();
}

QString UnavailablePlayer::failure() const
{
    return m_status == Status::Failed ? m_reason : QString();
}

void UnavailablePlayer::seek(double, SeekDone done)
{
    if (done)
        done(false);
}

} // namespace clipwren
