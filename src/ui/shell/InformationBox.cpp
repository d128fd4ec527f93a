#include "ui/shell/InformationBox.h"

#include "core/formats/ByteCountText.h"
#include "core/text/Duration.h"
#include "platform/text/DateTimeText.h"
#include "ui/components/Label.h"
#include "ui/components/Painting.h"
#include "ui/components/TextLine.h"
#include "ui/components/Theme.h"

#include <QEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QPainter>

#include <algorithm>
#include <array>

namespace clipwren {

using namespace Qt::StringLiterals;

namespace {

constexpr int pillPadding = 8;
constexpr int pillIconSize = 13;
constexpr int pillGap = 5;

struct Tones {
    Theme::Color icon;
    Theme::Color text;
    Theme::Color fill;
};

// By tone: green, blue, orange.
constexpr std::array tonesTable = {
    Tones{Theme::Color::Green, Theme::Color::GreenText, Theme::Color::GreenFill},
    Tones{Theme::Color::Blue, Theme::Color::BlueText, Theme::Color::BlueFill},
    Tones{Theme::Color::OrangeIcon, Theme::Color::OrangeText, Theme::Color::OrangeFill},
};

} // namespace

Pill::Pill(QWidget *parent) : QLabel(parent)
{
    Theme::setTextStyle(*this, Theme::TextStyle::CaptionLabel);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Pill::display(Tone tone, Icon icon, const QString &text)
{
    m_tone = tone;
    m_icon = icon;
    setText(text);
    updateGeometry();
    update();
}

QSize Pill::sizeHint() const
{
    return {2 * pillPadding + Theme::scaled(pillIconSize) + pillGap
                + fontMetrics().horizontalAdvance(text()),
            controlHeight(fontMetrics().height(), 23)};
}

void Pill::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    const Tones &tones = tonesTable[static_cast<std::size_t>(m_tone)];
    QPainter painter(this);
    paintBox(painter, rect(), height() / 2.0, theme.color(tones.fill));
    const int iconSize = Theme::scaled(pillIconSize);
    m_icon.paint(painter, QRect(pillPadding, (height() - iconSize) / 2, iconSize, iconSize),
                 theme.color(tones.icon));
    painter.setPen(theme.color(tones.text));
    painter.drawText(rect().adjusted(pillPadding + iconSize + pillGap, 0, 0, 0),
                     Qt::AlignLeft | Qt::AlignVCenter, text());
}

namespace {

/// ffprobe names the family of containers that a file belongs to, as in "mov,mp4,m4a,3gp,3g2,mj2".
QString containerName(const QString &container)
{
    const QString first = container.split(u',', Qt::SkipEmptyParts).value(0, container).toLower();
    if (first == "mov"_L1 || first == "mp4"_L1)
        return InformationBox::tr("MPEG-4 movie");
    if (first == "matroska"_L1)
        return InformationBox::tr("Matroska video");
    if (first == "mp3"_L1)
        return InformationBox::tr("MP3 audio");
    if (first == "webm"_L1)
        return InformationBox::tr("WebM video");
    return first.toUpper();
}

QString extensionName(const QString &path)
{
    const QString name = QFileInfo(path).fileName();
    const qsizetype dot = name.lastIndexOf(u'.');
    const QString extension = dot > 0 ? name.sliced(dot + 1).toLower() : QString();
    if (extension == "mp4"_L1 || extension == "m4v"_L1)
        return InformationBox::tr("MPEG-4 movie");
    if (extension == "mov"_L1)
        return InformationBox::tr("QuickTime movie");
    if (extension == "mp3"_L1)
        return InformationBox::tr("MP3 audio");
    return extension.toUpper();
}

QString containerLabel(const MediaInspection &inspection, const QString &path)
{
    return inspection.container ? containerName(*inspection.container) : extensionName(path);
}

QString sizeLabel(const MediaInspection &inspection, const QString &path)
{
    constexpr ByteUnits units{ByteUnit::KB, ByteUnit::TB};
    if (inspection.sizeBytes)
        return byteCountText(*inspection.sizeBytes, units);
    const QFileInfo file(path);
    return file.exists() ? byteCountText(file.size(), units) : QString();
}

QString codecsLabel(const MediaInspection &inspection)
{
    QStringList codecs;
    for (const auto &codec : {inspection.videoCodec, inspection.audioCodec}) {
        if (codec)
            codecs << MediaInspection::prettyCodec(*codec);
    }
    return codecs.join(u" + "_s);
}

QString frameRateLabel(const MediaInspection &inspection)
{
    return inspection.frameRate
        ? InformationBox::tr("%1 fps").arg(QString::number(*inspection.frameRate, 'f', 2))
        : QString();
}

QString bitrateLabel(const MediaInspection &inspection)
{
    return inspection.overallBitrateKbps
        ? InformationBox::tr("%1 kbps").arg(QLocale().toString(*inspection.overallBitrateKbps))
        : QString();
}

QString durationLabel(const MediaInspection &inspection, const DownloadRecord &record)
{
    const auto seconds = inspection.duration ? inspection.duration : record.durationSeconds;
    return seconds ? formatDuration(*seconds) : QString();
}

struct TrimLabels {
    QString range;
    QString length;
};

TrimLabels trimLabels(const DownloadRecord &record)
{
    if (!record.trimStart || !record.trimEnd)
        return {};
    return {InformationBox::tr("%1 – %2").arg(formatDuration(*record.trimStart),
                                              formatDuration(*record.trimEnd)),
            formatDuration(*record.trimEnd - *record.trimStart)};
}

} // namespace

QList<RecordFact> recordFacts(const DownloadRecord &record,
                              const std::optional<MediaInspection> &inspection)
{
    const MediaInspection known = inspection.value_or(MediaInspection());
    const TrimLabels trim = trimLabels(record);
    QList<RecordFact> facts = {
        {InformationBox::tr("Name"), QFileInfo(record.filePath).fileName(), true, false},
        {InformationBox::tr("Kind"), containerLabel(known, record.filePath)},
        {InformationBox::tr("Size"), sizeLabel(known, record.filePath)},
        {InformationBox::tr("Dimensions"), known.dimensions().value_or(QString()), false, true},
        {InformationBox::tr("Codecs"), codecsLabel(known), false, true},
        {InformationBox::tr("Frame rate"), frameRateLabel(known)},
        {InformationBox::tr("Bitrate"), bitrateLabel(known)},
        {InformationBox::tr("Duration"), durationLabel(known, record)},
        {InformationBox::tr("Downloaded"), dateTimeText(record.createdAt)},
        {InformationBox::tr("Trim"), trim.range},
        {InformationBox::tr("Clip length"), trim.length},
    };
    facts.removeIf([](const RecordFact &fact) { return fact.value.isEmpty(); });
    return facts;
}

std::optional<CompatVerdict> compatVerdict(const MediaInspection &inspection)
{
    if (!inspection.videoCodec)
        return std::nullopt;
    const QString codec = inspection.videoCodec->toLower();
    if (codec.startsWith("h264"_L1) || codec.startsWith("avc"_L1))
        return CompatVerdict{Pill::Tone::Green, u"checkmark.circle.fill",
                             InformationBox::tr("Plays in QuickTime")};
    if (codec.startsWith("hevc"_L1) || codec.startsWith("h265"_L1))
        return CompatVerdict{Pill::Tone::Blue, u"checkmark.circle.fill",
                             InformationBox::tr("macOS 10.13+")};
    return CompatVerdict{Pill::Tone::Orange, u"exclamationmark.triangle.fill",
                         InformationBox::tr("Needs VLC or IINA")};
}

namespace {

constexpr int labelWidth = 110; // unless one needs more
constexpr int labelGap = 12;
constexpr int paddingAcross = 14;
constexpr int paddingAbove = 8;
constexpr double lineOpacity = 0.4;

Theme::TextStyle valueStyle(const RecordFact &fact)
{
    if (fact.monospaced)
        return Theme::TextStyle::MonospacedCallout;
    return fact.highlight ? Theme::TextStyle::LabelDigits : Theme::TextStyle::BodyDigits;
}

/// How far below its top a label has the base line of its first line.
int baseLine(const QLabel &label)
{
    const QFontMetrics metrics(label.font());
    const int lineHeight = label.hasHeightForWidth() ? label.heightForWidth(QWIDGETSIZE_MAX)
                                                     : label.sizeHint().height();
    return (lineHeight - metrics.height()) / 2 + metrics.ascent();
}

} // namespace

/// A label and its value, with a line below. The value can be marked and copied.
class InformationRow : public QWidget {
public:
    /// A monospaced value, which is a name, is cut in the middle; any other breaks into lines.
    explicit InformationRow(const RecordFact &fact);

