#pragma once

#include <QString>
#include <QUrl>

namespace clipwren {

/// What the desktop does for us. Used on the user-interface thread; nothing here waits for the
/// other side or reports a failure, as the desktop tells the user itself.
class Desktop {
public:
    virtual ~Desktop() = default;

    /// Shows the file or folder, selected, in a window of the file manager.
    virtual void reveal(const QString &path) = 0;
    /// Opens a file with its default application.
    virtual void openFile(const QString &path) = 0;
    /// Opens an address in the default browser.
    virtual void openAddress(const QUrl &address) = 0;

    /// Empty when the clipboard holds no text.
    virtual QString clipboardText() const = 0;
    virtual void setClipboardText(const QString &text) = 0;

    /// A short sound that says that a download is complete.
    virtual void playCompletionSound() = 0;
};

} // namespace clipwren
