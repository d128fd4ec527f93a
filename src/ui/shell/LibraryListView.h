#pragma once

#include "ui/components/Icon.h"

#include <QListView>
#include <QTimer>

#include <functional>

namespace clipwren {

class LibraryListModel;
class ListHeader;
class Menu;

/// A list of the library as the sidebar shows it, with its header scrolling along: the button
/// "New Download" and the section's title.
///
/// Clicks and arrow keys select one item; the right button of the mouse opens an item's menu and
/// selects none.
class LibraryListView : public QListView {
    Q_OBJECT

public:
    /// What a list says, and what its rows do.
    struct Policy {
        QString title; ///< of the section
        QString emptyText; ///< below the title while there is no item
        QString accessibleName;
        bool selectable = true;
        /// Makes the menu of an item.
        std::function<Menu *(const QModelIndex &index)> makeMenu;
    };

    /// The model must outlive the view.
    LibraryListView(LibraryListModel &model, const Policy &policy, QWidget *parent = nullptr);

    /// The height of the first row, and the button in it.
    int headerHeight() const;
    QSize minimumSizeHint() const override;
    QWidget &newDownload() const;
    /// Whether a row is drawn with a focus ring: the keyboard is at it, or its menu is open.
    bool hasRing(const QModelIndex &index) const;
    /// The rotation of the spinners. They turn while a row with one is on screen, unless the
    /// desktop asks for reduced motion.
    int spinnerDegrees() const { return m_spinnerDegrees; }
    bool isSpinnerTurning() const { return m_spinnerTimer.isActive(); }

    /// Makes an item's menu, which is not shown.
    Menu *makeMenu(const QModelIndex &index) const { return m_makeMenu(index); }
    /// Opens an item's menu, at a place on the screen.
    void openMenu(const QModelIndex &index, const QPoint &place);
    /// As the menu key does: in the middle of the item, which is scrolled into view.
    void openMenuByKey(const QModelIndex &index);

Q_SIGNALS:
    void newDownloadRequested();
    void returnPressed(const QModelIndex &index);
    void deletePressed(const QModelIndex &index);

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void startDrag(Qt::DropActions actions) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                         const QEvent *event) const override;

private:
    void updateHeader();
    QList<QModelIndex> spinnerRowsOnScreen() const;
    void startOrStopSpinner();
    void turnSpinner();

    LibraryListModel &m_items;
    std::function<Menu *(const QModelIndex &)> m_makeMenu;
    ListHeader *m_header;
    bool m_lastInputWasKeyboard = false;
    QPersistentModelIndex m_menuRow; // whose menu is open
    QTimer m_spinnerTimer;
    int m_spinnerDegrees = 0;
};

/// The bar below a list: a button that clears it, and how many items it has. Hidden without any,
/// and while the list is filtered: clearing takes the items that are not shown, too.
class ListFooter : public QWidget {
    Q_OBJECT

public:
    /// The parent is not null: without one, the bar would show as a window.
    ListFooter(const LibraryListModel &model, LibraryListView &view, Icon icon,
               const QString &clearText, QWidget *parent);

Q_SIGNALS:
    void clearRequested();
};

} // namespace clipwren
