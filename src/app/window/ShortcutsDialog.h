#pragma once

#include "app/window/InformationDialog.h"

class QHBoxLayout;

namespace clipwren {

class ScrollPane;

/// Lists what the keyboard does.
class ShortcutsDialog : public InformationDialog {
    Q_OBJECT

public:
    explicit ShortcutsDialog(QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    void fitToScreen();

    QWidget *m_content;
    QHBoxLayout *m_groups;
    ScrollPane *m_pane;
};

} // namespace clipwren
