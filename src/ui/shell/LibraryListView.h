#pragma once

#include <QListView>

namespace clipwren {

class LibraryListModel;
class ListLead;

/// A list of the library as the sidebar shows it, with what lies above its items scrolling along.
///
/// Clicks and arrow keys choose one item; the other button of the mouse, which asks for an item's
/// menu, chooses none.
class LibraryListView : public QListView {
    Q_OBJECT

public:
    /// `name` is the list's accessible name. Takes `lead` for the first row.
    LibraryListView(LibraryListModel &model, ListLead *lead, const QString &name,
                    QWidget *parent = nullptr);

    int leadHeight() const;
    /// The button above the items.
    QWidget &newDownload() const;
    /// Whether a row is to be drawn with a ring: the keyboard is at it, or its menu is open.
    bool hasRing(const QModelIndex &index) const;
    /// The ring that the row keeps while its menu is open.
    void setMenuRow(const QModelIndex &index);

Q_SIGNALS:
    /// For an item, at a place on the screen.
    void menuRequested(const QModelIndex &index, const QPoint &place);
    void returnPressed(const QModelIndex &index);
    void deletePressed(const QModelIndex &index);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                         const QEvent *event) const override;

private:
    void updateLead();
    /// Asks for an item's menu beside the item.
    void askForMenu(const QModelIndex &index);

    LibraryListModel &m_items;
    ListLead *m_lead;
    bool m_byKeyboard = false; // the last thing done here was a key's
    QPersistentModelIndex m_menuRow;
};

} // namespace clipwren
