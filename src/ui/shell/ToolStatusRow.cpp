#include "ui/shell/ToolStatusRow.h"

#include "ui/components/ElidedLabel.h"
#include "ui/components/IconView.h"

#include <QHBoxLayout>

namespace clipwren {

ToolStatusRow::ToolStatusRow(const QString &name, QWidget *parent)
    : QWidget(parent), m_icon(new IconView(u"circle.dashed", 18, Theme::Color::Secondary)),
      m_path(new ElidedLabel(Theme::TextStyle::MonospacedCaption, Theme::Color::Secondary)),
      m_version(new Label(Theme::TextStyle::CaptionDigits, Theme::Color::Tertiary))
{
    m_path->setElideMode(Qt::ElideMiddle);

    auto *texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addWidget(new Label(Theme::TextStyle::Emphasis, Theme::Color::Text, name));
    texts->addWidget(m_path);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(16, 12, 16, 12);
    row->setSpacing(12);
    row->addWidget(m_icon);
    row->addLayout(texts, 1);
    row->addWidget(m_version);
}

void ToolStatusRow::display(const std::optional<QString> &found,
                            const std::optional<QString> &version)
{
    m_icon->setIcon(found ? Icon(u"checkmark.circle.fill") : Icon(u"circle.dashed"));
    m_icon->setColor(found ? Theme::Color::Green : Theme::Color::Secondary);
    m_path->setFullText(found.value_or(tr("Not installed")));
    m_version->setText(version.value_or(QString()));
    m_version->setVisible(version.has_value());
}

} // namespace clipwren
