#pragma once

#include <QWidget>

#include <functional>

namespace clipwren {

class ElidedLabel;
class LogText;

/// The captured output of a tool, to read, mark and copy. Its user shows it as a sheet.
///
/// "Done" and Escape call `onDismiss`; the view does not close itself.
class LogViewer : public QWidget {
    Q_OBJECT
public:
    LogViewer(const QString &title, const QString &log, std::function<void()> onDismiss,
              QWidget *parent = nullptr);

    QSize sizeHint() const override { return {760, 480}; }

private:
    QWidget *makeHeader(const QString &title);
    void copy() const;

    QString m_log;
    std::function<void()> m_onDismiss;
    LogText *m_text;
};

} // namespace clipwren
