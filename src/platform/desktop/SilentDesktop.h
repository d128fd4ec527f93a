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
    std::unique_ptr<Activity> beginActivity() override { return std::make_unique<Activity>(); }
    void notify(const Notification &) override { }
    void announce(const QString &) override { }
};

} // namespace clipwren
