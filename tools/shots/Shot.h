#pragma once

#include "SampleWindow.h"

namespace clipwren::test {

/// One picture: its name, the title of the looked-up video, and how to bring the window there.
struct Shot {
    QString name;
    QString title;
    std::function<void(SampleWindow &)> prepare;
};

QList<Shot> allShots();

} // namespace clipwren::test
