#include "ui/downloader/LogSheet.h"

#include "ui/downloader/LogViewer.h"

#include <QVBoxLayout>

#include <utility>

namespace clipwren {

LogSheet::LogSheet(const QString &title, const QString &log, std::function<void()> onDismiss,
                   QWidget *parent)
    : QDialog(parent), m_onDismiss(std::move(onDismiss))
{
    setWindowTitle(title);
    setWindowModality(Qt::WindowModal);
    auto *viewer = new LogViewer(title, log, m_onDismiss);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(viewer);
    resize(viewer->sizeHint());
    viewer->setFocus();
}

} // namespace clipwren
