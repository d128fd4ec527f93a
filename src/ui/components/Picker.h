#pragma once

#include "ui/components/Animation.h"
#include "ui/components/Icon.h"

#include <QComboBox>
#include <QWidget>

class QButtonGroup;

namespace clipwren {

/// A row of texts of which one is chosen. Arrow keys move the choice.
class SegmentedControl : public QWidget {
    Q_OBJECT
public:
    /// Two texts or more; the first is chosen.
    explicit SegmentedControl(const QStringList &texts, QWidget *parent = nullptr);

    int currentIndex() const;
    /// Chooses without `chosen()`.
    void setCurrentIndex(int index);

Q_SIGNALS:
    /// The user chose another one.
    void chosen(int index);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QButtonGroup *m_group;
    SpringAnimation m_thumb; // place of the chosen segment's background, in segments
};

/// A button that shows what is chosen and opens a menu of the others.
class Picker : public QComboBox {
    Q_OBJECT
public:
    struct Entry {
        Icon icon;
        QString title;
        QString key; ///< names the entry towards the program

        bool operator==(const Entry &) const = default;
    };

    explicit Picker(QWidget *parent = nullptr);

    /// Keeps the chosen key when it is still there, else nothing is chosen.
    void setEntries(const QList<Entry> &entries);
    QString currentKey() const;
    /// Chooses without `picked()`; a key that is not there leaves nothing chosen.
    void setCurrentKey(const QString &key);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    /// Over several lines where the text needs them.
    int heightForWidth(int width) const override;

Q_SIGNALS:
    /// The user chose an entry.
    void picked(const QString &key);

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    static int roomBesideText();
    void tintIcons();
    int indexOf(const QString &key) const;

    QList<Entry> m_entries;
};

} // namespace clipwren
