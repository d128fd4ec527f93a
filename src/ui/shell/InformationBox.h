#pragma once

#include "core/library/DownloadRecord.h"
#include "core/media/MediaInspection.h"
#include "ui/components/Card.h"
#include "ui/components/Icon.h"

#include <QLabel>
#include <QList>

class QVBoxLayout;

namespace clipwren {

/// A short verdict with its symbol on a capsule of the same colour.
class Pill : public QLabel {
    Q_OBJECT
public:
    enum class Tone { Green, Blue, Orange };

    explicit Pill(QWidget *parent = nullptr);

    void display(Tone tone, Icon icon, const QString &text);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Tone m_tone = Tone::Green;
    Icon m_icon;
};

/// One row of the information box.
struct RecordFact {
    QString label;
    QString value; ///< never empty
    bool monospaced = false;
    bool highlight = false;

    bool operator==(const RecordFact &) const = default;
};

/// What is known of a saved file, in the order of the rows; what is not known is left out. Asks the
/// disk for the file's size when there is no inspection.
QList<RecordFact> recordFacts(const DownloadRecord &record,
                              const std::optional<MediaInspection> &inspection);

/// Whether a file plays in QuickTime, for the pill.
struct CompatVerdict {
    Pill::Tone tone;
    Icon icon;
    QString text;

    bool operator==(const CompatVerdict &) const = default;
};

/// None for files without pictures.
std::optional<CompatVerdict> compatVerdict(const MediaInspection &inspection);

class InformationRow;

/// The facts of a saved file, one under the other, to read and to copy.
class InformationBox : public Card {
    Q_OBJECT

public:
    explicit InformationBox(QWidget *parent = nullptr);

    void setFacts(const QList<RecordFact> &facts);

protected:
    void changeEvent(QEvent *event) override;

private:
    void alignLabels();

    QVBoxLayout *m_column;
    QList<InformationRow *> m_rows; // those beyond the facts are hidden
};

} // namespace clipwren
