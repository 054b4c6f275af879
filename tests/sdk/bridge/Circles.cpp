#include "tests/sdk/bridge/Circles.h"

#include "tests/sdk/bridge/DescribedCamera.h"

#include <QtTest>

using DescribedCamera::reg;

namespace {

const QByteArray Polled = "<PollingTime>100</PollingTime>";

void addValues()
{
    QTest::newRow("value of itself")
        << QByteArray("<Integer Name=\"A\"><pValue>A</pValue></Integer>");
    QTest::newRow("values, Polled")
        << "<Integer Name=\"A\"><pValue>B</pValue>" + Polled +
               "</Integer><Integer Name=\"B\"><pValue>A</pValue></Integer>";
    QTest::newRow("formulas, Polled")
        << "<IntSwissKnife Name=\"A\"><pVariable Name=\"X\">B</pVariable><Formula>X</Formula>" +
               Polled +
               "</IntSwissKnife><SwissKnife Name=\"B\"><pVariable Name=\"X\">A</pVariable>"
               "<Formula>X</Formula></SwissKnife>";
    QTest::newRow("converters, not cached")
        << QByteArray("<Converter Name=\"A\"><FormulaTo>FROM</FormulaTo><FormulaFrom>TO"
                      "</FormulaFrom><pValue>B</pValue><Cachable>NoCache</Cachable></Converter>"
                      "<IntConverter Name=\"B\"><FormulaTo>FROM</FormulaTo><FormulaFrom>TO"
                      "</FormulaFrom><pValue>A</pValue></IntConverter>");
}

void addRegisters()
{
    QTest::newRow("address") << reg("IntReg", "A", "0x4004", "4",
                                    "<pAddress>A</pAddress>" + Polled);
    QTest::newRow("length of a text")
        << QByteArray("<StringReg Name=\"A\"><Address>0x4004</Address><pLength>B</pLength>"
                      "<pPort>Device</pPort></StringReg>") +
               reg("IntReg", "B", "0x4008", "4", "<pAddress>B</pAddress>");
}

void addIndexes()
{
    QTest::newRow("index") << reg("IntReg", "A", "0x4004", "4",
                                  "<pIndex Offset=\"4\">B</pIndex><PollingTime>100</PollingTime>") +
                                  "<Integer Name=\"B\"><pValue>A</pValue></Integer>";
    QTest::newRow("offset of an index")
        << reg("IntReg", "A", "0x4004", "4", "<pIndex pOffset=\"B\">I</pIndex>") +
               "<Integer Name=\"I\"><Value>1</Value></Integer>"
               "<Integer Name=\"B\"><pValue>A</pValue></Integer>";
    // A structure has no name; each of its parts has one.
    for (const QByteArray offset : {"A", "B"})
        QTest::addRow("offset of an index of a structure, %s", offset.constData())
            << "<StructReg Comment=\"c\"><Address>0x4004</Address><Length>4</Length><AccessMode>RW"
               "</AccessMode><pPort>Device</pPort><pIndex pOffset=\"" +
                   offset +
                   "\">I</pIndex><StructEntry Name=\"B\"><LSB>0</LSB><MSB>3</MSB></StructEntry>"
                   "<StructEntry Name=\"A\"><LSB>4</LSB><MSB>7</MSB></StructEntry></StructReg>"
                   "<Integer Name=\"I\"><Value>1</Value></Integer>";
}

void addConditions()
{
    QTest::newRow("lock") << reg("IntReg", "A", "0x4004", "4", "<pIsLocked>B</pIsLocked>") +
                                 "<Integer Name=\"B\"><pValue>B</pValue></Integer>";
    QTest::newRow("availability") << reg("IntReg", "A", "0x4004", "4",
                                         "<pIsAvailable>B</pIsAvailable>") +
                                         "<Integer Name=\"B\"><pValue>B</pValue></Integer>";
    QTest::newRow("implementation")
        << reg("IntReg", "A", "0x4004", "4", "<pIsImplemented>B</pIsImplemented>") +
               "<Integer Name=\"B\"><pValue>B</pValue></Integer>";
    QTest::newRow("limit") << reg("IntReg", "R", "0x4004", "4") +
                                  "<Integer Name=\"A\"><pValue>R</pValue><pMax>B</pMax></Integer>"
                                  "<Integer Name=\"B\"><pValue>B</pValue></Integer>";
    QTest::newRow("availability of an entry")
        << reg("IntReg", "R", "0x4004", "4") +
               "<Enumeration Name=\"A\"><EnumEntry Name=\"E\"><pIsAvailable>B</pIsAvailable>"
               "<Value>0</Value></EnumEntry><pValue>R</pValue></Enumeration>"
               "<Integer Name=\"B\"><pValue>B</pValue></Integer>";
    QTest::newRow("value of an entry")
        << reg("IntReg", "R", "0x4004", "4") +
               "<Enumeration Name=\"A\"><EnumEntry Name=\"E\"><pValue>B</pValue></EnumEntry>"
               "<pValue>R</pValue></Enumeration><Integer Name=\"B\"><pValue>B</pValue></Integer>";
    QTest::newRow("value of a command")
        << reg("IntReg", "R", "0x4004", "4") +
               "<Command Name=\"A\"><pValue>R</pValue><pCommandValue>B</pCommandValue></Command>"
               "<Integer Name=\"B\"><pValue>B</pValue></Integer>";
}

} // namespace

void Circles::addAll()
{
    addValues();
    addRegisters();
    addIndexes();
    addConditions();
}
