#include "tests/sdk/simulator/Description.h"

#include <QCoreApplication>
#include <QFile>
#include <QXmlStreamReader>

Description::Description(const QString& model)
{
    QFile file(QCoreApplication::applicationDirPath() + "/../bin/models/" + model + ".xml");
    if (!file.open(QIODevice::ReadOnly)) {
        error = file.errorString();
        return;
    }
    QXmlStreamReader reader(&file);
    reader.readNextStartElement();
    while (reader.readNextStartElement())
        ReadNode(reader);
    while (!reader.atEnd())
        reader.readNext();
    error = reader.hasError() ? reader.errorString() : QString();
}

void Description::ReadNode(QXmlStreamReader& reader)
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
    if (nodes.contains(name))
        duplicates << name;
    nodes.insert(name, node);
}

QStringList Description::Features() const
{
    QStringList features;
    Collect("Root", features);
    return features;
}

void Description::Collect(const QString& category, QStringList& features) const
{
    for (const QString& name : Node(category).elements.values("pFeature")) {
        if (Node(name).kind == "Category")
            Collect(name, features);
        else
            features << name;
    }
}
