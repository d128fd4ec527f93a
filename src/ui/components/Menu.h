#pragma once

#include <QMenu>
#include <QSet>

namespace clipwren {

/// A menu that is made for one showing and goes when it closes.
class Menu : public QMenu {
    Q_OBJECT
public:
    explicit Menu(QWidget *parent);

    /// An item in red: what it does cannot be taken back.
    QAction *addDestructiveAction(const QString &text);
    bool isDestructive(const QAction *action) const { return m_destructive.contains(action); }

protected:
    void initStyleOption(QStyleOptionMenuItem *option, const QAction *action) const override;

private:
    QSet<const QAction *> m_destructive;
};

} // namespace clipwren
