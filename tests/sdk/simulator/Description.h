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

    QString Text(const QString& element) const { return elements.value(element); }
};

/// A GenICam description as it lies beside the programs.
class Description
{
public:
    explicit Description(const QString& model);

    QString Error() const { return error; }
    const QMap<QString, DescriptionNode>& Nodes() const { return nodes; }
    DescriptionNode Node(const QString& name) const { return nodes.value(name); }
    QStringList Duplicates() const { return duplicates; }

    /// What is reachable from Root, without the categories.
    QStringList Features() const;

private:
    void ReadNode(class QXmlStreamReader& reader);
    void Collect(const QString& category, QStringList& features) const;

    QString error;
    QMap<QString, DescriptionNode> nodes;
    QStringList duplicates;
};
