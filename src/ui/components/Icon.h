#pragma once

#include "ui/components/Theme.h"

#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QRectF>
#include <QWidget>

#include <array>
#include <stdexcept>
#include <string_view>

class QPainter;

namespace clipwren {

/// A symbol of the set in assets/icons, drawn in any colour and sharp at any pixel ratio.
///
/// Named as its file: `Icon(u"arrow.clockwise")`. A name that the set does not have fails to
/// compile. Drawing happens on the user-interface thread.
class Icon {
public:
    static constexpr std::array names = {
        u"arrow.clockwise",
        u"arrow.down.circle",
        u"arrow.down.circle.fill",
        u"arrow.down.right.and.arrow.up.left",
        u"arrow.right.circle.fill",
        u"arrow.up.left.and.arrow.down.right",
        u"arrow.uturn.backward.circle",
        u"checkmark",
        u"checkmark.circle.fill",
        u"chevron.up.chevron.down",
        u"circle.dashed",
        u"clock",
        u"clock.arrow.circlepath",
        u"doc.on.doc",
        u"ellipsis.circle",
        u"exclamationmark.triangle.fill",
        u"film.stack.fill",
        u"folder",
        u"info.circle",
        u"link",
        u"magnifyingglass",
        u"music.note",
        u"pause.fill",
        u"person.circle",
        u"photo",
        u"play.fill",
        u"play.rectangle",
        u"play.rectangle.fill",
        u"plus.circle.fill",
        u"questionmark.video",
        u"scissors",
        u"sidebar.left",
        u"sparkles",
        u"speaker.slash.fill",
        u"speaker.wave.2.fill",
        u"terminal",
        u"textformat",
        u"trash",
        u"tray",
        u"video.fill",
        u"wrench.and.screwdriver",
        u"xmark",
        u"xmark.circle.fill",
    };

    /// No symbol: draws nothing.
    constexpr Icon() = default;
    // Implicit, so that a symbol is passed to a control as plain u"folder".
    template <std::size_t Length>
    consteval Icon(const char16_t (&name)[Length]) : m_index(indexOf(name))
    {
    }
    /// The symbol at a place of `names`.
    static constexpr Icon at(std::size_t index) { return Icon(static_cast<int>(index)); }

    bool isNull() const { return m_index < 0; }
    QString name() const;

    /// Draws the symbol into `rect` (logical pixels), as large as its shorter side, centred.
    /// Stroke widths grow with the size.
    void paint(QPainter &painter, const QRectF &rect, const QColor &color) const;
    /// A square picture of `size` logical pixels for a screen of the given ratio.
    QPixmap pixmap(int size, const QColor &color, qreal devicePixelRatio) const;
    struct MenuColors {
        QColor normal;
        QColor selected; ///< of the item under the pointer
        QColor disabled;
    };
    /// For menus and lists, which draw icons themselves.
    QIcon toQIcon(const MenuColors &colors) const;

    bool operator==(const Icon &) const = default;

private:
    constexpr explicit Icon(int index) : m_index(index) { }

    static consteval int indexOf(std::u16string_view name)
    {
        for (std::size_t index = 0; index < names.size(); ++index) {
            if (name == names[index])
                return static_cast<int>(index);
        }
        throw std::invalid_argument("no such symbol");
    }

    int m_index = -1;
};

/// A symbol as a picture beside a text. Says nothing to assistive tools: the text does.
class IconView : public QWidget {
    Q_OBJECT
public:
    /// `size` in logical pixels, at a text scale of 1.
    IconView(Icon icon, int size, Theme::Color color, QWidget *parent = nullptr);

    void setIcon(Icon icon);
    void setColor(Theme::Color color);

    QSize sizeHint() const override { return {Theme::scaled(m_size), Theme::scaled(m_size)}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Icon m_icon;
    int m_size;
    Theme::Color m_color;
};

} // namespace clipwren
