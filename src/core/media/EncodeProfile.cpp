#include "core/media/EncodeProfile.h"

namespace clipwren {

EncodeProfile EncodeProfile::h264Mp4()
{
    return {
        .videoArgs = {QStringLiteral("-c:v"), QStringLiteral("libx264"), QStringLiteral("-preset"),
                      QStringLiteral("veryfast"), QStringLiteral("-crf"), QStringLiteral("20"),
                      QStringLiteral("-pix_fmt"), QStringLiteral("yuv420p")},
        .audioArgs = {QStringLiteral("-c:a"), QStringLiteral("aac"), QStringLiteral("-b:a"),
                      QStringLiteral("192k")},
        .ext = QStringLiteral("mp4"),
    };
}

EncodeProfile EncodeProfile::proRes422()
{
    return {
        .videoArgs = {QStringLiteral("-c:v"), QStringLiteral("prores_ks"),
                      QStringLiteral("-profile:v"), QStringLiteral("3"), QStringLiteral("-vendor"),
                      QStringLiteral("apl0"), QStringLiteral("-pix_fmt"),
                      QStringLiteral("yuv422p10le")},
        .audioArgs = {QStringLiteral("-c:a"), QStringLiteral("pcm_s16le")},
        .ext = QStringLiteral("mov"),
    };
}

} // namespace clipwren
