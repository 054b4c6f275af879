#include "host/Language.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <memory>

namespace {

constexpr char Option[] = "--language";
constexpr std::size_t OptionLength = sizeof Option - 1;

/// The value of the last --language, in either of its two forms; empty when there is none.
QByteArray languageArgument(int argc, const char* const* argv)
{
    QByteArray language;
    for (int i = 1; i < argc && qstrcmp(argv[i], "--") != 0; ++i) {
        if (qstrncmp(argv[i], Option, OptionLength) != 0)
            continue;
        const char* rest = argv[i] + OptionLength;
        if (*rest == '=')
            language = rest + 1;
        else if (*rest == '\0' && i + 1 < argc)
            language = argv[i + 1];
    }
    return language;
}

/// LANGUAGE has no effect in a locale without a language.
void leaveSilentLocale()
{
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const QByteArray value = qgetenv(variable);
        if (value == "C" || value == "POSIX")
            qputenv(variable, "C.UTF-8");
        if (!value.isEmpty())
            return;
    }
    qputenv("LANG", "C.UTF-8");
}

void installTranslator(const QString& name, const QString& folder)
{
    // Tries the language with its territory before the language alone.
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(name + QLatin1Char('_') + QLocale().name(), folder))
        return;
    translator->setParent(QCoreApplication::instance());
    QCoreApplication::installTranslator(translator.release());
}

} // namespace

QStringList Language::codes()
{
    return {"de", "en", "es", "fr", "ja", "zh"};
}

// Tab extensions ask for the system's language, not for the application's. Qt takes it from the
// environment, where LANGUAGE is the variable that leaves the character encoding alone.
void Language::choose(int argc, const char* const* argv)
{
    const QString language = QString::fromLatin1(languageArgument(argc, argv));
    if (!codes().contains(language))
        return;
    leaveSilentLocale();
    qputenv("LANGUAGE", language.toLatin1());
    QLocale::setDefault(QLocale(language));
}

void Language::installTranslators()
{
    installTranslator(QStringLiteral("qtbase"),
                      QLibraryInfo::location(QLibraryInfo::TranslationsPath));
    installTranslator(QStringLiteral("zalviewer"),
                      QCoreApplication::applicationDirPath() + QStringLiteral("/qm"));
}

void Language::installExtensionTranslator(const QString& catalogue)
{
    installTranslator(catalogue, QStringLiteral("qm"));
}
