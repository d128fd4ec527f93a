#include "core/text/DecisiveLine.h"

#include "support/Printing.h"

#include <gtest/gtest.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

TEST(DecisiveLine, tellsWhyAToolFailed)
{
    const std::pair<QString, QString> cases[] = {
        {{}, {}},
        {u"\n \n"_s, {}},
        {u"one\n two \n"_s, u"two"_s},
        {u"[debug] a\nERROR: one\nERROR: gone\n  File \"x\", line 1"_s, u"ERROR: gone"_s},
        {u"Traceback:\n  File \"x.py\", line 1\nKeyError: 'x'\n"_s, u"KeyError: 'x'"_s},
        // Under the cause, ffmpeg writes what it could not do either, and the encoder's statistics.
        {u"[libx264 @ 0x1] height not divisible by 2 (853x479)\n"
         "Error initializing output stream 0:0\n[aac @ 0x2] Qavg: 120\nConversion failed!\n"_s,
         u"Error initializing output stream 0:0"_s},
        {u"av_interleaved_write_frame(): No space left on device\n"
         "Error closing file o.mp4: No space left on device\n"
         "Error while filtering\n[libx264 @ 0x1] frame I:2     Avg QP:13.36\n"
         "[libx264 @ 0x1] kb/s:98.68\nConversion failed!"_s,
         u"Error closing file o.mp4: No space left on device"_s},
        {u"o.mov: Permission denied\n"_s, u"o.mov: Permission denied"_s},
        {u"Press [q] to stop\nConversion failed!\n"_s, u"Press [q] to stop"_s},
        {u"ERROR: Postprocessing: Conversion failed!\n"_s,
         u"ERROR: Postprocessing: Conversion failed!"_s},
        {u"ERROR: "_s + u"x"_s.repeated(5000), u"ERROR: "_s + u"x"_s.repeated(993)},
    };
    for (const auto &[log, line] : cases)
        EXPECT_EQ(decisiveLine(log), line);
}

} // namespace
} // namespace clipwren
