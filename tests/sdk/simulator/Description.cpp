#include "tests/sdk/simulator/Description.h"

#include <QCoreApplication>
#include <QFile>
#include <QXmlStreamReader>

Description::Description(const QString& model)
{
    QFile file(QCoreApplication::applicationDirPath() + "/../bin/models/" + model + ".xml");
    if (!file.open(QIODevice::ReadOnly)) {
        m_error = file.errorString();
        return;
    }
    QXmlStreamReader reader(&file);
    reader.readNextStartElement();
    while (reader.readNextStartElement())
        readNode(reader);
    while (!reader.atEnd())
        reader.readNext();
    m_error = reader.hasError() ? reader.errorString() : QString();
}

void Description::readNode(QXmlStreamReader& reader)
{
    DescriptionNode node;
    node.kind = reader.name().toString();
    const QString name = reader.attributes().value("Name").toString();
    while (reader.readNextStartElement()) {
        const QString element = reader.name().toString();
        if (element == "EnumEntry")
            node.entries << reader.attributes().value("Name").toString();
        if (element == "pIndex")
            node.indexOffset = reader.attributes().value("Offset").toString();
        node.elements.insert(
            element, reader.readElementText(QXmlStreamReader::IncludeChildElements).trimmed());
    }
    if (m_nodes.contains(name))
        m_duplicates << name;
    m_nodes.insert(name, node);
}

QStringList Description::features() const
{
    QStringList features;
    collect("Root", features);
    return features;
}

void Description::collect(const QString& category, QStringList& features) const
{
    for (const QString& name : node(category).elements.values("pFeature")) {
        if (node(name).kind == "Category")
            collect(name, features);
        else
            features << name;
    }
}
