#include "tests/tools/Checked.h"
#include "tools/presetcheck/JsonTree.h"

#include <QtTest>

using PresetCheck::JsonNode;
using PresetCheck::JsonTree;
using PresetCheck::readJson;

/// Values and their places, as the file has them.
class tst_JsonTree : public QObject
{
    Q_OBJECT

private slots:
    void everyKindOfValueHasItsPlaceAndText()
    {
        const QByteArray text =
            json("{ 'o' : {}, 'a':[\n1.50e3,'x\\u0041',true , false,null],'k\\n':-0}");
        const JsonTree tree = readJson(text);
        QCOMPARE(tree.error, QString());
        QCOMPARE(tree.root.kind, JsonNode::Kind::Object);
        QCOMPARE(tree.root.children.size(), std::size_t(3));

        const JsonNode& list = *tree.root.member("a");
        QCOMPARE(list.kind, JsonNode::Kind::Array);
        QCOMPARE(int(list.at), text.indexOf('['));
        QCOMPARE(int(list.keyAt), text.indexOf("\"a\""));
        const char* written[] = {"1.50e3", "\"x\\u0041\"", "true", "false", "null"};
        const char* texts[] = {"1.50e3", "xA", "true", "false", "null"};
        const JsonNode::Kind kinds[] = {JsonNode::Kind::Number, JsonNode::Kind::Text,
                                        JsonNode::Kind::Bool, JsonNode::Kind::Bool,
                                        JsonNode::Kind::Null};
        for (std::size_t i = 0; i < list.children.size(); ++i) {
            QCOMPARE(int(list.children.at(i).at), text.indexOf(written[i]));
            QCOMPARE(list.children.at(i).text, QString(texts[i]));
            QCOMPARE(list.children.at(i).kind, kinds[i]);
            QCOMPARE(list.children.at(i).isPlain(), i < 4);
        }
        QCOMPARE(int(tree.root.member("k\n")->at), text.indexOf("-0"));
        QCOMPARE(int(tree.root.member("o")->at), text.indexOf("{}"));
    }

    void aByteOrderMarkCountsInOffsets()
    {
        const JsonTree tree = readJson(json("\xEF\xBB\xBF{'a': 1}"));
        QCOMPARE(int(tree.root.at), 3);
        QCOMPARE(int(tree.root.member("a")->at), 9);
        QCOMPARE(int(readJson("\xEF\xBB\xBF{").errorAt), 4);
    }

    void aByteOrderMarkWithinATextIsACharacter()
    {
        const JsonTree tree = readJson(json("{'\\ufeffa': '\xEF\xBB\xBFx'}"));
        QCOMPARE(tree.root.children.front().key, QString(QChar(0xFEFF)) + "a");
        QCOMPARE(tree.root.children.front().text, QString(QChar(0xFEFF)) + "x");
    }

    void aZeroDoesNotEndAText()
    {
        const JsonTree tree = readJson(json("{'a\\u0000b': '\\u0000'}"));
        QCOMPARE(tree.root.children.front().key, QString::fromLatin1("a\0b", 3));
        QCOMPARE(tree.root.children.front().text, QString(QChar(0)));
    }

    void theLastOfSeveralMembersCounts()
    {
        const JsonTree tree = readJson(json("{'a': 1, 'a': 2}"));
        QCOMPARE(tree.root.member("a")->text, QString("2"));
        QVERIFY(!tree.root.member("b"));
    }

    void whatIsNestedDeeperThanPresetsGoIsLeftOut()
    {
        const JsonTree tree = readJson(json("{'1':{'2':[{'4':{'5':1},'6':2}]}, '7': 3}"));
        const JsonNode& element = tree.root.member("1")->member("2")->children.front();
        QCOMPARE(element.member("4")->kind, JsonNode::Kind::Object);
        QVERIFY(element.member("4")->children.empty());
        QCOMPARE(element.member("6")->text, QString("2"));
        QCOMPARE(tree.root.member("7")->text, QString("3"));
    }

    void nestingHasNoLimit()
    {
        const int levels = 1000000;
        const JsonTree tree = readJson(QByteArray(levels, '[') + QByteArray(levels, ']'));
        QCOMPARE(tree.error, QString());
        QCOMPARE(int(readJson(QByteArray(levels, '[')).errorAt), levels);
    }
};

QTEST_APPLESS_MAIN(tst_JsonTree)
#include "tst_JsonTree.moc"
