#include "ui/downloader/TitleField.h"

#include "ui/components/Button.h"
#include "ui/components/Card.h"
#include "ui/components/Icon.h"
#include "ui/components/Label.h"
#include "workflow/download/DownloaderView.h"

#include <QLineEdit>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

namespace clipwren {

TitleField::TitleField(DownloaderView &view, QWidget *parent)
    : QWidget(parent), m_view(view), m_box(new FieldBox({}, tr("Save as"))),
      m_reset(Button::iconOnly(u"arrow.uturn.backward.circle",
                               tr("Reset to the video's original title"))),
      m_fileName(new Label(Label::Mode::Elided, Theme::TextStyle::Caption, Theme::Color::Secondary))
{
    m_box->lineEdit()->setPlaceholderText(tr("Filename"));
    // Not only what is typed: assistive tools set the text.
    connect(m_box->lineEdit(), &QLineEdit::textChanged, &m_view, &DownloaderView::setCustomTitle);
    m_reset->setSize(Button::Size::Small);
    connect(m_reset, &Button::clicked, &m_view, &DownloaderView::resetCustomTitle);
    m_box->addTrailing(m_reset);
    m_fileName->setElideMode(Qt::ElideMiddle);

    auto *caption = new QHBoxLayout;
    caption->setSpacing(6);
    caption->addWidget(new IconView(u"textformat", 14, Theme::Color::Secondary));
    caption->addWidget(new Label(Label::Mode::Elided, Theme::TextStyle::Caption,
                                 Theme::Color::Secondary, tr("Save as")),
                       1);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    column->addLayout(caption);
    column->addWidget(m_box);
    column->addWidget(m_fileName);
}

void TitleField::render()
{
    QLineEdit *field = m_box->lineEdit();
    const QString title = m_view.customTitle();
    // Setting the same text again would move the cursor.
    if (field->text() != title) {
        // Pasted lines are joined, so keep the distance of the cursor from the end.
        const qsizetype behind = field->text().size() - field->cursorPosition();
        const QSignalBlocker blocker(field);
        field->setText(title);
        field->setCursorPosition(
            field->hasFocus() ? static_cast<int>(std::max(title.size() - behind, qsizetype(0)))
                              : 0);
    }
    const std::optional<VideoInfo> info = m_view.info();
    const bool isOriginal = title == (info ? info->title.value_or(QString()) : QString());
    if (isOriginal && m_reset->hasFocus())
        field->setFocus();
    m_reset->setEnabled(!isOriginal);
    m_fileName->setText(tr("Final file: %1").arg(m_view.filenamePreview()));
}

} // namespace clipwren
