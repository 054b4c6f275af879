// What of a camera's or a file's text reaches Qt's rich text, and that nothing in it is loaded.
#include "features/RichText.h"

#include <QAbstractTextDocumentLayout>
#include <QTextDocument>
#include <QtTest>

#include <random>

namespace {

/// Counts what a text makes Qt load on the way to the screen.
class CountingDocument : public QTextDocument
{
public:
    static int loadsOf(const QString& text)
    {
        CountingDocument document;
        document.setHtml(text);
        document.documentLayout()->documentSize();
        return document.m_loads;
    }

protected:
    QVariant loadResource(int, const QUrl&) override
    {
        ++m_loads;
        return QVariant();
    }

private:
    int m_loads = 0;
};

/// Texts that name "%1" wherever a text can name something to be loaded, each in many spellings.
const QStringList Hostile = {
    "<img src=\"%1\">",
    "<img src='%1'/>",
    "<img src=%1>",
    "<img src=%1",
    "<IMG SRC=\"%1\">",
    "<ImG\nsRc\n=\n\"%1\"\n>",
    "<img\tsrc = %1 >",
    "< img src=\"%1\">",
    "<\"img\" src=\"%1\">",
    "<'img' \"src\"='%1'>",
    "<&#x69;mg src=\"%1\">",
    "<&#105;&#109;&#103; &#115;rc=\"%1\">",
    "<img &#x73;rc=\"%1\">",
    "<img alt=\"a > b\" src=\"%1\">",
    "<img alt='<b>' src=\"%1\">",
    "<img width=10 height=10 src=\"%1\" style=\"float: left\">",
    "<img src=\"x\" src=\"%1\">",
    "<image src=\"%1\">",
    "<b><i><img src=\"%1\"></b></i>",
    "<p>A <a href=\"x\">b <img src=\"%1\"></a></p>",
    "<pre><img src=\"%1\"></pre>",
    "<nobr<img src=\"%1\">",
    "<b title='<img src=\"%1\">",
    "<!-- --><img src=\"%1\">",
    "<!-- ><img src=\"%1\"> --><img src=\"%1\">",
    "<!doctype html><img src=\"%1\">",
    "<?xml version=\"1.0\"?><img src=\"%1\">",
    "<title>A</title><img src=\"%1\">",
    "</b><img src=\"%1\">",
    "1 < 2 <img src=\"%1\">",
    "<body background=\"%1\">A</body>",
    "<body BACKGROUND=%1>A",
    "<table background=\"%1\"><tr><td>A</td></tr></table>",
    "<table><tr background='%1'><td>A</td></tr></table>",
    "<table><tr><td background=\"%1\">A</td></tr></table>",
    "<table><tr><th &#98;ackground=\"%1\">A</th></tr></table>",
    "<p style=\"background: url(%1)\">A</p>",
    "<p style='background-image:url(\"%1\")'>A</p>",
    "<p style=\"background-image: URL( '%1' )\">A</p>",
    "<p style=\"background-image: u\\72l(%1)\">A</p>",
    "<p style=\"b\\61 ckground: url(%1)\">A</p>",
    "<p style=\"background&#58; url(%1)\">A</p>",
    "<p style=\"color: red; background: blue url(%1) repeat-x\">A</p>",
    "<span style=\"/* */ background: url(%1)\">A</span>",
    "<span style=\"background: url(%1)\">A",
    "<b style=\"background-image: url(%1)\">A</b>",
    "<table style=\"background-image: url(%1)\"><tr><td>A</td></tr></table>",
    "<div style=\"border-image: url(%1); background: url(%1)\">A</div>",
    "<ul style=\"list-style-image: url(%1); background-image: url(%1)\"><li>A</ul>",
    "<li style=\"background-image: url(%1)\">A</li>",
    "<link rel=\"stylesheet\" type=\"text/css\" href=\"%1\">A",
    "<link rel=stylesheet type=text/css href=%1>A",
    "<head><link rel=\"stylesheet\" type=\"text/css\" href=\"%1\"/></head>A",
    "<style>@import url(\"%1\");</style>A",
    "<style>@import \"%1\";</style>A",
    "<style type=\"text/css\">p { background-image: url(%1) }</style><p>A</p>",
    "<style>b { background: url(%1) }</style><b>A</b>",
    "<html><head><style>* { background-image: url(%1) }</style></head><body><p>A",
};

const QStringList Places = {"file:///no/such/file",
                            "/no/such/file",
                            "no-such-file",
                            "http://localhost:1/a",
                            "data:image/png;base64,AAAA",
                            ":/no/such/resource",
                            "qrc:/no/such/resource",
                            "//no.such.host/a"};

QStringList hostileTexts()
{
    QStringList texts;
    for (const QString& text : Hostile) {
        for (const QString& place : Places) {
            texts.append(QString(text).replace("%1", place));
            texts.append("<b>Name</b><br>" + texts.last() + "<br>Settings");
        }
    }
    return texts;
}

/// Those of the texts that make Qt load something.
QStringList loading(const QStringList& texts)
{
    QStringList result;
    for (const QString& text : texts) {
        if (CountingDocument::loadsOf(text) > 0)
            result.append(text);
    }
    return result;
}

QStringList filtered(const QStringList& texts)
{
    QStringList result;
    for (const QString& text : texts)
        result.append(RichText::withoutResources(text));
    return result;
}

/// The text with a few characters of its kind gone, doubled or replaced.
QString mutated(QString text, std::mt19937& random)
{
    static const QString Spice = QStringLiteral("<>\"'=/ \n&;#!-()\\{}@x");
    for (int changes = 1 + int(random() % 3); changes > 0 && !text.isEmpty(); --changes) {
        const int at = int(random() % unsigned(text.size()));
        switch (random() % 3) {
        case 0:
            text.remove(at, 1);
            break;
        case 1:
            text.insert(at, text.at(int(random() % unsigned(text.size()))));
            break;
        default:
            text.insert(at, Spice.at(int(random() % unsigned(Spice.size()))));
        }
    }
    return text;
}

} // namespace

