#pragma once

#include <QAbstractListModel>
#include <QUuid>

#include <optional>

namespace clipwren {

/// The rows of a list of the library. The first row stands for what lies above the items: the
/// "New Download" button and the section's header; items follow from `firstItem` on.
///
/// A change of the list moves only the rows that it concerns, so that a view keeps its place.
class LibraryListModel : public QAbstractListModel {
    Q_OBJECT

public:
    static constexpr int firstItem = 1;

    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    qsizetype itemCount() const { return m_ids.size(); }
    /// The item's place in its list; none for the first row.
    std::optional<qsizetype> itemAt(const QModelIndex &index) const;
    /// True while rows come and go: what a view then selects is not the user's choice.
    bool isChanging() const { return m_changing; }
    /// The first item of that id; invalid when there is none.
    QModelIndex indexOf(const QUuid &id) const;

protected:
    /// Takes the list as it is now.
    void setIds(const QList<QUuid> &ids);

    virtual QString title(qsizetype item) const = 0;
    /// What assistive tools read.
    virtual QString accessibleText(qsizetype item) const = 0;

private:
    QList<QUuid> m_ids;
    bool m_changing = false;
};

} // namespace clipwren
