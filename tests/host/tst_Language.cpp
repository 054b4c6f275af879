#include "host/Language.h"

#include <QDir>
#include <QLocale>
#include <QTest>

#include <vector>

namespace {

const char* const Variables[] = {"LC_ALL", "LC_MESSAGES", "LANG", "LANGUAGE"};

QStringList environment()
{
    QStringList values;
    for (const char* variable : Variables)
        values << QString::fromLocal8Bit(qgetenv(variable));
    return values;
}

void setEnvironment(const QStringList& values)
{
    for (int i = 0; i < values.size(); ++i) {
        if (values[i].isEmpty())
            qunsetenv(Variables[i]);
        else
            qputenv(Variables[i], values[i].toLocal8Bit());
    }
}

void choose(const QList<QByteArray>& arguments)
{
    std::vector<const char*> argv{"ZalViewer"};
    for (const QByteArray& argument : arguments)
        argv.push_back(argument.constData());
    argv.push_back("de"); // Not an argument any more.
    Language::choose(int(argv.size()) - 1, argv.data());
}

} // namespace

class tst_Language : public QObject
{
    Q_OBJECT

    const QStringList before = environment();

private slots:
    void init()
    {
        QLocale::setDefault(QLocale("pt_BR"));
        setEnvironment({"", "", "pt_BR.UTF-8", ""});
    }
    void cleanupTestCase() { setEnvironment(before); }

    void everyLanguageHasItsTranslations()
    {
        QStringList compiled{"en"}; // What the sources are written in.
        for (const QString& file : QDir(QM_FOLDER).entryList({"zalviewer_*.qm"}))
            compiled << file.mid(10, 2);
        compiled.sort();
        QCOMPARE(Language::codes(), compiled);
    }

    void lastLanguageArgumentIsTaken_data()
    {
        QTest::addColumn<QList<QByteArray>>("arguments");
        QTest::addColumn<QString>("language");
        using Arguments = QList<QByteArray>;
        QTest::newRow("two words") << Arguments{"--language", "de"} << "de_DE";
        QTest::newRow("one word") << Arguments{"--language=ja"} << "ja_JP";
        QTest::newRow("among others")
            << Arguments{"--size", "1024x768", "--language", "fr", "--acquire", "on"} << "fr_FR";
        QTest::newRow("twice") << Arguments{"--language", "de", "--language=es"} << "es_ES";
        QTest::newRow("Chinese") << Arguments{"--language", "zh"} << "zh_CN";
        QTest::newRow("none") << Arguments{} << "pt_BR";
        QTest::newRow("without a value") << Arguments{"--language"} << "pt_BR";
        QTest::newRow("empty") << Arguments{"--language", ""} << "pt_BR";
        QTest::newRow("unknown") << Arguments{"--language", "xx"} << "pt_BR";
        QTest::newRow("another option") << Arguments{"--languages", "de"} << "pt_BR";
        QTest::newRow("after the options") << Arguments{"--", "--language", "de"} << "pt_BR";
    }
    void lastLanguageArgumentIsTaken()
    {
        QFETCH(QList<QByteArray>, arguments);
        choose(arguments);
        QTEST(QLocale().name(), "language");
    }

    // The encoding of texts stays the user's; only a locale without a language is replaced.
    void environmentSpeaksTheLanguage_data()
    {
        QTest::addColumn<QStringList>("given");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("French desktop")
            << QStringList{"", "", "fr_FR.UTF-8", ""} << QStringList{"", "", "fr_FR.UTF-8", "de"};
        QTest::newRow("language list") << QStringList{"", "", "fr_FR.UTF-8", "fr:en"}
                                       << QStringList{"", "", "fr_FR.UTF-8", "de"};
        QTest::newRow("C") << QStringList{"C", "", "fr_FR.UTF-8", ""}
                           << QStringList{"C.UTF-8", "", "fr_FR.UTF-8", "de"};
        QTest::newRow("POSIX messages")
            << QStringList{"", "POSIX", "", ""} << QStringList{"", "C.UTF-8", "", "de"};
        QTest::newRow("C.UTF-8") << QStringList{"C.UTF-8", "", "", ""}
                                 << QStringList{"C.UTF-8", "", "", "de"};
        QTest::newRow("nothing") << QStringList{"", "", "", ""}
                                 << QStringList{"", "", "C.UTF-8", "de"};
    }
    void environmentSpeaksTheLanguage()
    {
        QFETCH(QStringList, given);
        setEnvironment(given);
        choose({"--language", "de"});
        QTEST(environment(), "expected");
    }

    void withoutTheOptionTheEnvironmentStays()
    {
        const QStringList given{"C", "", "fr_FR.UTF-8", "fr"};
        setEnvironment(given);
        choose({});
        QCOMPARE(environment(), given);
    }
};

QTEST_GUILESS_MAIN(tst_Language)
#include "tst_Language.moc"
