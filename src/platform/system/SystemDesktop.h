#pragma once

#include "platform/desktop/Desktop.h"
#include "platform/system/CompletionSound.h"

namespace clipwren {

/// The desktop that the user sits at: its file manager, default applications, clipboard and sound.
class SystemDesktop : public Desktop {
public:
    void reveal(const QString &path) override;
    void openFile(const QString &path) override;
    void openAddress(const QUrl &address) override;
    QString clipboardText() const override;
    void setClipboardText(const QString &text) override;
    void playCompletionSound() override;

private:
    CompletionSound m_sound;
};

} // namespace clipwren
