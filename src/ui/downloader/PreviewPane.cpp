#include "ui/downloader/PreviewPane.h"

#include "ui/components/IconView.h"
#include "ui/components/Painting.h"
#include "ui/components/Spinner.h"
#include "ui/components/WrappedLabel.h"
#include "workflow/preview/PreviewPlayerController.h"

#include <QPainter>
#include <QStackedLayout>
#include <QVBoxLayout>

#include <utility>

namespace clipwren {

namespace {

constexpr int paneHeight = 220;
constexpr qreal radius = 12;

/// Widgets below each other in the middle of a page.
QWidget *centredPage(std::initializer_list<QWidget *> widgets)
{
    auto *page = new QWidget;
    auto *column = new QVBoxLayout(page);
    column->setContentsMargins(24, 12, 24, 12);
    column->setSpacing(10);
    column->addStretch(1);
    for (QWidget *widget : widgets)
        column->addWidget(widget, 0, Qt::AlignHCenter);
    column->addStretch(1);
    return page;
}

/// Puts a view and what is in it behind a control, in the order in which it was made.
void putIntoTabOrder(QWidget *after, QWidget *view)
{
    for (QWidget *each : QList<QWidget *>{view} + view->findChildren<QWidget *>()) {
        if (!(each->focusPolicy() & Qt::TabFocus))
            continue;
        QWidget::setTabOrder(after, each);
        after = each;
    }
}

} // namespace

PreviewPane::PreviewPane(PreviewPlayerController &preview, PreviewViewFactory makeView,
                         QWidget *parent)
    : QWidget(parent), m_preview(preview), m_makeView(std::move(makeView)),
      m_pages(new QStackedLayout(this)),
      m_nothing(centredPage({new IconView(u"play.rectangle", 28, Theme::Color::OnVideoSecondary)})),
      m_loading(makeLoading()),
      m_failureText(new WrappedLabel(Theme::TextStyle::Caption, Theme::Color::OnVideoSecondary)),
      m_failure(makeFailure())
{
    setFixedHeight(paneHeight);
    m_pages->setContentsMargins(0, 0, 0, 0);
    for (QWidget *page : {m_nothing, m_loading, m_failure})
        m_pages->addWidget(page);
}

QWidget *PreviewPane::makeLoading()
{
    return centredPage({new Spinner,
                        new Label(Theme::TextStyle::Caption, Theme::Color::OnVideoSecondary,
                                  tr("Loading preview…"))});
}

QWidget *PreviewPane::makeFailure()
{
    m_failureText->setAlignment(Qt::AlignHCenter);
    return centredPage(
        {new IconView(u"exclamationmark.triangle.fill", 22, Theme::Color::OrangeIcon),
         m_failureText});
}

void PreviewPane::render()
{
    if (m_preview.player()) {
        showPlayer();
        return;
    }
    dropPlayer();
    if (m_preview.isLoading()) {
        m_pages->setCurrentWidget(m_loading);
    } else if (m_preview.loadError()) {
        m_failureText->setText(*m_preview.loadError());
        m_pages->setCurrentWidget(m_failure);
    } else {
        m_pages->setCurrentWidget(m_nothing);
    }
}

void PreviewPane::showPlayer()
{
    if (!m_player) {
        m_player = m_makeView(m_preview, this);
        m_pages->addWidget(m_player);
        QWidget *before = previousInFocusChain();
        while (before != this && !(before->focusPolicy() & Qt::TabFocus))
            before = before->previousInFocusChain();
        putIntoTabOrder(before, m_player);
    }
    m_pages->setCurrentWidget(m_player);
}

void PreviewPane::dropPlayer()
{
    if (!m_player)
        return;
    m_pages->removeWidget(m_player);
    m_player->hide();
    std::exchange(m_player, nullptr)->deleteLater();
}

void PreviewPane::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    QPainter painter(this);
    paintBox(painter, rect(), radius, theme.color(Theme::Color::Video),
             theme.color(Theme::Color::CardBorder));
}

} // namespace clipwren
