#pragma once

#include "ui/components/Card.h"
#include "ui/components/Icon.h"

class QHBoxLayout;

namespace clipwren {

class Button;
class Label;

/// A warning on a faint orange ground.
class Banner : public Card {
    Q_OBJECT
public:
    explicit Banner(QWidget *parent = nullptr);

    /// A line in semibold over the message; none when empty.
    void setTitle(const QString &title);
    /// Shown as it is, and selectable.
    void setMessage(const QString &message);
    /// A text of ours with `**bold**` and `*italic*`, in the secondary colour.
    void setMarkdown(const QString &message);
    void setDismissible(bool dismissible);
    /// A small button beside the message.
    Button *addButton(const QString &text, const Icon &icon);

Q_SIGNALS:
    void dismissed();

private:
    Label *m_title;
    Label *m_message;
    QHBoxLayout *m_buttons;
    Button *m_dismiss;
};

} // namespace clipwren
