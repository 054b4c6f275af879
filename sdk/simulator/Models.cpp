#include "sdk/simulator/Models.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace ZalSim {

namespace fs = std::filesystem;

namespace {

std::vector<fs::path> searchFolders()
{
    if (const char* folder = std::getenv("ZALSIM_MODEL_DIR"))
        return {folder};
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error).parent_path();
    return {program / "models", program.parent_path() / "bin" / "models"};
}

} // namespace

const std::vector<Model>& allModels()
{
    static const std::vector<Model> models = {
        {"full", "every trigger, line, counter, timer, action and clock feature",
         "Tarsel Imaging GmbH", "ZSim 2300 T", "Sim Series"},
        {"basic", "trigger and lines, but no counters, timers, signals or actions",
         "Tarsel Imaging GmbH", "ZSim 400 B", "Basic Series"},
        {"aliaslines", "lines called In1, In2, InOut1 and Out1; counters, but no timers",
         "Tarsel Imaging GmbH", "ZSim 500 C", "Basic Series"},
        {"foreign", "a smaller camera of another maker", "Nordlicht Optik AS", "NX-200", "NX"},
        {"notrigger", "a camera whose lines cannot be configured", "Tarsel Imaging GmbH",
         "ZSim 800 L", "Sim Series"},
    };
    return models;
}

const Model* findModel(const std::string& name)
{
    const auto& models = allModels();
    const auto found = std::find_if(models.begin(), models.end(),
                                    [&](const Model& model) { return model.name == name; });
    return found == models.end() ? nullptr : &*found;
}

std::string modelNames()
{
    std::string names;
    for (const Model& model : allModels())
        names += (names.empty() ? "" : ", ") + model.name;
    return names;
}

std::string descriptionFile(const Model& model, std::string& searched)
{
    for (const fs::path& folder : searchFolders()) {
        const fs::path file = folder / (model.name + ".xml");
        std::error_code error;
        if (fs::is_regular_file(file, error))
            return file.string();
        searched += (searched.empty() ? "" : " or ") + file.string();
    }
    return {};
}

} // namespace ZalSim
