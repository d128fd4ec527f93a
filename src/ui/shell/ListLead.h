#pragma once

#include <QWidget>

namespace clipwren {

class Button;
class Label;

/// What lies above the items of a list: "New Download", the section's header, and a line that
/// says so when the list is empty.
class ListLead : public QWidget {
    Q_OBJECT

public:
    ListLead(const QString &header, const QString &emptyText, QWidget *parent = nullptr);

    Button *newDownload() const { return m_newDownload; }
    void setEmpty(bool empty);

private:
    Button *m_newDownload;
    Label *m_empty;
};

} // namespace clipwren
