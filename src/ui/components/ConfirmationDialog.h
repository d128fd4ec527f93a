#pragma once

#include <QDialog>

namespace clipwren {

class Label;

/// Asks before something that cannot be taken back. "Cancel" has the keyboard at first, and
/// Escape means it. Shown with `open()`; goes when it closes.
class ConfirmationDialog : public QDialog {
    Q_OBJECT
public:
    /// `confirm` is the text of the button that `accepted()` stands for.
    ConfirmationDialog(const QString &title, const QString &confirm, QWidget *parent);

    void setMessage(const QString &message);

protected:
    void changeEvent(QEvent *event) override;

private:
    Label *m_message;
};

} // namespace clipwren
