#pragma once

#include "ui/components/Icon.h"

#include <QWidget>

namespace clipwren {

class Label;

/// The bar below a list: a button that clears it, and how many items it has. Hidden without any.
class ListFooter : public QWidget {
    Q_OBJECT

public:
    ListFooter(Icon icon, const QString &clearText, QWidget *parent = nullptr);

    void setCount(qsizetype count);

Q_SIGNALS:
    void clearRequested();

private:
    Label *m_count;
};

} // namespace clipwren
