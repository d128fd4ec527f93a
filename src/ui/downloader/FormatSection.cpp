#include "ui/downloader/FormatSection.h"

#include "ui/components/Animation.h"
#include "ui/components/Banner.h"
#include "ui/components/FlowRow.h"
#include "ui/components/Icon.h"
#include "ui/components/Label.h"
#include "ui/components/Picker.h"
#include "workflow/download/DownloaderView.h"

#include <QVBoxLayout>

namespace clipwren {

namespace {

constexpr double selectionSpring = 0.2;

Icon iconOf(OutputFormat kind)
{
    switch (kind) {
    case OutputFormat::bestResolution:
        return u"sparkles";
    case OutputFormat::macCompatible:
        return u"video.fill";
    case OutputFormat::proRes422:
        return u"film.stack.fill";
    case OutputFormat::audioMP3:
        return u"music.note";
    }
    return {};
}

} // namespace

FormatSection::FormatSection(DownloaderView &view, QWidget *parent)
    : QWidget(parent), m_view(view), m_icon(new IconView({}, 18, Theme::Color::Secondary)),
      m_picker(new Picker), m_subtitle(new Label(Label::Mode::Wrapped, Theme::TextStyle::Caption,
                                                 Theme::Color::Secondary)),
      m_warning(new Banner)
{
    connect(m_picker, &Picker::picked, &m_view, &DownloaderView::setOutputFormatRaw);
    m_warning->setTitle(tr("This file won't play in QuickTime"));
    m_warning->setMarkdown(
        tr("It will only open in **VLC** or **IINA**. Pick the *Mac Compatible* option below if "
           "you'd rather lose some resolution and have it play everywhere."));

    auto *name = new Label(Theme::TextStyle::Label, Theme::Color::Text, tr("Format"));
    // Of a combo box alone, screen readers say only the value.
    name->setBuddy(m_picker);
    auto *caption = new QHBoxLayout;
    caption->setSpacing(7);
    caption->addWidget(m_icon);
    caption->addWidget(name);
    caption->addStretch(1);
    auto *row = new FlowRow(7);
    row->addLayout(caption);
    row->addWidget(m_picker);

    auto *details = new QWidget;
    auto *detailsColumn = new QVBoxLayout(details);
    detailsColumn->setContentsMargins(0, 0, 0, 0);
    detailsColumn->setSpacing(8);
    detailsColumn->addWidget(m_subtitle);
    detailsColumn->addWidget(m_warning);
    m_details = new AnimatedHeight(details);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    column->addLayout(row);
    column->addWidget(m_details);
}

void FormatSection::render()
{
    QList<Picker::Entry> entries;
    for (const FormatOption &option : m_view.formatOptions())
        entries.append({iconOf(option.kind), option.title, rawValue(option.kind)});
    m_picker->setEntries(entries);
    const FormatOption selected = m_view.selectedOption();
    m_picker->setCurrentKey(rawValue(selected.kind));
    m_icon->setIcon(iconOf(selected.kind));
    const bool warns = selected.compat == CompatLevel::needsThirdParty;
    if (m_subtitle->text() == selected.subtitle && m_warning->isHidden() != warns)
        return;
    m_details->change(selectionSpring, [&] {
        m_subtitle->setText(selected.subtitle);
        m_warning->setVisible(warns);
    });
}

} // namespace clipwren
