#pragma once

#include <QList>
#include <QWidget>

namespace clipwren {

class Button;

/// One screen of the detail pane, with what it puts into the bar above the pane.
class DetailScreen : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// Empty where the bar stays without a title.
    virtual QString barTitle() const = 0;
    virtual QString windowTitleText() const { return barTitle(); }
    /// Shown at the end of the bar while the screen is shown. The bar takes them as children, and
    /// they go with the screen.
    virtual QList<Button *> barButtons() const = 0;

Q_SIGNALS:
    void titleChanged(); ///< of the bar or the window
};

} // namespace clipwren
