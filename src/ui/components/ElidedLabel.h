#pragma once

#include "ui/components/Label.h"

namespace clipwren {

/// One line of text that is shortened with an ellipsis where room is short.
///
/// The whole text shows in a tool tip while it is cut, is what assistive tools read, and is what
/// copying takes. Line breaks and tabs show as blanks.
class ElidedLabel : public Label {
    Q_OBJECT
public:
    explicit ElidedLabel(Theme::TextStyle style, Theme::Color color = Theme::Color::Text,
                         const QString &text = {}, QWidget *parent = nullptr);

    /// End by default; middle for paths and addresses.
    void setElideMode(Qt::TextElideMode mode);
    void setFullText(const QString &text);
    QString fullText() const { return m_fullText; }
    bool isCut() const { return text() != m_line; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    /// The marked part, but the whole text when it is cut.
    QString copyText() const override;

private:
    qreal widthOf(const QString &text) const;
    int lineHeight() const;
    void cut();

    QString m_fullText;
    QString m_line; // the full text as it shows where there is room
    Qt::TextElideMode m_mode = Qt::ElideRight;
};

} // namespace clipwren
