#include "host/CommandLine.h"

#include "host/ExitCode.h"
#include "host/Language.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

constexpr QSize SmallestWindow(640, 480);
constexpr QSize LargestWindow(7680, 4320);

/// The command line as a table of options, and the checks that the table cannot express. Each
/// check returns a sentence about what is wrong, or nothing.
class Reader
{
    Q_DECLARE_TR_FUNCTIONS(CommandLine)

public:
    Reader(const QStringList& arguments, const QStringList& models) : m_models(models)
    {
        m_parser.setApplicationDescription(
            tr("Shows a camera's live image, and the tab extensions that support the camera.\n"
               "Without --camera and --simulate it starts a simulated camera of its own."));
        m_parser.addOptions({m_help, m_version, m_list, m_camera, m_simulate, m_acquire, m_plugins,
                             m_screenshot, m_delay, m_size, m_palette, m_language});
        m_understood = m_parser.parse(arguments);
    }

    CommandLine result()
    {
        CommandLine line;
        if (!m_understood) {
            reject(line, sentence(m_parser.errorText()));
        } else if (m_parser.isSet(m_help)) {
            show(line, m_parser.helpText() + exitCodes());
        } else if (m_parser.isSet(m_version)) {
            show(line, QStringLiteral("ZalViewer " ZALVIEWER_VERSION));
        } else if (QString fault = readOptions(line.options); !fault.isEmpty()) {
            reject(line, fault);
        } else if (m_parser.isSet(m_list)) {
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
        const QStringList rest = m_parser.positionalArguments();
        return rest.isEmpty() ? QString() : tr("Unexpected argument \"%1\".").arg(rest.first());
    }

    QString readCamera(ViewerOptions& options) const
    {
        if (m_parser.isSet(m_camera) && m_parser.isSet(m_simulate))
            return tr("--camera and --simulate exclude each other.");
        return m_parser.isSet(m_camera) ? readCameraId(options.camera) : readModel(options.camera);
    }

    QString readCameraId(Cameras::Source& source) const
    {
        const QString id = m_parser.value(m_camera);
        if (id.isEmpty())
            return tr("--camera needs an id, a serial number, an address or \"first\".");
        const bool isFirst = id == QLatin1String("first");
        source = {Cameras::Source::Kind::Found, isFirst ? std::string() : id.toStdString()};
        return {};
    }

    QString readModel(Cameras::Source& source) const
    {
        if (m_parser.isSet(m_simulate))
            source.name = m_parser.value(m_simulate).toStdString();
        const QString model = QString::fromStdString(source.name);
        if (m_models.contains(model))
            return {};
        return tr("There is no simulated model \"%1\". Known models: %2.")
            .arg(model, m_models.join(QStringLiteral(", ")));
    }

    QString readAcquire(ViewerOptions& options) const
    {
        // A screenshot is meant to show an image.
        options.acquire = m_parser.isSet(m_screenshot);
        if (!m_parser.isSet(m_acquire))
            return {};
        const QString value = m_parser.value(m_acquire);
        options.acquire = value == QLatin1String("on");
        return options.acquire || value == QLatin1String("off")
                   ? QString()
                   : tr("--acquire takes \"on\" or \"off\", not \"%1\".").arg(value);
    }

    QString readPlugins(ViewerOptions& options) const
    {
        if (!m_parser.isSet(m_plugins))
            return {};
        const QFileInfo folder(m_parser.value(m_plugins));
        options.pluginFolder = folder.absoluteFilePath();
        return folder.isDir() ? QString() : tr("There is no folder \"%1\".").arg(folder.filePath());
    }

    QString readShot(ViewerOptions& options) const
    {
        if (m_parser.isSet(m_screenshot)) {
            if (m_parser.value(m_screenshot).isEmpty())
                return tr("--screenshot needs the name of a file.");
            options.screenshotFile = QFileInfo(m_parser.value(m_screenshot)).absoluteFilePath();
        }
        return m_parser.isSet(m_delay) ? readDelay(options) : QString();
    }

    QString readDelay(ViewerOptions& options) const
    {
        if (!m_parser.isSet(m_screenshot))
            return tr("--delay is for --screenshot only.");
        bool ok = false;
        options.screenshotDelay = m_parser.value(m_delay).toInt(&ok);
        return ok && options.screenshotDelay >= 0 && options.screenshotDelay <= 60000
                   ? QString()
                   : tr("--delay takes 0 to 60000 milliseconds, not \"%1\".")
                         .arg(m_parser.value(m_delay));
    }

    QString readSize(ViewerOptions& options) const
    {
        if (!m_parser.isSet(m_size))
            return {};
        static const QRegularExpression pattern(QStringLiteral("^(\\d{1,5})x(\\d{1,5})$"));
        const QRegularExpressionMatch match = pattern.match(m_parser.value(m_size));
        options.windowSize = QSize(match.captured(1).toInt(), match.captured(2).toInt());
        const bool fits = options.windowSize.boundedTo(LargestWindow) == options.windowSize &&
                          options.windowSize.expandedTo(SmallestWindow) == options.windowSize;
        return fits ? QString()
                    : tr("--size takes a size from 640x480 to 7680x4320, not \"%1\".")
                          .arg(m_parser.value(m_size));
    }

    QString readPalette(ViewerOptions& options) const
    {
        if (!m_parser.isSet(m_palette))
            return {};
        options.palette = m_parser.value(m_palette);
        const bool known = QStringList{"light", "dark"}.contains(options.palette);
        return known
                   ? QString()
                   : tr("--palette takes \"light\" or \"dark\", not \"%1\".").arg(options.palette);
    }

    // The language itself is chosen before the first text is made.
    QString readLanguage(ViewerOptions&) const
    {
        const QStringList known = Language::codes();
        if (!m_parser.isSet(m_language) || known.contains(m_parser.value(m_language)))
            return {};
        return tr("--language takes one of %1, not \"%2\".")
            .arg(known.join(QStringLiteral(", ")), m_parser.value(m_language));
    }

    QStringList m_models;
    QCommandLineParser m_parser;
    bool m_understood = false;

    QCommandLineOption m_help{{"h", "help"}, tr("Show this help and exit.")};
    QCommandLineOption m_version{{"v", "version"}, tr("Show the version and exit.")};
    QCommandLineOption m_list{"list", tr("List the cameras that are found and exit.")};
    QCommandLineOption m_camera{
        "camera",
        tr("Open the camera with this id, serial number or network address, or the first "
           "one found (\"first\")."),
        "ID"};
    QCommandLineOption m_simulate{
        "simulate",
        tr("Start a simulated camera of this model and open it (default: full; known: %1).")
            .arg(m_models.join(QStringLiteral(", "))),
        "MODEL"};
    QCommandLineOption m_acquire{
        "acquire",
        tr("Acquire images from the start (\"on\") or not (\"off\"). Default: "
           "off, and on for a screenshot."),
        "on|off"};
    QCommandLineOption m_plugins{
        "plugins",
        tr("Load the tab extensions from this folder (default: plugins, beside the "
           "program)."),
        "DIR"};
    QCommandLineOption m_screenshot{
        "screenshot",
        tr("Save the window as a PNG image once the tabs are filled and images arrive, and "
           "exit."),
        "FILE"};
    QCommandLineOption m_delay{"delay", tr("Wait this long before the screenshot (default: 1500)."),
                               "MS"};
    QCommandLineOption m_size{"size", tr("Size of the window in pixels."), "WxH"};
    QCommandLineOption m_palette{
        "palette", tr("Use this palette instead of the desktop's: light or dark."), "NAME"};
    QCommandLineOption m_language{"language",
                                  tr("Speak this language instead of the desktop's: %1.")
                                      .arg(Language::codes().join(QStringLiteral(", "))),
                                  "LANG"};
};

} // namespace

CommandLine readCommandLine(const QStringList& arguments, const QStringList& models)
{
    return Reader(arguments, models).result();
}
