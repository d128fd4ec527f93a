#include "ui/components/SegmentedControl.h"

#include "ui/components/FocusRing.h"
#include "ui/components/Painting.h"
#include "ui/components/Theme.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QHBoxLayout>
#include <QPainter>

namespace clipwren {

namespace {

constexpr int inset = 2;

/// One choice. The control draws everything behind its text.
class Segment : public QAbstractButton {
public:
    Segment(const QString &text, QWidget *parent) : QAbstractButton(parent)
    {
        setText(text);
        setCheckable(true);
        setAutoExclusive(true);
        setFocusPolicy(Qt::StrongFocus);
        setFont(Theme::font(Theme::TextStyle::CalloutLabel));
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        FocusRing::install(this, 6);
    }

    QSize sizeHint() const override
    {
        return {fontMetrics().size(Qt::TextShowMnemonic, text()).width() + 24, 24};
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        const Theme &theme = Theme::current();
        QPainter painter(this);
        painter.setPen(theme.color(isChecked() ? Theme::Color::Text : Theme::Color::Secondary));
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextShowMnemonic, text());
    }
};

} // namespace

SegmentedControl::SegmentedControl(const QStringList &texts, QWidget *parent)
    : QWidget(parent), m_group(new QButtonGroup(this)),
      m_thumb(
          0.18, 0, [this](double) { update(); }, this)
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(inset, inset, inset, inset);
    row->setSpacing(0);
    for (const QString &text : texts) {
        auto *segment = new Segment(text, this);
        // Equal widths, whatever the texts.
        row->addWidget(segment, 1);
        m_group->addButton(segment, static_cast<int>(m_group->buttons().size()));
    }
    m_group->button(0)->setChecked(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(m_group, &QButtonGroup::idToggled, this, [this](int index, bool checked) {
        if (!checked)
            return;
        m_thumb.moveTo(index);
        if (!signalsBlocked())
            Q_EMIT chosen(index);
    });
}

int SegmentedControl::currentIndex() const
{
    return m_group->checkedId();
}

void SegmentedControl::setCurrentIndex(int index)
{
    const QSignalBlocker quiet(this);
    m_group->button(index)->setChecked(true);
}

void SegmentedControl::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    QPainter painter(this);
    paintBox(painter, rect(), 8, theme.color(Theme::Color::Quaternary));
    const QRectF first(m_group->button(0)->geometry());
    const QRectF last(m_group->buttons().constLast()->geometry());
    const auto steps = static_cast<double>(m_group->buttons().size() - 1);
    const QRectF thumb =
        first.translated((last.x() - first.x()) * m_thumb.position() / std::max(steps, 1.0), 0);
    paintBoxShadow(painter, thumb, 6);
    paintBox(painter, thumb, 6, theme.color(Theme::Color::Segment));
}

} // namespace clipwren
