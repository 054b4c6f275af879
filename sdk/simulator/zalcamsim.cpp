#include "sdk/simulator/Models.h"
#include "sdk/simulator/SimulatedCamera.h"

#include <glib-unix.h>
#include <glib.h>

#include <iostream>
#include <memory>

namespace {

enum ExitCode
{
    ExitOk = 0,
    ExitBadArguments = 2,
    ExitUnknownModel = 3,
    ExitNotStarted = 4
};

constexpr const char* Summary = "Serves a simulated GigE Vision camera until it is interrupted.";
constexpr const char* ExitCodes =
    "Exit codes: 0 interrupted or nothing to do, 2 bad arguments, 3 unknown model,\n"
    "4 the camera cannot be started (port in use, no such address, no description).";

struct Arguments
{
    char* model = nullptr;
    char* interface = nullptr;
    char* serial = nullptr;
    char* description = nullptr;
    gboolean list = FALSE;
    gboolean version = FALSE;

    ~Arguments()
    {
        for (char* text : {model, interface, serial, description})
            g_free(text);
    }
};

bool parse(int argc, char** argv, Arguments& arguments)
{
    const GOptionEntry entries[] = {
        {"model", 'm', 0, G_OPTION_ARG_STRING, &arguments.model, "Camera model (full)", "MODEL"},
        {"interface", 'i', 0, G_OPTION_ARG_STRING, &arguments.interface,
         "Address to listen on (127.0.0.1)", "ADDR"},
        {"serial", 's', 0, G_OPTION_ARG_STRING, &arguments.serial, "Serial number (SIM0001)",
         "SERIAL"},
        {"description", 'd', 0, G_OPTION_ARG_FILENAME, &arguments.description,
         "GenICam file to serve instead of the model's own", "FILE"},
        {"list", 'l', 0, G_OPTION_ARG_NONE, &arguments.list, "List the models", nullptr},
        {"version", 'v', 0, G_OPTION_ARG_NONE, &arguments.version, "Show the version", nullptr},
        {nullptr, 0, 0, G_OPTION_ARG_NONE, nullptr, nullptr, nullptr}};
    const std::unique_ptr<GOptionContext, decltype(&g_option_context_free)> context(
        g_option_context_new(nullptr), g_option_context_free);
    g_option_context_set_summary(context.get(), Summary);
    g_option_context_set_description(context.get(), ExitCodes);
    g_option_context_add_main_entries(context.get(), entries, nullptr);
    GError* error = nullptr;
    const bool parsed = g_option_context_parse(context.get(), &argc, &argv, &error);
    if (!parsed)
        std::cerr << "zalcamsim: " << error->message << '\n';
    else if (argc > 1)
        std::cerr << "zalcamsim: unexpected argument \"" << argv[1] << "\"\n";
    g_clear_error(&error);
    return parsed && argc == 1;
}

ZalSim::Options toOptions(const Arguments& arguments)
{
    ZalSim::Options options;
    const auto take = [](const char* text, std::string& option) {
        if (text)
            option = text;
    };
    take(arguments.model, options.model);
    take(arguments.interface, options.interface);
    take(arguments.serial, options.serial);
    take(arguments.description, options.descriptionFile);
    return options;
}

gboolean quit(void* loop)
{
    g_main_loop_quit(static_cast<GMainLoop*>(loop));
    return G_SOURCE_CONTINUE;
}

/// From its construction on a signal ends wait() instead of the process.
class Interruption
{
public:
    Interruption()
    {
        g_unix_signal_add(SIGINT, quit, m_loop.get());
        g_unix_signal_add(SIGTERM, quit, m_loop.get());
    }

    void wait() { g_main_loop_run(m_loop.get()); }

private:
    std::unique_ptr<GMainLoop, decltype(&g_main_loop_unref)> m_loop{g_main_loop_new(nullptr, FALSE),
                                                                    g_main_loop_unref};
};

int serve(const ZalSim::Options& options)
{
    Interruption interruption;
    std::string error;
    const auto camera = ZalSim::SimulatedCamera::start(options, error);
    if (!camera) {
        std::cerr << "zalcamsim: " << error << '\n';
        return ZalSim::findModel(options.model) ? ExitNotStarted : ExitUnknownModel;
    }
    // Whoever started the program waits for this line.
    std::cout << options.model << " camera " << options.serial << " listening on "
              << camera->cameraId() << std::endl;
    interruption.wait();
    return ExitOk;
}

void listModels()
{
    for (const ZalSim::Model& model : ZalSim::allModels())
        std::cout << model.name << ": " << model.vendor << ' ' << model.product << ", "
                  << model.summary << '\n';
}

} // namespace

int main(int argc, char** argv)
{
    Arguments arguments;
    if (!parse(argc, argv, arguments))
        return ExitBadArguments;
    if (arguments.version)
        std::cout << "zalcamsim " ZALSIM_VERSION "\n";
    else if (arguments.list)
        listModels();
    else
        return serve(toOptions(arguments));
    return ExitOk;
}
