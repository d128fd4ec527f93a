#pragma once

#include <QString>
#include <QUrl>

#include <memory>

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

    /// A download or conversion that runs. Until this is destroyed, the machine does not go to
    /// sleep by itself.
    class Activity {
    public:
        virtual ~Activity() = default;
        /// From 0 to 1; shown with the program's icon.
        virtual void setProgress(double) { }
    };
    /// The desktop must outlive the activity.
    virtual std::unique_ptr<Activity> beginActivity() = 0;

    struct Notification {
        QString summary;
        QString body;
        QString filePath = {}; ///< of a new file, which the notification offers to show and open
    };
    /// Tells of something that has ended: by a notification or, where the user is at the window,
    /// by `announce` alone.
    virtual void notify(const Notification &notification) = 0;
    /// Has a screen reader say that something has changed which the focus does not tell of. Not
    /// while another program is used.
    virtual void announce(const QString &text) = 0;
};

} // namespace clipwren
