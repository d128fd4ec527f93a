#pragma once

#include "platform/desktop/Desktop.h"

namespace clipwren {

/// The desktop of a program without a screen: there is none.
class SilentDesktop : public Desktop {
public:
    void reveal(const QString &) override { }
    void openFile(const QString &) override { }
    void openAddress(const QUrl &) override { }
    QString clipboardText() const override { return {}; }
    void setClipboardText(const QString &) override { }
    void playCompletionSound() override { }
};

} // namespace clipwren
