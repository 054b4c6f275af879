#include "tools/presetcheck/CommandLine.h"

#include <QCommandLineParser>

namespace PresetCheck {

namespace {

class Reader
{
public:
    Reader(const QStringList& arguments, const QStringList& models)
        : m_models(models.join(QStringLiteral(", ")))
    {
        m_parser.setApplicationDescription(QStringLiteral(
            "Checks presets files for what the trigger tab would skip or misread, and with a "
            "camera\nfor what that camera would not take. A camera's selectors are moved and put "
            "back;\nnothing else is written to it."));
        m_parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("A presets file."),
                                       QStringLiteral("FILE..."));
        m_parser.addOptions({m_help, m_version, m_camera, m_simulate, m_format});
        m_understood = m_parser.parse(arguments);
        m_known = models.contains(m_parser.value(m_simulate));
    }

    CommandLine result() const
    {
        if (!m_understood)
            return rejected(m_parser.errorText());
        if (m_parser.isSet(m_help))
            return shown(m_parser.helpText() + exitCodes());
        if (m_parser.isSet(m_version))
            return shown(QStringLiteral("advtrigger-preset-check " PRESETCHECK_VERSION));
        const QString complaint = fault();
        return complaint.isEmpty() ? accepted() : rejected(complaint);
    }

private:
    static CommandLine shown(const QString& text)
    {
        CommandLine line;
        line.action = CommandLine::Action::ShowText;
        line.text = text.trimmed();
        return line;
    }

    static CommandLine rejected(const QString& complaint)
    {
        CommandLine line;
        line.action = CommandLine::Action::Reject;
        line.text = complaint;
        return line;
    }

    static QString exitCodes()
    {
        return QStringLiteral("\nExit codes:\n"
                              "  0  nothing found\n"
                              "  1  errors or warnings found\n"
                              "  2  bad arguments, a file that cannot be read, or no camera\n");
    }

    QString fault() const
    {
        if (m_parser.positionalArguments().isEmpty())
            return QStringLiteral("Name a presets file to check.");
        if (m_parser.isSet(m_camera) && m_parser.isSet(m_simulate))
            return QStringLiteral("--camera and --simulate exclude each other.");
        if (m_parser.isSet(m_camera) && m_parser.value(m_camera).isEmpty())
            return QStringLiteral(
                "--camera needs an id, a serial number, an address or \"first\".");
        if (m_parser.isSet(m_simulate) && !m_known)
            return QStringLiteral("There is no simulated model \"%1\". Known models: %2.")
                .arg(m_parser.value(m_simulate), m_models);
        const QStringList formats = {QStringLiteral("text"), QStringLiteral("json")};
        if (!formats.contains(m_parser.value(m_format)))
            return QStringLiteral("--format takes \"text\" or \"json\", not \"%1\".")
                .arg(m_parser.value(m_format));
        return {};
    }

    CommandLine accepted() const
    {
        CommandLine line;
        line.files = m_parser.positionalArguments();
        line.json = m_parser.value(m_format) == QLatin1String("json");
        if (m_parser.isSet(m_camera))
            line.camera = found(m_parser.value(m_camera));
        else if (m_parser.isSet(m_simulate))
            line.camera = {Cameras::Source::Kind::Simulated,
                           m_parser.value(m_simulate).toStdString()};
        return line;
    }

    static Cameras::Source found(const QString& id)
    {
        const bool isFirst = id == QLatin1String("first");
        return {Cameras::Source::Kind::Found, isFirst ? std::string() : id.toStdString()};
    }

    QString m_models;
    QCommandLineParser m_parser;
    bool m_understood = false;
    bool m_known = false;

    QCommandLineOption m_help{{"h", "help"}, QStringLiteral("Show this help and exit.")};
    QCommandLineOption m_version{{"v", "version"}, QStringLiteral("Show the version and exit.")};
    QCommandLineOption m_camera{
        "camera",
        QStringLiteral("Check against the camera with this id, serial number or network address, "
                       "or the first one found (\"first\")."),
        "ID"};
    QCommandLineOption m_simulate{
        "simulate",
        QStringLiteral("Check against a simulated camera of this model (%1).").arg(m_models),
        "MODEL"};
    QCommandLineOption m_format{"format",
                                QStringLiteral("How findings are printed: text (default) or json."),
                                "text|json", "text"};
};

} // namespace

CommandLine readCommandLine(const QStringList& arguments, const QStringList& models)
{
    return Reader(arguments, models).result();
}

} // namespace PresetCheck
