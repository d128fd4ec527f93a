#include "ui/components/Theme.h"

#include "FakePortal.h"
#include "ui/components/DesktopAppearance.h"
#include "ui/components/Label.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QSignalSpy>
#include <QTest>

#include <cmath>
#include <gtest/gtest.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;
using Color = Theme::Color;
using Scheme = Theme::Scheme;

const auto appearance = u"org.freedesktop.appearance"_s;
const auto colorScheme = u"color-scheme"_s;

QColor over(const QColor &front, const QColor &back)
{
    QImage pixel(1, 1, QImage::Format_RGB32);
    pixel.fill(back);
    QPainter(&pixel).fillRect(pixel.rect(), front);
    return pixel.pixelColor(0, 0);
}

double luminance(const QColor &color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF())
        + 0.0722 * linear(color.blueF());
}

double contrast(const QColor &first, const QColor &second)
{
    const auto [dark, light] = std::minmax({luminance(first), luminance(second)});
    return (light + 0.05) / (dark + 0.05);
}

const QList<QList<Color>> panes = {
    {Color::Background}, {Color::Sidebar}, {Color::Bar}, {Color::Card}};

// Texts, and what they lie on, from the bottom up.
const QList<std::pair<Color, QList<QList<Color>>>> contrastCases = {
    {Color::Text, panes},
    {Color::Secondary, panes},
    {Color::Tertiary, panes},
    {Color::Accent, panes},
    {Color::Red, panes},
    {Color::OrangeText, panes},
    {Color::Text,
     {{Color::Background, Color::OrangeFill},
      {Color::Background, Color::Quaternary},
      {Color::Sidebar, Color::Quaternary},
      {Color::Segment},
      {Color::Button},
      {Color::Button, Color::Hover},
      {Color::Button, Color::Pressed}}},
    {Color::Secondary,
     {{Color::Background, Color::OrangeFill},
      {Color::Sidebar, Color::Quaternary},
      {Color::Background, Color::Quaternary}}},
    {Color::Red, {{Color::Button}}},
    {Color::OnAccent, {{Color::AccentFill}, {Color::RedFill}, {Color::AccentFill, Color::Pressed}}},
    {Color::OnAccentSecondary, {{Color::AccentFill}}},
    {Color::GreenText, {{Color::Background, Color::GreenFill}}},
    {Color::BlueText, {{Color::Background, Color::BlueFill}}},
    {Color::OrangeText, {{Color::Background, Color::OrangeFill}}},
    {Color::OnVideo, {{Color::Video}}},
};

TEST(ThemeTest, everyTextCanBeReadOnWhatItLiesOn)
{
    for (const Scheme scheme : {Scheme::Light, Scheme::Dark}) {
        for (const auto &[textColor, grounds] : contrastCases) {
            for (const QList<Color> &layers : grounds) {
                QColor ground(Qt::black);
                for (const Color layer : layers)
                    ground = over(Theme::color(layer, scheme), ground);
                const QColor text = over(Theme::color(textColor, scheme), ground);
                EXPECT_GE(contrast(text, ground), 4.5)
                    << "scheme " << int(scheme) << ", text " << int(textColor) << " on layer "
                    << int(layers.last()) << " over " << int(layers.first());
            }
        }
    }
}

TEST(ThemeTest, followsTheDesktopWhileTheWindowIsOpen)
{
    test::FakePortal portal({{appearance, {{colorScheme, 1U}}}});
    const DesktopAppearance desktop(portal.busAddress());
    EXPECT_FALSE(desktop.prefersDark());
    Theme::current().follow(desktop);
    const auto becomes = [](Scheme scheme) {
        const QColor background = Theme::color(Color::Background, scheme);
        return QTest::qWaitFor(
            [&] { return QApplication::palette().color(QPalette::Window) == background; });
    };
    EXPECT_TRUE(becomes(Scheme::Dark));
    // The last is no preference: back to what the palette said at the start.
    for (const uint setting : {2U, 1U, 0U}) {
        portal.change(appearance, colorScheme, setting);
        EXPECT_TRUE(becomes(setting == 1 ? Scheme::Dark : Scheme::Light));
    }
}

TEST(ThemeTest, raisesTheContrastWhereTheDesktopAsksForIt)
{
    const auto accessibility = u"org.gnome.desktop.a11y.interface"_s;
    test::FakePortal portal({{accessibility, {{u"high-contrast"_s, true}}}});
    const DesktopAppearance desktop(portal.busAddress());
    Theme &theme = Theme::current();
    theme.follow(desktop);
    const auto becomes = [&](bool high) {
        return QTest::qWaitFor([&] {
            const bool isHigh = theme.color(Color::Tertiary) == theme.color(Color::Text);
            return isHigh == high
                && QApplication::palette().color(QPalette::PlaceholderText)
                == theme.color(Color::Tertiary);
        });
    };
    EXPECT_TRUE(becomes(true));
    for (const Color line : {Color::CardBorder, Color::Separator, Color::ButtonBorder})
        EXPECT_GE(contrast(theme.color(line), theme.color(Color::Background)), 4.5);
    portal.change(accessibility, u"high-contrast"_s, false);
    EXPECT_TRUE(becomes(false));
    portal.change(appearance, u"contrast"_s, 1U);
    EXPECT_TRUE(becomes(true));
    portal.change(appearance, u"contrast"_s, 0U);
    EXPECT_TRUE(becomes(false));
}

TEST(ThemeTest, scalesTextsAsTheDesktopDoes)
{
    const auto gnome = u"org.gnome.desktop.interface"_s;
    const auto textScale = u"text-scaling-factor"_s;
    test::FakePortal portal({{gnome, {{textScale, 1.5}}}});
    const DesktopAppearance desktop(portal.busAddress());
    const Label label(Theme::TextStyle::Body);
    Theme::current().follow(desktop);
    const auto becomes = [&](int pixels) {
        return QTest::qWaitFor([&] {
            return label.font().pixelSize() == pixels && QApplication::font().pixelSize() == pixels;
        });
    };
    EXPECT_TRUE(becomes(20));
    const std::pair<QVariant, int> cases[] = {{2.0, 26},    {3.0, 26},     {0.1, 10},
                                              {u"x"_s, 13}, {qQNaN(), 13}, {1.0, 13}};
    for (const auto &[scale, pixels] : cases) {
        portal.change(gnome, textScale, scale);
        EXPECT_TRUE(becomes(pixels)) << pixels;
    }
}

TEST(DesktopAppearanceTest, motionIsReducedBySettingOrByAnimationsTurnedOff)
{
    const auto gnome = u"org.gnome.desktop.interface"_s;
    const auto animations = u"enable-animations"_s;
    const auto reducedMotion = u"reduced-motion"_s;
    const std::pair<test::PortalSettings, bool> cases[] = {
        {{{gnome, {{animations, true}}}}, false},
        {{{gnome, {{animations, false}}}}, true},
        {{{appearance, {{reducedMotion, 1U}}}}, true},
        {{{appearance, {{reducedMotion, 0U}}}, {gnome, {{animations, false}}}}, false},
    };
    for (const auto &[settings, reduced] : cases) {
        const test::FakePortal portal(settings);
        const DesktopAppearance desktop(portal.busAddress());
        EXPECT_TRUE(QSignalSpy(&desktop, &DesktopAppearance::changed).wait());
        EXPECT_EQ(desktop.reducedMotion(), reduced);
    }
}

} // namespace
} // namespace clipwren
