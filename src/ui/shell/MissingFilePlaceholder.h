#pragma once

#include "ui/components/Card.h"

namespace clipwren {

/// In the player's place when the file has gone.
class MissingFilePlaceholder : public Card {
    Q_OBJECT

public:
    explicit MissingFilePlaceholder(QWidget *parent = nullptr);
};

} // namespace clipwren
