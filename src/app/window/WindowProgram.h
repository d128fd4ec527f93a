#pragma once

#include "app/instance/InstanceChannel.h"

namespace clipwren {

/// Shows the window and does there what is asked for; downloads go into the folder. Where the
/// user's application runs already, asks it instead. Needs a QApplication; returns the exit status.
int runWindow(const InstanceMessage::Show &request, const QString &downloadDirectory);

} // namespace clipwren
