#pragma once

#include <QColor>
#include <QFont>
#include <QObject>

#include <cstdint>
#include <optional>

class QWidget;

namespace clipwren {

class DesktopAppearance;

/// The colours and fonts of the window; nothing else names a colour or a font size.
///
/// One lives as long as the application object and is found with `current()`. A change of scheme
/// sets the application's palette, so every widget repaints by itself; views that keep colours
/// in something else than `paintEvent` listen to `changed()`. User-interface thread only.
class Theme : public QObject {
    Q_OBJECT
public:
    enum class Scheme : std::uint8_t { Light, Dark };

    enum class Color : std::uint8_t {
        Background, ///< of the detail pane
        Sidebar,
        Bar, ///< top bar and bottom bars
        Card, ///< cards, fields, information box
        CardBorder,
        Quaternary, ///< faint fills: icon tiles, slider track, segmented control
        Separator,
        Text,
        Secondary,
        Tertiary,
        Accent, ///< links, icons, slider
        AccentFill, ///< prominent buttons, selected row, switches
        OnAccent, ///< text and icons on AccentFill
        OnAccentSecondary, ///< the second line of a selected row
        OnAccentFaint, ///< icon tile of a selected row
        Segment, ///< the chosen segment
        OrangeIcon,
        OrangeText,
        OrangeFill,
        Green,
        GreenText, ///< on GreenFill
        GreenFill,
        Blue,
        BlueText, ///< on BlueFill
        BlueFill,
        Red, ///< destructive
        RedFill, ///< destructive prominent buttons; text on it OnAccent
        Button, ///< bordered buttons
        ButtonBorder,
        SwitchOff, ///< track of a switch that is off
        Knob, ///< of switches and sliders
        Shadow,
        Hover, ///< laid over a control under the pointer
        Pressed, ///< laid over a pressed control
        FocusRing,
        Video, ///< behind moving pictures, dark in both schemes
        OnVideo,
        OnVideoSecondary, ///< messages in the place of a video
        OnVideoFaint, ///< tracks and outlines over a video
        VideoBar, ///< behind the controls that float over a video
    };

    enum class TextStyle : std::uint8_t {
        // In pixels at a text scale of 1.
        Title, ///< 26 semibold, letters a little closer
        Heading, ///< 22 semibold
        SidebarTitle, ///< 15 bold
        Headline, ///< 16 medium
        BarTitle, ///< 15 semibold
        LargeButton, ///< 14 semibold
        Subheadline, ///< 14 semibold
        Emphasis, ///< 14 medium
        Time, ///< 14 medium, monospaced digits
        Strong, ///< 13 semibold
        Label, ///< 13 medium
        Body, ///< 13
        BodyDigits, ///< 13, monospaced digits
        LabelDigits, ///< 13 medium, monospaced digits
        CalloutStrong, ///< 12 semibold
        CalloutLabel, ///< 12 medium
        Callout, ///< 12
        SectionHeader, ///< 11 semibold
        TrackedCaption, ///< 11 semibold, letters 0.5 apart
        CaptionLabel, ///< 11 medium
        Caption, ///< 11
        CaptionDigits, ///< 11, monospaced digits
        Overline, ///< 10 semibold, letters 0.5 apart
        MonospacedBody, ///< 13
        MonospacedCallout, ///< 12
        MonospacedCaption, ///< 11
    };

    /// Starts with the scheme of the palette that the desktop gave the application.
    explicit Theme(QObject *parent = nullptr);
    ~Theme() override;
    Theme(const Theme &) = delete;
    Theme &operator=(const Theme &) = delete;

    /// The theme of this application. One must live.
    static Theme &current();

    /// Takes scheme, contrast, reduced motion and the size of texts from the desktop from now on,
    /// as it tells them.
    void follow(const DesktopAppearance &desktop);
    /// Keeps a scheme whatever the desktop says; none follows the desktop again.
    void forceScheme(std::optional<Scheme> scheme);
    /// As `forceScheme`, for animations.
    void forceReducedMotion(std::optional<bool> reduced);
    /// As `forceScheme`, for the size of texts.
    void forceTextScale(std::optional<double> scale);

    Scheme scheme() const { return m_scheme; }
    bool reducedMotion() const;

    QColor color(Color color) const;
    static QColor color(Color color, Scheme scheme);
    /// At the text scale, so only for what paints or measures now. A widget keeps its font by
    /// `setTextStyle`.
    static QFont font(TextStyle style);
    /// Gives the widget that font, now and when the text scale changes.
    static void setTextStyle(QWidget &widget, TextStyle style);
    /// A length that has to grow with the texts, in pixels.
    static int scaled(int pixels);
    /// True for styles whose digits all take the same width. Qt cannot ask a font for them:
    /// `DigitText` lays them out.
    static bool hasMonospacedDigits(TextStyle style);

Q_SIGNALS:
    void changed();

private:
    void update();
    void recolor();
    void setTextScale(double scale);
    void setApplicationPalette() const;

    Scheme m_paletteScheme;
    Scheme m_scheme;
    bool m_highContrast = false;
    std::optional<Scheme> m_desktopScheme;
    std::optional<Scheme> m_forcedScheme;
    bool m_desktopReducedMotion = false;
    std::optional<bool> m_forcedReducedMotion;
    double m_textScale = 1;
    double m_desktopTextScale = 1;
    std::optional<double> m_forcedTextScale;
};

} // namespace clipwren
