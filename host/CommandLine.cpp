#include "host/CommandLine.h"

#include "host/ExitCode.h"
#include "host/Language.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

constexpr QSize SMALLEST_WINDOW(640, 480);
constexpr QSize LARGEST_WINDOW(7680, 4320);

/// The command line as a table of options, and the checks that the table cannot express. Each
/// check returns a sentence when it finds fault.
class Reader
{
    Q_DECLARE_TR_FUNCTIONS(CommandLine)

public:
    Reader(const QStringList& arguments, const QStringList& simulatedModels)
        : models(simulatedModels)
    {
        parser.setApplicationDescription(
            tr("Shows a camera's live image, and the tab extensions that support the camera.\n"
               "Without --camera and --simulate it starts a simulated camera of its own."));
        parser.addOptions({help, version, list, camera, simulate, acquire, plugins, screenshot,
                           delay, size, palette, language});
        understood = parser.parse(arguments);
    }

    CommandLine result()
    {
        CommandLine line;
        if (!understood) {
            reject(line, sentence(parser.errorText()));
        } else if (parser.isSet(help)) {
            show(line, parser.helpText() + exitCodes());
        } else if (parser.isSet(version)) {
            show(line, QStringLiteral("ZalViewer " ZALVIEWER_VERSION));
        } else if (QString fault = readOptions(line.options); !fault.isEmpty()) {
            reject(line, fault);
        } else if (parser.isSet(list)) {
            line.action = CommandLine::Action::ListCameras;
        }
        return line;
    }

private:
    using Check = QString (Reader::*)(ViewerOptions&) const;

    static QString sentence(const QString& text)
    {
        const bool ended = text.endsWith(QLatin1Char('.')) || text.endsWith(QChar(0x3002));
        return ended ? text : text + QLatin1Char('.');
    }

    static void show(CommandLine& line, const QString& text)
    {
        line.action = CommandLine::Action::ShowText;
        line.text = text.trimmed();
    }

    static void reject(CommandLine& line, const QString& fault)
    {
        line.action = CommandLine::Action::Reject;
        line.text = fault;
    }

    static QString exitCodes()
    {
        return tr("\nExit codes:\n"
                  "  %1  success\n"
                  "  %2  bad arguments\n"
                  "  %3  no camera found, or it could not be opened\n"
                  "  %4  a file in the plugins folder could not be used\n"
                  "  %5  the screenshot could not be written\n"
                  "  %6  no display\n")
            .arg(ExitSuccess)
            .arg(ExitBadArguments)
            .arg(ExitNoCamera)
            .arg(ExitBrokenExtension)
            .arg(ExitScreenshotFailed)
            .arg(ExitNoDisplay);
    }

    QString readOptions(ViewerOptions& options) const
    {
        static constexpr Check checks[] = {
            &Reader::readRest, &Reader::readCamera, &Reader::readAcquire, &Reader::readPlugins,
            &Reader::readShot, &Reader::readSize,   &Reader::readPalette, &Reader::readLanguage};
        for (const Check check : checks) {
            QString fault = (this->*check)(options);
            if (!fault.isEmpty())
                return fault;
        }
        return {};
    }

    QString readRest(ViewerOptions&) const
    {
        const QStringList rest = parser.positionalArguments();
        return rest.isEmpty() ? QString() : tr("Unexpected argument \"%1\".").arg(rest.first());
    }

    QString readCamera(ViewerOptions& options) const
    {
        if (parser.isSet(camera) && parser.isSet(simulate))
            return tr("--camera and --simulate exclude each other.");
        return parser.isSet(camera) ? readCameraId(options.camera) : readModel(options.camera);
    }

    QString readCameraId(CameraChoice& choice) const
    {
        choice.id = parser.value(camera);
        choice.kind = CameraChoice::Kind::ById;
        if (choice.id == QLatin1String("first")) {
            choice.id.clear();
            choice.kind = CameraChoice::Kind::FirstFound;
        } else if (choice.id.isEmpty()) {
            return tr("--camera needs an id, a serial number, an address or \"first\".");
        }
        return {};
    }

    QString readModel(CameraChoice& choice) const
    {
        if (parser.isSet(simulate))
            choice.model = parser.value(simulate);
        if (models.contains(choice.model))
            return {};
        return tr("There is no simulated model \"%1\". Known models: %2.")
            .arg(choice.model, models.join(QStringLiteral(", ")));
    }

    QString readAcquire(ViewerOptions& options) const
    {
        // A screenshot is meant to show an image.
        options.acquire = parser.isSet(screenshot);
        if (!parser.isSet(acquire))
            return {};
        const QString value = parser.value(acquire);
        options.acquire = value == QLatin1String("on");
        return options.acquire || value == QLatin1String("off")
                   ? QString()
                   : tr("--acquire takes \"on\" or \"off\", not \"%1\".").arg(value);
    }

