#include "ui/components/Theme.h"

#include "FakePortal.h"
#include "ui/components/DesktopAppearance.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QSignalSpy>
#include <QTest>

#include <cmath>
#include <gtest/gtest.h>

using namespace clipwren;
using namespace Qt::StringLiterals;
using Color = Theme::Color;
using Scheme = Theme::Scheme;

namespace {

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

struct ContrastCase {
    Color text;
    QList<QList<Color>> grounds; // each from the bottom up
};

const QList<QList<Color>> panes = {
    {Color::Background}, {Color::Sidebar}, {Color::Bar}, {Color::Card}};

const QList<ContrastCase> contrastCases = {
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

} // namespace

TEST(ThemeTest, everyTextCanBeReadOnWhatItLiesOn)
{
    for (const Scheme scheme : {Scheme::Light, Scheme::Dark}) {
        for (const ContrastCase &each : contrastCases) {
            for (const QList<Color> &layers : each.grounds) {
                QColor ground(Qt::black);
                for (const Color layer : layers)
                    ground = over(Theme::color(layer, scheme), ground);
                const QColor text = over(Theme::color(each.text, scheme), ground);
                EXPECT_GE(contrast(text, ground), 4.5)
                    << "scheme " << int(scheme) << ", text " << int(each.text) << " on layer "
                    << int(layers.last()) << " over " << int(layers.first());
            }
        }
    }
}

TEST(ThemeTest, followsTheDesktopWhileTheWindowIsOpen)
{
    test::FakePortal portal({{appearance, {{colorScheme, 1U}}}});
    Theme &theme = Theme::current();
    {
        const DesktopAppearance desktop(portal.busAddress());
        EXPECT_FALSE(desktop.prefersDark());
        theme.follow(desktop);
        EXPECT_TRUE(QTest::qWaitFor([&] { return theme.scheme() == Scheme::Dark; }));
        EXPECT_EQ(QApplication::palette().color(QPalette::Window),
                  Theme::color(Color::Background, Scheme::Dark));
        portal.change(appearance, colorScheme, 2U);
        EXPECT_TRUE(QTest::qWaitFor([&] { return theme.scheme() == Scheme::Light; }));
        portal.change(appearance, colorScheme, 1U);
        EXPECT_TRUE(QTest::qWaitFor([&] { return theme.scheme() == Scheme::Dark; }));
        // No preference: back to what the palette said at the start.
        portal.change(appearance, colorScheme, 0U);
        EXPECT_TRUE(QTest::qWaitFor([&] { return theme.scheme() == Scheme::Light; }));
    }
}

TEST(DesktopAppearanceTest, motionIsReducedBySettingOrByAnimationsTurnedOff)
{
    const auto gnome = u"org.gnome.desktop.interface"_s;
    const auto animations = u"enable-animations"_s;
    const auto reducedMotion = u"reduced-motion"_s;
    struct Case {
        test::PortalSettings settings;
        bool reduced;
    };
    const QList<Case> cases = {
        {{{gnome, {{animations, true}}}}, false},
        {{{gnome, {{animations, false}}}}, true},
        {{{appearance, {{reducedMotion, 1U}}}}, true},
        {{{appearance, {{reducedMotion, 0U}}}, {gnome, {{animations, false}}}}, false},
    };
    for (const Case &each : cases) {
        test::FakePortal portal(each.settings);
        const DesktopAppearance desktop(portal.busAddress());
        EXPECT_TRUE(QSignalSpy(&desktop, &DesktopAppearance::changed).wait());
        EXPECT_EQ(desktop.reducedMotion(), each.reduced);
    }
}
