#include "ui/shell/UnsavedBanner.h"

#include "core/library/DownloadStore.h"
#include "core/library/HistoryStore.h"
#include "ui/components/Banner.h"
#include "ui/components/Button.h"

#include <QVBoxLayout>

namespace clipwren {

UnsavedBanner::UnsavedBanner(DownloadStore &store, HistoryStore &history, QWidget *parent)
    : QWidget(parent), m_store(store), m_history(history), m_banner(new Banner)
{
    m_banner->setTitle(tr("The lists could not be saved"));
    auto *again = new Button(Button::Style::Bordered, tr("Try Again"));
    again->setSize(Button::Size::Small);
    connect(again, &Button::clicked, this, &UnsavedBanner::tryAgain);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(10, 8, 10, 8);
    column->setSpacing(8);
    column->addWidget(m_banner);
    column->addWidget(again);

    connect(&m_store, &DownloadStore::changed, this, &UnsavedBanner::render);
    connect(&m_history, &HistoryStore::changed, this, &UnsavedBanner::render);
    render();
}

void UnsavedBanner::tryAgain()
{
    m_store.saveAgain();
    m_history.saveAgain();
}

void UnsavedBanner::render()
{
    const auto error = m_store.saveError() ? m_store.saveError() : m_history.saveError();
    if (error) {
        m_banner->setMessage(tr("%1. What is new in them is lost when Clipwren is closed before "
                                "they can be saved.")
                                 .arg(*error));
    } else {
        Q_EMIT aboutToHide();
    }
    setVisible(error.has_value());
}

} // namespace clipwren
