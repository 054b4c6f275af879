#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

/// A node of a GenICam description.
struct DescriptionNode
{
    QString kind;
    QMultiMap<QString, QString> elements; ///< Direct children with their texts.
    QStringList entries;                  ///< Of an enumeration.
    QString indexOffset;                  ///< Of its pIndex.

    QString text(const QString& element) const { return elements.value(element); }
};

/// A GenICam description as it lies beside the programs.
class Description
{
public:
    explicit Description(const QString& model);

    QString error() const { return m_error; }
    const QMap<QString, DescriptionNode>& nodes() const { return m_nodes; }
    DescriptionNode node(const QString& name) const { return m_nodes.value(name); }
    QStringList duplicates() const { return m_duplicates; }

    /// What is reachable from Root, without the categories.
    QStringList features() const;

private:
    void readNode(class QXmlStreamReader& reader);
    void collect(const QString& category, QStringList& features) const;

    QString m_error;
    QMap<QString, DescriptionNode> m_nodes;
    QStringList m_duplicates;
};
