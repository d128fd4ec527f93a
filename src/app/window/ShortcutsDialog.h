#pragma once

#include "app/window/InformationDialog.h"

namespace clipwren {

/// Lists what the keyboard does.
class ShortcutsDialog : public InformationDialog {
    Q_OBJECT

public:
    explicit ShortcutsDialog(QWidget *parent = nullptr);
};

} // namespace clipwren
