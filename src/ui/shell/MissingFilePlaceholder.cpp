#include "ui/shell/MissingFilePlaceholder.h"

#include "ui/components/IconView.h"
#include "ui/components/Label.h"

#include <QVBoxLayout>

namespace clipwren {

MissingFilePlaceholder::MissingFilePlaceholder(QWidget *parent)
    : Card(Theme::Color::Card, 14, parent)
{
    setMinimumHeight(220);
    auto *stack = new QVBoxLayout(this);
    stack->setSpacing(8);
    stack->addStretch(1);
    stack->addWidget(new IconView(u"questionmark.video", 38, Theme::Color::Secondary), 0,
                     Qt::AlignHCenter);
    stack->addWidget(new Label(Theme::TextStyle::Callout, Theme::Color::Secondary,
                               tr("File no longer at expected location")),
                     0, Qt::AlignHCenter);
    stack->addStretch(1);
}

} // namespace clipwren
