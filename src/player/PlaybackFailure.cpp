#include "player/PlaybackFailure.h"

#include <QCoreApplication>

#include <cerrno>
#include <cstring>
#include <mpv/client.h>

namespace clipwren {
namespace {

struct LogRule {
    const char16_t *words;
    const char *sentence;
    int systemError = 0; ///< errno, whose text the system translates
};

// The error code of nearly every failure to open is the same; the log tells them apart.
constexpr LogRule logRules[] = {
    {u"HTTP error 404",
     QT_TRANSLATE_NOOP("PlaybackFailure", "The server has no video at this address (404).")},
    {u"HTTP error 410",
     QT_TRANSLATE_NOOP("PlaybackFailure", "The video is no longer at this address (410).")},
    {u"HTTP error 401",
     QT_TRANSLATE_NOOP("PlaybackFailure", "The server does not allow access to this video (401).")},
    {u"HTTP error 403",
     QT_TRANSLATE_NOOP("PlaybackFailure", "The server does not allow access to this video (403).")},
    {u"HTTP error 429",
     QT_TRANSLATE_NOOP("PlaybackFailure",
                       "The server refuses for now, as it was asked too often (429).")},
    {u"HTTP error 4",
     QT_TRANSLATE_NOOP("PlaybackFailure", "The server refused to send the video.")},
    {u"HTTP error 5",
     QT_TRANSLATE_NOOP("PlaybackFailure", "The server has a fault and cannot send the video.")},
    {u"Failed to resolve hostname",
     QT_TRANSLATE_NOOP(
         "PlaybackFailure",
         "The video's server was not found. Is this computer connected to the internet?")},
    {u"Connection refused",
     QT_TRANSLATE_NOOP("PlaybackFailure", "Cannot connect to the video's server."), ECONNREFUSED},
    {u"Network is unreachable",
     QT_TRANSLATE_NOOP("PlaybackFailure", "Cannot connect to the video's server."), ENETUNREACH},
    {u"No route to host",
     QT_TRANSLATE_NOOP("PlaybackFailure", "Cannot connect to the video's server."), EHOSTUNREACH},
    {u"Connection reset",
     QT_TRANSLATE_NOOP("PlaybackFailure", "The video's server broke the connection."), ECONNRESET},
    {u"timed out",
     QT_TRANSLATE_NOOP("PlaybackFailure", "The video's server took too long to answer."),
     ETIMEDOUT},
    {u"certificate",
     QT_TRANSLATE_NOOP("PlaybackFailure",
                       "The identity of the video's server could not be verified.")},
    {u"tls:",
     QT_TRANSLATE_NOOP("PlaybackFailure",
                       "No secure connection to the video's server could be made.")},
    {u"No such file", QT_TRANSLATE_NOOP("PlaybackFailure", "The file does not exist."), ENOENT},
    {u"Permission denied", QT_TRANSLATE_NOOP("PlaybackFailure", "The file may not be read."),
     EACCES},
    {u"moov atom not found",
     QT_TRANSLATE_NOOP("PlaybackFailure", "The video is incomplete or damaged.")},
    {u"Failed to initialize a decoder",
     QT_TRANSLATE_NOOP("PlaybackFailure", "This kind of video cannot be played here.")},
    {u"No protocol handler",
     QT_TRANSLATE_NOOP("PlaybackFailure", "Videos cannot be played from this kind of address.")},
};

const char *sentenceOfCode(int mpvError)
{
    switch (mpvError) {
    case MPV_ERROR_UNKNOWN_FORMAT:
        return QT_TRANSLATE_NOOP("PlaybackFailure", "This is not a video.");
    case MPV_ERROR_NOTHING_TO_PLAY:
        return QT_TRANSLATE_NOOP("PlaybackFailure", "There is neither a picture nor sound in it.");
    case MPV_ERROR_UNSUPPORTED:
        return QT_TRANSLATE_NOOP("PlaybackFailure", "This kind of video cannot be played here.");
    case MPV_ERROR_AO_INIT_FAILED:
        return QT_TRANSLATE_NOOP("PlaybackFailure",
                                 "The sound output of this computer cannot be used.");
    case MPV_ERROR_VO_INIT_FAILED:
        return QT_TRANSLATE_NOOP("PlaybackFailure",
                                 "The picture cannot be shown on this computer.");
    default:
        return QT_TRANSLATE_NOOP("PlaybackFailure", "The video cannot be opened.");
    }
}

bool matches(const LogRule &rule, const QString &line)
{
    if (line.contains(QStringView(rule.words), Qt::CaseInsensitive))
        return true;
    return rule.systemError != 0
        && line.contains(QString::fromLocal8Bit(std::strerror(rule.systemError)));
}

} // namespace

QString playbackFailure(int mpvError, const QStringList &log)
{
    for (const LogRule &rule : logRules) {
        for (const QString &line : log) {
            if (matches(rule, line))
                return QCoreApplication::translate("PlaybackFailure", rule.sentence);
        }
    }
    return QCoreApplication::translate("PlaybackFailure", sentenceOfCode(mpvError));
}

} // namespace clipwren
