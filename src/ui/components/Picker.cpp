#include "ui/components/Picker.h"

#include "ui/components/FocusRing.h"
#include "ui/components/Painting.h"
#include "ui/components/TextLine.h"
#include "ui/components/Theme.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QHBoxLayout>
#include <QPainter>
#include <QStyle>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

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
        Theme::setTextStyle(*this, Theme::TextStyle::CalloutLabel);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        FocusRing::install(this, 6);
    }

    QSize sizeHint() const override
    {
        return {fontMetrics().size(Qt::TextShowMnemonic, text()).width() + 24,
                controlHeight(fontMetrics().height(), 24)};
    }
    QSize minimumSizeHint() const override { return sizeHint() - QSize(16, 0); }

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

namespace {

constexpr int rowHeight = 30;
constexpr int radius = 7;
constexpr int padding = 13;
constexpr int gap = 6;
constexpr int chevronGap = 6;
constexpr int shortestText = 40;

int symbolSize()
{
    return Theme::scaled(16);
}

int chevronSize()
{
    return Theme::scaled(14);
}

} // namespace

Picker::Picker(QWidget *parent) : QComboBox(parent)
{
    Theme::setTextStyle(*this, Theme::TextStyle::Label);
    setIconSize({symbolSize(), symbolSize()});
    setSizeAdjustPolicy(AdjustToContents);
    // A fixed height would be that of a single line.
    QSizePolicy wrapping(QSizePolicy::Maximum, QSizePolicy::Preferred);
    wrapping.setHeightForWidth(true);
    setSizePolicy(wrapping);
    setAttribute(Qt::WA_Hover);
    FocusRing::install(this, radius);
    connect(&Theme::current(), &Theme::changed, this, &Picker::tintIcons);
    connect(this, &QComboBox::activated, this, [this] { Q_EMIT picked(currentKey()); });
}

void Picker::setEntries(const QList<Entry> &entries)
{
    if (m_entries == entries)
        return;
    const QString key = currentKey();
    m_entries = entries;
    clear();
    for (const Entry &entry : m_entries)
        addItem(entry.title, entry.key);
    tintIcons();
    setCurrentKey(key);
    updateGeometry();
}

QString Picker::currentKey() const
{
    return currentData().toString();
}

int Picker::indexOf(const QString &key) const
{
    return findData(key);
}

void Picker::setCurrentKey(const QString &key)
{
    setCurrentIndex(indexOf(key));
    updateGeometry();
}

void Picker::tintIcons()
{
    const Theme &theme = Theme::current();
    for (int index = 0; index < count(); ++index) {
        setItemIcon(index,
                    m_entries[index].icon.toQIcon({theme.color(Theme::Color::Text),
                                                   theme.color(Theme::Color::OnAccent),
                                                   theme.color(Theme::Color::Tertiary)}));
    }
}

int Picker::roomBesideText()
{
    return 2 * padding + symbolSize() + gap + chevronGap + chevronSize();
}

QSize Picker::sizeHint() const
{
    // Rounded down, the text would be cut for the part of a pixel.
    const double text = std::ceil(QFontMetricsF(font()).horizontalAdvance(currentText()));
    const int width = static_cast<int>(text) + roomBesideText();
    return {width, heightForWidth(width)};
}

QSize Picker::minimumSizeHint() const
{
    return {shortestText + roomBesideText(), rowHeight};
}

int Picker::heightForWidth(int width) const
{
    const QRect room(0, 0, width - roomBesideText(), 0);
    const int text = fontMetrics().boundingRect(room, Qt::TextWordWrap, currentText()).height();
    return controlHeight(text, rowHeight);
}

void Picker::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    const auto mirrored = [this](const QRect &place) {
        return QStyle::visualRect(layoutDirection(), rect(), place);
    };
    QPainter painter(this);
    if (!isEnabled())
        painter.setOpacity(0.4);
    // The last line is left to the shadow.
    const QRectF box = QRectF(rect()).adjusted(0, 0, 0, -1);
    paintBoxShadow(painter, box, radius);
    paintBox(painter, box, radius, theme.color(Theme::Color::Button),
             theme.color(Theme::Color::ButtonBorder));
    if (underMouse())
        paintBox(painter, box, radius, theme.color(Theme::Color::Hover));

    const QColor ink = theme.color(Theme::Color::Text);
    const int middle = static_cast<int>(box.height()) / 2;
    if (currentIndex() >= 0)
        m_entries[currentIndex()].icon.paint(
            painter, mirrored({padding, middle - symbolSize() / 2, symbolSize(), symbolSize()}),
            ink);
    Icon(u"chevron.up.chevron.down")
        .paint(painter,
               mirrored({width() - padding - chevronSize(), middle - chevronSize() / 2,
                         chevronSize(), chevronSize()}),
               theme.color(Theme::Color::Secondary));
    const int left = padding + symbolSize() + gap;
    const QRect place = mirrored({left, 0, width() - left - padding - chevronSize() - chevronGap,
                                  static_cast<int>(box.height())});
    painter.setPen(ink);
    painter.drawText(
        place,
        static_cast<int>(Qt::AlignVCenter)
            | static_cast<int>(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft))
            | Qt::TextWordWrap,
        currentText());
}

void Picker::changeEvent(QEvent *event)
{
    QComboBox::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        setIconSize({symbolSize(), symbolSize()});
}

void Picker::wheelEvent(QWheelEvent *event)
{
    // Scrolling the page must not change the choice under the pointer.
    event->ignore();
}

} // namespace clipwren
