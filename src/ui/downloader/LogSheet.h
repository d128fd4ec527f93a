#pragma once

#include <QDialog>

#include <functional>

namespace clipwren {

/// The output of a tool over the main window, which waits until it is closed.
class LogSheet : public QDialog {
    Q_OBJECT
public:
    /// `onDismiss` is called by "Done", Escape and closing the sheet; the sheet stays until it is
    /// deleted.
    LogSheet(const QString &title, const QString &log, std::function<void()> onDismiss,
             QWidget *parent);

    void reject() override { m_onDismiss(); }

private:
    std::function<void()> m_onDismiss;
};

} // namespace clipwren