    QString readPlugins(ViewerOptions& options) const
    {
        if (!parser.isSet(plugins))
            return {};
        const QFileInfo folder(parser.value(plugins));
        options.pluginFolder = folder.absoluteFilePath();
        return folder.isDir() ? QString() : tr("There is no folder \"%1\".").arg(folder.filePath());
    }

    QString readShot(ViewerOptions& options) const
    {
        if (parser.isSet(screenshot)) {
            if (parser.value(screenshot).isEmpty())
                return tr("--screenshot needs the name of a file.");
            options.screenshotFile = QFileInfo(parser.value(screenshot)).absoluteFilePath();
        }
        return parser.isSet(delay) ? readDelay(options) : QString();
    }

    QString readDelay(ViewerOptions& options) const
    {
        if (!parser.isSet(screenshot))
            return tr("--delay is for --screenshot only.");
        bool ok = false;
        options.screenshotDelay = parser.value(delay).toInt(&ok);
        return ok && options.screenshotDelay >= 0 && options.screenshotDelay <= 60000
                   ? QString()
                   : tr("--delay takes 0 to 60000 milliseconds, not \"%1\".")
                         .arg(parser.value(delay));
    }

    QString readSize(ViewerOptions& options) const
    {
        if (!parser.isSet(size))
            return {};
        static const QRegularExpression pattern(QStringLiteral("^(\\d{1,5})x(\\d{1,5})$"));
        const QRegularExpressionMatch match = pattern.match(parser.value(size));
        options.windowSize = QSize(match.captured(1).toInt(), match.captured(2).toInt());
        const bool fits = options.windowSize.boundedTo(LARGEST_WINDOW) == options.windowSize &&
                          options.windowSize.expandedTo(SMALLEST_WINDOW) == options.windowSize;
        return fits ? QString()
                    : tr("--size takes a size from 640x480 to 7680x4320, not \"%1\".")
                          .arg(parser.value(size));
    }

    QString readPalette(ViewerOptions& options) const
    {
        if (!parser.isSet(palette))
            return {};
        options.palette = parser.value(palette);
        const bool known = QStringList{"light", "dark"}.contains(options.palette);
        return known
                   ? QString()
                   : tr("--palette takes \"light\" or \"dark\", not \"%1\".").arg(options.palette);
    }

    // The language itself is chosen before the first text is made.
    QString readLanguage(ViewerOptions&) const
    {
        const QStringList known = Language::codes();
        if (!parser.isSet(language) || known.contains(parser.value(language)))
            return {};
        return tr("--language takes one of %1, not \"%2\".")
            .arg(known.join(QStringLiteral(", ")), parser.value(language));
    }

    QStringList models;
    QCommandLineParser parser;
    bool understood = false;

    QCommandLineOption help{{"h", "help"}, tr("Show this help and exit.")};
    QCommandLineOption version{{"v", "version"}, tr("Show the version and exit.")};
    QCommandLineOption list{"list", tr("List the cameras that are found and exit.")};
    QCommandLineOption camera{
        "camera",
        tr("Open the camera with this id, serial number or network address, or the first "
           "one found (\"first\")."),
        "ID"};
    QCommandLineOption simulate{
        "simulate",
        tr("Start a simulated camera of this model and open it (default: full; known: %1).")
            .arg(models.join(QStringLiteral(", "))),
        "MODEL"};
    QCommandLineOption acquire{
        "acquire",
        tr("Acquire images from the start (\"on\") or not (\"off\"). Default: "
           "off, and on for a screenshot."),
        "on|off"};
    QCommandLineOption plugins{
        "plugins",
        tr("Load the tab extensions from this folder (default: plugins, beside the "
           "program)."),
        "DIR"};
    QCommandLineOption screenshot{
        "screenshot",
        tr("Save the window as a PNG image once the tabs are filled and images arrive, and "
           "exit."),
        "FILE"};
    QCommandLineOption delay{"delay", tr("Wait this long before the screenshot (default: 1500)."),
                             "MS"};
    QCommandLineOption size{"size", tr("Size of the window in pixels."), "WxH"};
    QCommandLineOption palette{
        "palette", tr("Use this palette instead of the desktop's: light or dark."), "NAME"};
    QCommandLineOption language{"language",
                                tr("Speak this language instead of the desktop's: %1.")
                                    .arg(Language::codes().join(QStringLiteral(", "))),
                                "LANG"};
};

} // namespace

CommandLine readCommandLine(const QStringList& arguments, const QStringList& models)
{
    return Reader(arguments, models).result();
}
