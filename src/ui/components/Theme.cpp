#include "ui/components/Theme.h"

#include "ui/components/DesktopAppearance.h"
#include "ui/components/Style.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPalette>
#include <QWidget>

#include <array>
#include <cmath>
#include <utility>

namespace clipwren {

using namespace Qt::StringLiterals;

namespace {

using Color = Theme::Color;
using TextStyle = Theme::TextStyle;

struct ColorRow {
    Color color;
    QRgb light; // alpha, red, green, blue
    QRgb dark;
};

constexpr std::array colorRows = {
    ColorRow{Color::Background, 0xFFFFFFFF, 0xFF1C1C1F},
    ColorRow{Color::Sidebar, 0xFFF4F4F6, 0xFF252528},
    ColorRow{Color::Bar, 0xFFFAFAFB, 0xFF202023},
    ColorRow{Color::Card, 0xFFF7F7F9, 0xFF27272B},
    ColorRow{Color::CardBorder, 0x14000000, 0x17FFFFFF},
    ColorRow{Color::Quaternary, 0x0D000000, 0x12FFFFFF},
    ColorRow{Color::Separator, 0x1A000000, 0x1AFFFFFF},
    ColorRow{Color::Text, 0xFF1D1D1F, 0xFFF2F2F5},
    ColorRow{Color::Secondary, 0xFF68686D, 0xFFA6A6AD},
    ColorRow{Color::Tertiary, 0xFF6F6F78, 0xFF8E8E96},
    ColorRow{Color::Accent, 0xFF0A66E8, 0xFF5AA2FF},
    ColorRow{Color::AccentFill, 0xFF0A66E8, 0xFF1F6FE0},
    ColorRow{Color::OnAccent, 0xFFFFFFFF, 0xFFFFFFFF},
    ColorRow{Color::OnAccentSecondary, 0xF2FFFFFF, 0xF7FFFFFF},
    ColorRow{Color::OnAccentFaint, 0x33FFFFFF, 0x33FFFFFF},
    ColorRow{Color::Segment, 0xFFFFFFFF, 0xFF505058},
    ColorRow{Color::OrangeIcon, 0xFFF08C00, 0xFFFF9F1C},
    ColorRow{Color::OrangeText, 0xFFB25000, 0xFFFFB454},
    ColorRow{Color::OrangeFill, 0x1FF08C00, 0x24FF9F1C},
    ColorRow{Color::Green, 0xFF1F8A3B, 0xFF3DD068},
    ColorRow{Color::GreenText, 0xFF1B7934, 0xFF3DD068},
    ColorRow{Color::GreenFill, 0x261F8A3B, 0x293DD068},
    ColorRow{Color::Blue, 0xFF0A66E8, 0xFF5AA2FF},
    ColorRow{Color::BlueText, 0xFF0960DA, 0xFF5AA2FF},
    ColorRow{Color::BlueFill, 0x260A66E8, 0x295AA2FF},
    ColorRow{Color::Red, 0xFFC9302C, 0xFFFF6E69},
    ColorRow{Color::RedFill, 0xFFC9302C, 0xFFC9302C},
    ColorRow{Color::Button, 0xFFFFFFFF, 0xFF34343A},
    ColorRow{Color::ButtonBorder, 0x29000000, 0x24FFFFFF},
    ColorRow{Color::SwitchOff, 0x29000000, 0x38FFFFFF},
    ColorRow{Color::Knob, 0xFFFFFFFF, 0xFFF2F2F5},
    ColorRow{Color::Shadow, 0x2E000000, 0x2E000000},
    ColorRow{Color::Hover, 0x0A000000, 0x0DFFFFFF},
    ColorRow{Color::Pressed, 0x1A000000, 0x24000000},
    ColorRow{Color::FocusRing, 0xFF0A66E8, 0xFF5AA2FF},
    ColorRow{Color::Video, 0xFF000000, 0xFF000000},
    ColorRow{Color::OnVideo, 0xFFFFFFFF, 0xFFFFFFFF},
    ColorRow{Color::OnVideoSecondary, 0xCCFFFFFF, 0xCCFFFFFF},
    ColorRow{Color::OnVideoFaint, 0x59FFFFFF, 0x59FFFFFF},
    ColorRow{Color::VideoBar, 0xB8161616, 0xB8161616},
};

enum class Family : std::uint8_t { System, Monospaced };

struct TextRow {
    TextStyle style;
    int pixels;
    QFont::Weight weight;
    Family family = Family::System;
    bool monospacedDigits = false;
    qreal letterSpacing = 0;
};

constexpr std::array textRows = {
    TextRow{TextStyle::Title, 26, QFont::DemiBold, Family::System, false, -0.26},
    TextRow{TextStyle::Heading, 22, QFont::DemiBold},
    TextRow{TextStyle::SidebarTitle, 15, QFont::Bold},
    TextRow{TextStyle::Headline, 16, QFont::Medium},
    TextRow{TextStyle::BarTitle, 15, QFont::DemiBold},
    TextRow{TextStyle::LargeButton, 14, QFont::DemiBold},
    TextRow{TextStyle::Subheadline, 14, QFont::DemiBold},
    TextRow{TextStyle::Emphasis, 14, QFont::Medium},
    TextRow{TextStyle::Time, 14, QFont::Medium, Family::System, true},
    TextRow{TextStyle::Strong, 13, QFont::DemiBold},
    TextRow{TextStyle::Label, 13, QFont::Medium},
    TextRow{TextStyle::Body, 13, QFont::Normal},
    TextRow{TextStyle::BodyDigits, 13, QFont::Normal, Family::System, true},
    TextRow{TextStyle::LabelDigits, 13, QFont::Medium, Family::System, true},
    TextRow{TextStyle::CalloutStrong, 12, QFont::DemiBold},
    TextRow{TextStyle::CalloutLabel, 12, QFont::Medium},
    TextRow{TextStyle::Callout, 12, QFont::Normal},
    TextRow{TextStyle::SectionHeader, 11, QFont::DemiBold},
    TextRow{TextStyle::TrackedCaption, 11, QFont::DemiBold, Family::System, false, 0.5},
    TextRow{TextStyle::CaptionLabel, 11, QFont::Medium},
    TextRow{TextStyle::Caption, 11, QFont::Normal},
    TextRow{TextStyle::CaptionDigits, 11, QFont::Normal, Family::System, true},
    TextRow{TextStyle::Overline, 10, QFont::DemiBold, Family::System, false, 0.5},
    TextRow{TextStyle::MonospacedBody, 13, QFont::Normal, Family::Monospaced},
    TextRow{TextStyle::MonospacedCallout, 12, QFont::Normal, Family::Monospaced},
    TextRow{TextStyle::MonospacedCaption, 11, QFont::Normal, Family::Monospaced},
};

/// Whether each row stands at the place that its first field's number names.
template <typename Rows, typename Field> consteval bool inOrder(const Rows &rows, Field field)
{
    for (std::size_t index = 0; index < rows.size(); ++index) {
        if (static_cast<std::size_t>(rows[index].*field) != index)
            return false;
    }
    return true;
}
static_assert(inOrder(colorRows, &ColorRow::color));
static_assert(inOrder(textRows, &TextRow::style));

/// The desktop's font, or Inter where it only names a generic one.
QStringList systemFamilies()
{
    static const QStringList generic = {u"sans"_s, u"sans serif"_s, u"sans-serif"_s};
    const QString family = QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
    if (!family.isEmpty() && !generic.contains(family.toLower()))
        return {family};
    return {u"Inter"_s, u"Sans Serif"_s};
}

const TextRow &rowOf(TextStyle style)
{
    return textRows[static_cast<std::size_t>(style)];
}

/// What takes the place of a colour that is meant to be unobtrusive.
Color withHighContrast(Color color)
{
    switch (color) {
    case Color::Secondary:
    case Color::Tertiary:
    case Color::FocusRing:
        return Color::Text;
    case Color::CardBorder:
    case Color::Separator:
    case Color::ButtonBorder:
    case Color::SwitchOff:
        return Color::Secondary;
    case Color::OnAccentSecondary:
        return Color::OnAccent;
    case Color::OnVideoSecondary:
    case Color::OnVideoFaint:
        return Color::OnVideo;
    default:
        return color;
    }
}

Theme *currentTheme = nullptr;
constexpr const char *textStyleProperty = "textStyle";

} // namespace

Theme::Theme(QObject *parent)
    : QObject(parent),
      m_paletteScheme(QApplication::palette().color(QPalette::Window).lightnessF() < 0.5
                          ? Scheme::Dark
                          : Scheme::Light),
      m_scheme(m_paletteScheme)
{
    Q_ASSERT(!currentTheme);
    currentTheme = this;
    QApplication::setStyle(new Style);
    QApplication::setFont(font(TextStyle::Body));
    setApplicationPalette();
}

Theme::~Theme()
{
    currentTheme = nullptr;
}

Theme &Theme::current()
{
    Q_ASSERT(currentTheme);
    return *currentTheme;
}

void Theme::follow(const DesktopAppearance &desktop)
{
    const auto take = [this, &desktop] {
        m_desktopScheme = desktop.prefersDark().has_value()
            ? std::optional(*desktop.prefersDark() ? Scheme::Dark : Scheme::Light)
            : std::nullopt;
        m_desktopReducedMotion = desktop.reducedMotion();
        if (std::exchange(m_highContrast, desktop.highContrast()) != m_highContrast)
            recolor();
        m_desktopTextScale = desktop.textScale();
        update();
    };
    connect(&desktop, &DesktopAppearance::changed, this, take);
    take();
}

void Theme::forceScheme(std::optional<Scheme> scheme)
{
    m_forcedScheme = scheme;
    update();
}

void Theme::forceReducedMotion(std::optional<bool> reduced)
{
    m_forcedReducedMotion = reduced;
}

void Theme::forceTextScale(std::optional<double> scale)
{
    m_forcedTextScale = scale;
    update();
}

bool Theme::reducedMotion() const
{
    return m_forcedReducedMotion.value_or(m_desktopReducedMotion);
}

void Theme::update()
{
    setTextScale(m_forcedTextScale.value_or(m_desktopTextScale));
    const Scheme scheme = m_forcedScheme.value_or(m_desktopScheme.value_or(m_paletteScheme));
    if (scheme == m_scheme)
        return;
    m_scheme = scheme;
    recolor();
}

void Theme::recolor()
{
    setApplicationPalette();
    Q_EMIT changed();
}

void Theme::setTextScale(double scale)
{
    if (std::exchange(m_textScale, scale) == scale)
        return;
    for (QWidget *widget : QApplication::allWidgets()) {
        const QVariant style = widget->property(textStyleProperty);
        if (style.isValid())
            widget->setFont(font(static_cast<TextStyle>(style.toInt())));
    }
    // Last, as the other widgets measure their texts when their own font changes.
    QApplication::setFont(font(TextStyle::Body));
}

void Theme::setTextStyle(QWidget &widget, TextStyle style)
{
    widget.setProperty(textStyleProperty, static_cast<int>(style));
    widget.setFont(font(style));
}

int Theme::scaled(int pixels)
{
    return static_cast<int>(std::lround(pixels * current().m_textScale));
}

QColor Theme::color(Color color) const
{
    return Theme::color(m_highContrast ? withHighContrast(color) : color, m_scheme);
}

QColor Theme::color(Color color, Scheme scheme)
{
    const ColorRow &row = colorRows[static_cast<std::size_t>(color)];
    return QColor::fromRgba(scheme == Scheme::Dark ? row.dark : row.light);
}

QFont Theme::font(TextStyle style)
{
    const TextRow &row = rowOf(style);
    QFont font = row.family == Family::Monospaced
        ? QFontDatabase::systemFont(QFontDatabase::FixedFont)
        : QFont();
    if (row.family == Family::System)
        font.setFamilies(systemFamilies());
    font.setPixelSize(scaled(row.pixels));
    font.setWeight(row.weight);
    if (row.letterSpacing != 0)
        font.setLetterSpacing(QFont::AbsoluteSpacing, row.letterSpacing * current().m_textScale);
    return font;
}

bool Theme::hasMonospacedDigits(TextStyle style)
{
    return rowOf(style).monospacedDigits;
}

void Theme::setApplicationPalette() const
{
    struct Role {
        QPalette::ColorRole role;
        Color color;
    };
    static constexpr std::array roles = {
        Role{QPalette::Window, Color::Background},
        Role{QPalette::WindowText, Color::Text},
        Role{QPalette::Base, Color::Card},
        Role{QPalette::AlternateBase, Color::Bar},
        Role{QPalette::ToolTipBase, Color::Card},
        Role{QPalette::ToolTipText, Color::Text},
        Role{QPalette::Text, Color::Text},
        Role{QPalette::PlaceholderText, Color::Tertiary},
        Role{QPalette::Button, Color::Button},
        Role{QPalette::ButtonText, Color::Text},
        Role{QPalette::BrightText, Color::OnAccent},
        Role{QPalette::Highlight, Color::AccentFill},
        Role{QPalette::HighlightedText, Color::OnAccent},
        Role{QPalette::Link, Color::Accent},
        Role{QPalette::LinkVisited, Color::Accent},
    };
    QPalette palette(color(Color::Button), color(Color::Background));
    for (const Role &row : roles)
        palette.setColor(QPalette::All, row.role, color(row.color));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, color(Color::Tertiary));
    QApplication::setPalette(palette);
}

} // namespace clipwren