class tst_RichText : public QObject
{
    Q_OBJECT

private slots:
    void harmlessTextsAreUnchanged_data();
    void harmlessTextsAreUnchanged();
    void resourcesAreShownAsTheTextThatTheyAre_data();
    void resourcesAreShownAsTheTextThatTheyAre();
    void hostileTextsLoadNothing();
    void mutatedHostileTextsLoadNothing();
    void filteringTwiceChangesNothing();
    void halfACharacterHidesNothing();
    void longTextsLoadNothing();
};

void tst_RichText::harmlessTextsAreUnchanged_data()
{
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const QString& text) { QTest::newRow(name) << text; };
    row("nothing", "");
    row("plain", "Delay of the trigger in us.");
    row("tags of a tooltip", "<b>Feature Name:</b> A<br/><b>Visibility:</b> GURU<br/>");
    row("tags of a preset", "<b>A</b><br><br>Settings:<blockquote><i> B: C</i><br></blockquote>\n");
    row("colour", "<font color=\"#ff0000\" size=+1>A</font> <span style='color: red'>B</span>");
    row("colour by function", "<span style=\"color: rgb(255, 0, 0)\">A</span>");
    row("table", "<table border=1 cellpadding=\"2\"><tr><td align=right>A</td></tr></table>");
    row("list", "<ul><li>A<li>B</ul><ol start=2><li>C</ol><hr>");
    row("link", "<a href=\"http://localhost/a?b=c&d=e\">A</a>");
    row("comparison", "Use a delay < 5 and > 1, or <= 7.");
    row("unknown tag", "<selector> stands for <an entry>");
    row("unclosed", "A <b");
    row("bracket at the end", "A <");
    row("entities", "A &lt;img src=\"a\"&gt; &amp; &#60;img src=a&#62;");
    row("comment", "A <!-- B --> C <!-- <img src=a> --> D");
    row("picture's name", "The img src, a background: url(a) and @import \"b\".");
    row("style sheet without pictures", "<style>b { color: red }</style><b>A</b>");
    row("document", "<!DOCTYPE html><html><head><title>A</title></head><body>B</body></html>");
    row("other letters", QString::fromUtf8("<b>Größe</b> 大きさ \xF0\x9F\x98\x80 < 3"));
}

void tst_RichText::harmlessTextsAreUnchanged()
{
    QFETCH(QString, text);
    QCOMPARE(CountingDocument::loadsOf(text), 0);
    QCOMPARE(RichText::withoutResources(text), text);
}

void tst_RichText::resourcesAreShownAsTheTextThatTheyAre_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("result");
    QTest::newRow("picture") << "<b>A</b><br><img src=\"b\"><i>C</i>"
                             << "<b>A</b><br>&lt;img src=\"b\"><i>C</i>";
    QTest::newRow("background") << "<td background=a>B</td>"
                                << "&lt;td background=a>B</td>";
    QTest::newRow("style") << "<p style=\"background: url(a)\">B</p>"
                           << "&lt;p style=\"background: url(a)\">B</p>";
    QTest::newRow("style sheet") << "<style>@import 'a';</style>B<br/>C"
                                 << "&lt;style>@import 'a';&lt;/style>B<br/>C";
    QTest::newRow("formatting stays") << "<font color=red>A</font><hr/><!-- B --><img src=c>"
                                      << "<font color=red>A</font><hr/><!-- B -->&lt;img src=c>";
}

void tst_RichText::resourcesAreShownAsTheTextThatTheyAre()
{
    QFETCH(QString, text);
    QFETCH(QString, result);
    QCOMPARE(RichText::withoutResources(text), result);
}

void tst_RichText::hostileTextsLoadNothing()
{
    const QStringList texts = hostileTexts();
    const int loaded = loading(texts).size();
    QVERIFY2(loaded > texts.size() / 2, qPrintable(QString::number(loaded)));
    QCOMPARE(loading(filtered(texts)), QStringList());
}

void tst_RichText::mutatedHostileTextsLoadNothing()
{
    std::mt19937 random(1);
    QStringList texts;
    for (int round = 0; round < 4; ++round) {
        for (const QString& text : hostileTexts())
            texts.append(mutated(text, random));
    }
    const int loaded = loading(texts).size();
    QVERIFY2(loaded > texts.size() / 3, qPrintable(QString::number(loaded)));
    QCOMPARE(loading(filtered(texts)), QStringList());
}

void tst_RichText::filteringTwiceChangesNothing()
{
    const QStringList once = filtered(hostileTexts());
    QCOMPARE(filtered(once), once);
}

void tst_RichText::halfACharacterHidesNothing()
{
    const QString half(QChar(0xD83D));
    const QStringList texts = {half + "<img src=\"a\">", "<img src=\"a\">" + half,
                               "<img alt=\"" + half + "\" src=\"a\">"};
    QCOMPARE(loading(texts), texts);
    QCOMPARE(loading(filtered(texts)), QStringList());
}

void tst_RichText::longTextsLoadNothing()
{
    const QString filling = QString("A sentence. ").repeated(5000);
    const QStringList texts = {filling + "<img src=\"a\">" + filling,
                               "<img alt=\"" + filling + "\" src=\"a\">",
                               QString("<unknown>").repeated(300) + "<img src=\"a\">"};
    QCOMPARE(loading(texts), texts);
    QCOMPARE(loading(filtered(texts)), QStringList());
}

QTEST_MAIN(tst_RichText)
#include "tst_RichText.moc"
