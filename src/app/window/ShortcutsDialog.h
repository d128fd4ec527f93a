#pragma once

#include <QDialog>

namespace clipwren {

/// Lists what the keyboard does.
class ShortcutsDialog : public QDialog {
    Q_OBJECT

public:
    explicit ShortcutsDialog(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace clipwren
