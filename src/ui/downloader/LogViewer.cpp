#include "ui/downloader/LogViewer.h"

#include "ui/components/Button.h"
#include "ui/components/Card.h"
#include "ui/components/Divider.h"
#include "ui/components/ElidedLabel.h"
#include "ui/components/LogText.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QShortcut>

namespace clipwren {

LogViewer::LogViewer(const QString &title, const QString &log, std::function<void()> onDismiss,
                     QWidget *parent)
    : QWidget(parent), m_log(log), m_onDismiss(std::move(onDismiss)), m_text(new LogText)
{
    setMinimumSize(640, 380);
    setAutoFillBackground(true);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(makeHeader(title));
    column->addWidget(new Divider);
    column->addWidget(m_text, 1);
    m_text->setAccessibleName(title);
    m_text->setLog(log.isEmpty() ? tr("(no output captured)") : log);

    auto *escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    escape->setContext(Qt::WidgetWithChildrenShortcut);
    connect(escape, &QShortcut::activated, this, [this] { m_onDismiss(); });
    setFocusProxy(m_text);
}

QWidget *LogViewer::makeHeader(const QString &title)
{
    auto *header = new Card(Theme::Color::Bar, 0);
    auto *copyButton = new Button(Button::Style::Bordered, tr("Copy"), u"doc.on.doc");
    auto *doneButton = new Button(Button::Style::Bordered, tr("Done"));
    copyButton->setSize(Button::Size::Small);
    doneButton->setSize(Button::Size::Small);
    auto *row = new QHBoxLayout(header);
    row->setContentsMargins(16, 12, 16, 12);
    row->setSpacing(8);
    row->addWidget(new ElidedLabel(Theme::TextStyle::Subheadline, Theme::Color::Text, title), 1);
    row->addWidget(copyButton);
    row->addWidget(doneButton);
    connect(copyButton, &Button::clicked, this, &LogViewer::copy);
    connect(doneButton, &Button::clicked, this, [this] { m_onDismiss(); });
    return header;
}

void LogViewer::copy() const
{
    QGuiApplication::clipboard()->setText(m_log);
}

} // namespace clipwren
