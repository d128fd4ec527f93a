#include "core/media/EncodeProfile.h"

namespace clipwren {

using namespace Qt::StringLiterals;

EncodeProfile EncodeProfile::h264Mp4()
{
    return {
        .videoArgs = {u"-c:v"_s, u"libx264"_s, u"-preset"_s, u"veryfast"_s, u"-crf"_s, u"20"_s,
                      u"-pix_fmt"_s, u"yuv420p"_s},
        .audioArgs = {u"-c:a"_s, u"aac"_s, u"-b:a"_s, u"192k"_s},
        .ext = u"mp4"_s,
    };
}

EncodeProfile EncodeProfile::proRes422()
{
    return {
        .videoArgs = {u"-c:v"_s, u"prores_ks"_s, u"-profile:v"_s, u"3"_s, u"-vendor"_s, u"apl0"_s,
                      u"-pix_fmt"_s, u"yuv422p10le"_s},
        .audioArgs = {u"-c:a"_s, u"pcm_s16le"_s},
        .ext = u"mov"_s,
    };
}

} // namespace clipwren
