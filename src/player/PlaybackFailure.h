#pragma once

#include <QString>
#include <QStringList>

namespace clipwren {

/// The sentence for the user of a stream that mpv could not play.
///
/// `mpvError` is the code of its end-of-file event, `log` what was logged of errors and
/// warnings since the load began.
QString playbackFailure(int mpvError, const QStringList &log);

} // namespace clipwren
