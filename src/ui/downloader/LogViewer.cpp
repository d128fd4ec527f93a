#include "ui/downloader/LogViewer.h"

#include "ui/components/Button.h"
#include "ui/components/Card.h"
#include "ui/components/Label.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include <utility>

namespace clipwren {
namespace {

QPlainTextEdit *makeText(const QString &text)
{
    auto *edit = new QPlainTextEdit;
    edit->setReadOnly(true);
    edit->setUndoRedoEnabled(false);
    edit->setFrameShape(QFrame::NoFrame);
    Theme::setTextStyle(*edit, Theme::TextStyle::MonospacedCaption);
    edit->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    edit->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    edit->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    edit->setTabChangesFocus(true);
    edit->document()->setDocumentMargin(14);
    edit->setPlainText(text);
    return edit;
}

} // namespace

LogViewer::LogViewer(const QString &title, const QString &log, std::function<void()> onDismiss,
                     QWidget *parent)
    : QDialog(parent), m_onDismiss(std::move(onDismiss))
{
    setWindowTitle(title);
    setWindowModality(Qt::WindowModal);
    setMinimumSize(640, 380);
    resize(760, 480);
    auto *text = makeText(log.isEmpty() ? tr("(no output captured)") : log);
    text->setAccessibleName(title);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(makeHeader(log));
    column->addWidget(new Divider);
    column->addWidget(text, 1);
    text->setFocus();
}

QWidget *LogViewer::makeHeader(const QString &log)
{
    auto *header = new Card(Theme::Color::Bar, 0);
    auto *copyButton = new Button(Button::Style::Bordered, tr("Copy"), u"doc.on.doc");
    auto *doneButton = new Button(Button::Style::Bordered, tr("Done"));
    copyButton->setSize(Button::Size::Small);
    doneButton->setSize(Button::Size::Small);
    auto *row = new QHBoxLayout(header);
    row->setContentsMargins(16, 12, 16, 12);
    row->setSpacing(8);
    row->addWidget(new Label(Label::Mode::Elided, Theme::TextStyle::Subheadline, Theme::Color::Text,
                             windowTitle()),
                   1);
    row->addWidget(copyButton);
    row->addWidget(doneButton);
    connect(copyButton, &Button::clicked, this,
            [log] { QGuiApplication::clipboard()->setText(log); });
    connect(doneButton, &Button::clicked, this, &LogViewer::reject);
    return header;
}

} // namespace clipwren