    void display(const RecordFact &fact);
    Label &label() const { return *m_label; }

protected:
    void changeEvent(QEvent *event) override;

private:
    void alignBaseLines();

    Label *m_label;
    Label *m_value;
    QVBoxLayout *m_valuePlace;
};

InformationRow::InformationRow(const RecordFact &fact)
    : m_label(new Label(Theme::TextStyle::Callout, Theme::Color::Secondary)),
      m_value(new Label(fact.monospaced ? Label::Mode::Elided : Label::Mode::Paragraph,
                        valueStyle(fact))),
      m_valuePlace(new QVBoxLayout)
{
    m_value->setElideMode(Qt::ElideMiddle);
    m_value->setSelectable(true);

    auto *row = new QHBoxLayout;
    row->setContentsMargins(paddingAcross, paddingAbove, paddingAcross, paddingAbove);
    row->setSpacing(0);
    row->addWidget(m_label, 0, Qt::AlignTop);
    row->addLayout(m_valuePlace, 1);
    m_valuePlace->addWidget(m_value);
    m_valuePlace->addStretch(1);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(row);
    column->addWidget(new Divider(paddingAcross, lineOpacity));
}

void InformationRow::display(const RecordFact &fact)
{
    m_label->setText(fact.label);
    m_value->setStyle(valueStyle(fact));
    m_value->setText(fact.value);
    m_value->setAccessibleDescription(fact.label);
    alignBaseLines();
}

/// Of label and value, though their fonts differ.
void InformationRow::alignBaseLines()
{
    m_label->setContentsMargins({});
    const int lower = baseLine(*m_value) - baseLine(*m_label);
    m_label->setContentsMargins(0, std::max(0, lower), 0, 0);
    m_valuePlace->setContentsMargins(0, std::max(0, -lower), 0, 0);
}

void InformationRow::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        alignBaseLines();
}

InformationBox::InformationBox(QWidget *parent) : Card(parent), m_column(new QVBoxLayout(this))
{
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->setSpacing(0);
}

void InformationBox::setFacts(const QList<RecordFact> &facts)
{
    while (m_rows.size() < facts.size()) {
        m_rows << new InformationRow(facts[m_rows.size()]);
        m_column->addWidget(m_rows.constLast());
    }
    for (qsizetype index = 0; index < m_rows.size(); ++index) {
        const bool used = index < facts.size();
        if (used)
            m_rows[index]->display(facts[index]);
        m_rows[index]->setVisible(used);
    }
    alignLabels();
}

void InformationBox::alignLabels()
{
    int width = labelWidth;
    for (const InformationRow *row : m_rows)
        width = std::max(
            width, row->label().fontMetrics().horizontalAdvance(row->label().text()) + labelGap);
    for (const InformationRow *row : m_rows)
        row->label().setFixedWidth(width);
}

void InformationBox::changeEvent(QEvent *event)
{
    Card::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        alignLabels();
}

} // namespace clipwren
