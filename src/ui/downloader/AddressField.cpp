#include "ui/downloader/AddressField.h"

#include "ui/components/Animation.h"
#include "ui/components/Button.h"
#include "ui/components/Card.h"
#include "ui/components/FlowRow.h"
#include "ui/components/Icon.h"
#include "ui/components/Label.h"
#include "workflow/download/DownloaderView.h"

#include <QLineEdit>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace clipwren {

using namespace Qt::StringLiterals;

namespace {

constexpr double failureSpring = 0.2;
constexpr int failureGap = 10;

} // namespace

AddressField::AddressField(DownloaderView &view, QWidget *parent) : QWidget(parent), m_view(view)
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(makeBox());
    m_failure = makeFailure();
    auto *content = new QWidget;
    auto *contentColumn = new QVBoxLayout(content);
    contentColumn->setContentsMargins(0, 0, 0, 0);
    contentColumn->addWidget(m_failure);
    m_failure->hide();
    m_failureArea = new AnimatedHeight(content);
    column->addWidget(m_failureArea);
    setFocusProxy(m_box->lineEdit());
}

FieldBox *AddressField::makeBox()
{
    m_box = new FieldBox(u"link", tr("Video address"));
    QLineEdit *field = m_box->lineEdit();
    field->setPlaceholderText(u"https://www.youtube.com/watch?v=…"_s);
    field->setInputMethodHints(Qt::ImhUrlCharactersOnly);
    // The window looks up a dropped link; the field would insert it as text.
    field->setAcceptDrops(false);
    // Not only what is typed: assistive tools set the text.
    connect(field, &QLineEdit::textChanged, &m_view, &DownloaderView::setUrlText);
    connect(field, &QLineEdit::returnPressed, &m_view, [this] { m_view.fetchInfo(false); });

    m_clear = Button::iconOnly(u"xmark.circle.fill", tr("Clear"));
    m_clear->setSize(Button::Size::Small);
    m_clear->setTint(Theme::Color::Tertiary);
    connect(m_clear, &Button::clicked, &m_view, &DownloaderView::resetAll);
    m_box->addTrailing(m_clear);

    m_paste = new Button(Button::Style::Borderless, tr("Paste"));
    // Of an even height, as the box is, or it would stand a pixel too high.
    m_paste->setSize(Button::Size::Small);
    m_paste->setTextStyle(Theme::TextStyle::Label);
    m_paste->setToolTip(tr("Paste an address and look it up (Ctrl+Shift+V)"));
    connect(m_paste, &Button::clicked, &m_view, &DownloaderView::paste);
    m_box->addTrailing(m_paste);
    return m_box;
}

QWidget *AddressField::makeFailure()
{
    auto *failure = new QWidget;
    auto *reason = new QHBoxLayout;
    reason->setSpacing(10);
    reason->addWidget(new IconView(u"exclamationmark.triangle.fill", 16, Theme::Color::OrangeIcon));
    m_failureText = new Label(Label::Mode::Wrapped, Theme::TextStyle::Caption);
    reason->addWidget(m_failureText, 1);
    auto *row = new FlowRow(10, failure);
    row->setContentsMargins(0, failureGap, 0, 0);
    row->addLayout(reason);

    auto *tryAgain = new Button(Button::Style::Prominent, tr("Try Again"), u"arrow.clockwise");
    tryAgain->setSize(Button::Size::Small);
    connect(tryAgain, &Button::clicked, &m_view, [this] { m_view.fetchInfo(true); });
    row->addWidget(tryAgain);

    m_viewLogs = new Button(Button::Style::Bordered, tr("View Logs"), u"terminal");
    m_viewLogs->setSize(Button::Size::Small);
    connect(m_viewLogs, &Button::clicked, &m_view, [this] { m_view.setShowLogs(true); });
    row->addWidget(m_viewLogs);
    return failure;
}

bool AddressField::isEdited() const
{
    return m_box->lineEdit()->hasFocus();
}

void AddressField::render()
{
    const Phase phase = m_view.phase();
    QLineEdit *field = m_box->lineEdit();
    // Setting the same text again would move the cursor.
    if (field->text() != m_view.urlText()) {
        const QSignalBlocker blocker(field);
        field->setText(m_view.urlText());
    }
    field->setEnabled(!isBusy(phase));
    m_paste->setEnabled(!isBusy(phase));
    const bool canClear =
        !m_view.urlText().isEmpty() && phase != Phase::downloading && phase != Phase::processing;
    if (!canClear && m_clear->hasFocus())
        field->setFocus();
    m_clear->setVisible(canClear);
    renderFailure();
}

void AddressField::renderFailure()
{
    const std::optional<QString> failure = m_view.fetchError();
    const bool appearsOrGoes = failure.has_value() == m_failure->isHidden();
    const auto apply = [&] {
        m_failure->setVisible(failure.has_value());
        m_viewLogs->setVisible(!m_view.fetchLog().isEmpty());
        if (failure)
            m_failureText->setText(m_view.withOutdatedHint(*failure));
    };
    if (appearsOrGoes)
        m_failureArea->change(failureSpring, apply);
    else
        apply();
}

} // namespace clipwren
