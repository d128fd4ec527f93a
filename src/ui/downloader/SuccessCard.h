#pragma once

#include "ui/components/Card.h"

#include <functional>

namespace clipwren {

class DownloaderView;

/// Says that the file is saved, and where.
class SuccessCard : public Card {
    Q_OBJECT
public:
    SuccessCard(DownloaderView &view, const QString &downloadFolder, std::function<void()> reveal,
                QWidget *parent = nullptr);
};

} // namespace clipwren
