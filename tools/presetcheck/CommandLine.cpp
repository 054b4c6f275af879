#include "tools/presetcheck/CommandLine.h"

#include <QCommandLineParser>

namespace PresetCheck {

namespace {

class Reader
{
public:
    Reader(const QStringList& arguments, const QStringList& simulatedModels)
        : models(simulatedModels.join(QStringLiteral(", ")))
    {
        parser.setApplicationDescription(QStringLiteral(
            "Checks presets files for what the trigger tab would skip or misread, and with a "
            "camera\nfor what that camera would not take. A camera's selectors are moved and put "
            "back;\nnothing else is written to it."));
        parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("A presets file."),
                                     QStringLiteral("FILE..."));
        parser.addOptions({help, version, camera, simulate, format});
        understood = parser.parse(arguments);
        known = simulatedModels.contains(parser.value(simulate));
    }

    CommandLine result() const
    {
        if (!understood)
            return rejected(parser.errorText());
        if (parser.isSet(help))
            return shown(parser.helpText() + exitCodes());
        if (parser.isSet(version))
            return shown(QStringLiteral("advtrigger-preset-check " PRESETCHECK_VERSION));
        const QString fault = this->fault();
        return fault.isEmpty() ? accepted() : rejected(fault);
    }

private:
    static CommandLine shown(const QString& text)
    {
        CommandLine line;
        line.action = CommandLine::Action::ShowText;
        line.text = text.trimmed();
        return line;
    }

    static CommandLine rejected(const QString& fault)
    {
        CommandLine line;
        line.action = CommandLine::Action::Reject;
        line.text = fault;
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
        if (parser.positionalArguments().isEmpty())
            return QStringLiteral("Name a presets file to check.");
        if (parser.isSet(camera) && parser.isSet(simulate))
            return QStringLiteral("--camera and --simulate exclude each other.");
        if (parser.isSet(camera) && parser.value(camera).isEmpty())
            return QStringLiteral(
                "--camera needs an id, a serial number, an address or \"first\".");
        if (parser.isSet(simulate) && !known)
            return QStringLiteral("There is no simulated model \"%1\". Known models: %2.")
                .arg(parser.value(simulate), models);
        const QStringList formats = {QStringLiteral("text"), QStringLiteral("json")};
        if (!formats.contains(parser.value(format)))
            return QStringLiteral("--format takes \"text\" or \"json\", not \"%1\".")
                .arg(parser.value(format));
        return {};
    }

    CommandLine accepted() const
    {
        CommandLine line;
        line.files = parser.positionalArguments();
        line.json = parser.value(format) == QLatin1String("json");
        if (parser.isSet(camera))
            line.camera = {CameraChoice::Kind::ById, parser.value(camera)};
        else if (parser.isSet(simulate))
            line.camera = {CameraChoice::Kind::Simulated, parser.value(simulate)};
        return line;
    }

    QString models;
    QCommandLineParser parser;
    bool understood = false;
    bool known = false;

    QCommandLineOption help{{"h", "help"}, QStringLiteral("Show this help and exit.")};
    QCommandLineOption version{{"v", "version"}, QStringLiteral("Show the version and exit.")};
    QCommandLineOption camera{
        "camera",
        QStringLiteral("Check against the camera with this id, serial number or network address, "
                       "or the first one found (\"first\")."),
        "ID"};
    QCommandLineOption simulate{
        "simulate",
        QStringLiteral("Check against a simulated camera of this model (%1).").arg(models),
        "MODEL"};
    QCommandLineOption format{"format",
                              QStringLiteral("How findings are printed: text (default) or json."),
                              "text|json", "text"};
};

} // namespace

CommandLine readCommandLine(const QStringList& arguments, const QStringList& models)
{
    return Reader(arguments, models).result();
}

} // namespace PresetCheck
