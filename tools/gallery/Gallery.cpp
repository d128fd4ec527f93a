#include "Gallery.h"

#include "ui/components/Banner.h"
#include "ui/components/Button.h"
#include "ui/components/Card.h"
#include "ui/components/ElidedLabel.h"
#include "ui/components/FieldBox.h"
#include "ui/components/IconView.h"
#include "ui/components/LinearProgress.h"
#include "ui/components/Picker.h"
#include "ui/components/Pill.h"
#include "ui/components/SegmentedControl.h"
#include "ui/components/Spinner.h"
#include "ui/components/Switch.h"
#include "ui/components/ThumbnailView.h"
#include "ui/downloader/LogViewer.h"
#include "ui/downloader/TrimSlider.h"

#include <QApplication>
#include <QFocusEvent>
#include <QGridLayout>
#include <QLineEdit>
#include <QTimer>

namespace clipwren::gallery {

namespace {

using Color = Theme::Color;
using Style = Theme::TextStyle;

/// A row of widgets; a null one is flexible space.
QHBoxLayout *row(std::initializer_list<QWidget *> widgets, int spacing = 10)
{
    auto *layout = new QHBoxLayout;
    layout->setSpacing(spacing);
    for (QWidget *widget : widgets) {
        if (widget)
            layout->addWidget(widget);
        else
            layout->addStretch(1);
    }
    return layout;
}

QVBoxLayout *column(std::initializer_list<QWidget *> widgets, int spacing)
{
    auto *layout = new QVBoxLayout;
    layout->setSpacing(spacing);
    for (QWidget *widget : widgets)
        layout->addWidget(widget);
    return layout;
}

enum class Look { Normal, Hovered, Pressed, Focused, Disabled };

/// Puts a control into a state that else only a pointer or a keyboard brings about.
void dress(QWidget *control, Look look)
{
    control->setEnabled(look != Look::Disabled);
    control->setAttribute(Qt::WA_UnderMouse, look == Look::Hovered);
    if (auto *button = qobject_cast<QAbstractButton *>(control))
        button->setDown(look == Look::Pressed);
    if (look == Look::Focused) {
        QTimer::singleShot(0, control, [control] {
            QFocusEvent event(QEvent::FocusIn, Qt::TabFocusReason);
            QApplication::sendEvent(control, &event);
        });
    }
}

Button *button(Button::Style style, Button::Size size, const QString &text, Icon icon, Look look,
               bool destructive = false)
{
    auto *made = new Button(style, text, icon);
    made->setSize(size);
    made->setDestructive(destructive);
    dress(made, look);
    return made;
}

void addButtons(QGridLayout *grid)
{
    const QStringList looks = {QStringLiteral("normal"), QStringLiteral("hovered"),
                               QStringLiteral("pressed"), QStringLiteral("focused"),
                               QStringLiteral("disabled")};
    for (int look = 0; look < looks.size(); ++look)
        grid->addWidget(new Label(Style::Caption, Color::Tertiary, looks[look]), 0, look);
    struct Row {
        Button::Style style;
        Button::Size size;
        QString text;
        Icon icon;
        bool destructive = false;
    };
    const QList<Row> rows = {
        {Button::Style::Prominent, Button::Size::Small, QStringLiteral("Try Again"),
         u"arrow.clockwise"},
        {Button::Style::Prominent, Button::Size::Regular, QStringLiteral("Continue"),
         u"arrow.right.circle.fill"},
        {Button::Style::Prominent, Button::Size::Large, QStringLiteral("Download"),
         u"arrow.down.circle.fill"},
        {Button::Style::Bordered, Button::Size::Small, QStringLiteral("View Logs"), u"terminal"},
        {Button::Style::Bordered, Button::Size::Regular, QStringLiteral("Play Clip"), u"play.fill"},
        {Button::Style::Bordered, Button::Size::Small, QStringLiteral("Cancel"), {}, true},
        {Button::Style::Prominent,
         Button::Size::Regular,
         QStringLiteral("Clear Recents"),
         {},
         true},
        {Button::Style::Borderless, Button::Size::Regular, QStringLiteral("Paste"), {}},
        {Button::Style::Borderless, Button::Size::Small, QStringLiteral("Clear History"), u"trash",
         true},
        {Button::Style::Borderless, Button::Size::Small, {}, u"xmark.circle.fill"},
        {Button::Style::Borderless, Button::Size::Regular, {}, u"folder"},
    };
    int line = 1;
    for (const Row &each : rows) {
        for (int look = 0; look < looks.size(); ++look) {
            grid->addWidget(button(each.style, each.size, each.text, each.icon,
                                   static_cast<Look>(look), each.destructive),
                            line, look, Qt::AlignLeft);
        }
        ++line;
    }
}

QLayout *switches()
{
    auto *on = new Switch(QStringLiteral("Trim before saving"), u"scissors");
    on->setChecked(true);
    auto *focused = new Switch(QStringLiteral("Focused"));
    dress(focused, Look::Focused);
    auto *disabled = new Switch(QStringLiteral("Disabled"));
    disabled->setChecked(true);
    dress(disabled, Look::Disabled);
    return row({on, new Switch(QStringLiteral("Off")), focused, disabled, nullptr}, 20);
}

QLayout *pills()
{
    auto *green = new Pill;
    green->display(Pill::Tone::Green, u"checkmark.circle.fill",
                   QStringLiteral("Plays in QuickTime"));
    auto *blue = new Pill;
    blue->display(Pill::Tone::Blue, u"checkmark.circle.fill", QStringLiteral("macOS 10.13+"));
    auto *orange = new Pill;
    orange->display(Pill::Tone::Orange, u"exclamationmark.triangle.fill",
                    QStringLiteral("Needs VLC or IINA"));
    return row({green, blue, orange, nullptr});
}

QWidget *labels()
{
    auto *box = new QWidget;
    auto *layout = column({}, 4);
    box->setLayout(layout);
    layout->setContentsMargins(0, 0, 0, 0);
    const QString text = QStringLiteral("Building a tide clock from scratch 0123456789");
    for (const Style style : {Style::Title,
                              Style::Heading,
                              Style::SidebarTitle,
                              Style::Headline,
                              Style::BarTitle,
                              Style::Subheadline,
                              Style::Emphasis,
                              Style::Time,
                              Style::Strong,
                              Style::Label,
                              Style::Body,
                              Style::BodyDigits,
                              Style::Callout,
                              Style::SectionHeader,
                              Style::TrackedCaption,
                              Style::Caption,
                              Style::CaptionDigits,
                              Style::Overline,
                              Style::MonospacedBody,
                              Style::MonospacedCallout,
                              Style::MonospacedCaption}) {
        layout->addWidget(new ElidedLabel(style, Color::Text, text));
    }
    auto *middle = new ElidedLabel(
        Style::MonospacedCaption, Color::Secondary,
        QStringLiteral("/home/somebody/Movies/Clipwren/Building a tide clock [0001].mp4"));
    middle->setElideMode(Qt::ElideMiddle);
    middle->setMaximumWidth(260);
    layout->addWidget(middle);
    layout->addWidget(new ElidedLabel(Style::Label, Color::Text,
                                      QStringLiteral("\u05E9\u05E2\u05D5\u05DF \u05D2\u05D0\u05D5"
                                                     "\u05EA \u05DE\u05D0\u05E4\u05E1")));
    return box;
}

SegmentedControl *segments(int chosen)
{
    auto *made = new SegmentedControl({QStringLiteral("Recent"), QStringLiteral("History")});
    made->setCurrentIndex(chosen);
    made->setFixedWidth(259);
    return made;
}

Picker *picker()
{
    auto *made = new Picker;
    made->setEntries(
        {{u"sparkles", QStringLiteral("Best resolution — 2160p VP9"),
          QStringLiteral("bestResolution")},
         {u"video.fill", QStringLiteral("Mac Compatible — 1080p H.264"),
          QStringLiteral("macCompatible")},
         {u"film.stack.fill", QStringLiteral("ProRes 422"), QStringLiteral("proRes422")},
         {u"music.note", QStringLiteral("Audio only — MP3"), QStringLiteral("audioMP3")}});
    made->setCurrentKey(QStringLiteral("bestResolution"));
    return made;
}

FieldBox *addressField()
{
    auto *field = new FieldBox(u"link", QStringLiteral("Video address"));
    field->lineEdit()->setText(QStringLiteral("https://video.example/watch?v=tide-clock-01"));
    auto *clear = Button::iconOnly(u"xmark.circle.fill", QStringLiteral("Clear"));
    clear->setSize(Button::Size::Small);
    clear->setTint(Color::Tertiary);
    field->addTrailing(clear);
    field->addTrailing(new Button(Button::Style::Borderless, QStringLiteral("Paste")));
    return field;
}

LinearProgress *progress(double fraction)
{
    auto *made = new LinearProgress;
    made->setFraction(fraction);
    return made;
}

/// Without an address, so it shows its placeholder.
ThumbnailView *thumbnail()
{
    auto *made = new ThumbnailView;
    made->setFixedSize(200, 112);
    return made;
}

TrimSlider *trimSlider()
{
    auto *made = new TrimSlider;
    made->setDuration(754);
    made->setRange({188, 475});
    return made;
}

Banner *warning()
{
    auto *made = new Banner;
    made->setTitle(QStringLiteral("This file won't play in QuickTime"));
    made->setMarkdown(QStringLiteral(
        "It will only open in **VLC** or **IINA**. Pick the *Mac Compatible* option below if "
        "you'd rather lose some resolution and have it play everywhere."));
    return made;
}

Banner *failure()
{
    auto *made = new Banner;
    made->setMessage(
        QStringLiteral("Process failed (exit 1): ERROR: unable to download video data"));
    made->setDismissible(true);
    made->addButton(QStringLiteral("View Logs"), u"terminal");
    return made;
}

} // namespace

QWidget *controlsPage()
{
    auto *page = new QWidget;
    auto *all = column({}, 18);
    all->setContentsMargins(28, 28, 28, 28);
    page->setLayout(all);
    auto *grid = new QGridLayout;
    grid->setSpacing(12);
    addButtons(grid);
    all->addLayout(grid);
    all->addLayout(row({segments(0), segments(1), nullptr}, 20));
    all->addLayout(switches());
    all->addLayout(pills());
    auto *focusedPicker = picker();
    dress(focusedPicker, Look::Focused);
    auto *disabledPicker = picker();
    disabledPicker->setEnabled(false);
    all->addLayout(row({focusedPicker, disabledPicker, nullptr}, 20));
    all->addWidget(labels());
    return page;
}

QWidget *cardsPage()
{
    auto *page = new QWidget;
    page->setFixedWidth(664 + 56);
    auto *all = column({addressField(), warning(), failure(), trimSlider(), progress(0.42)}, 24);
    all->setContentsMargins(28, 28, 28, 28);
    page->setLayout(all);
    auto *card = new Card;
    auto *content = row({thumbnail(), new Spinner, nullptr}, 16);
    content->setContentsMargins(17, 17, 17, 17);
    card->setLayout(content);
    all->addWidget(card);
    return page;
}

QWidget *iconsPage()
{
    auto *page = new QWidget;
    auto *grid = new QGridLayout(page);
    grid->setContentsMargins(28, 28, 28, 28);
    grid->setSpacing(14);
    for (std::size_t index = 0; index < Icon::names.size(); ++index) {
        const Icon icon = Icon::at(index);
        auto *cell =
            row({new IconView(icon, 16, Color::Secondary), new IconView(icon, 40, Color::Accent),
                 new Label(Style::Caption, Color::Secondary, icon.name()), nullptr});
        grid->addLayout(cell, static_cast<int>(index) / 3, static_cast<int>(index) % 3);
    }
    return page;
}

QWidget *logPage()
{
    QString log;
    for (int line = 0; line < 60; ++line)
        log += QStringLiteral("[debug] Command-line config: ['-J', '--no-playlist', '--', "
                              "'https://video.example/watch?v=tide-clock-01'] %1\n")
                   .arg(line);
    return new LogViewer(QStringLiteral("yt-dlp output"), log, [] {});
}

} // namespace clipwren::gallery
