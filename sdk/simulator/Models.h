#pragma once

#include <string>
#include <vector>

namespace ZalSim {

/// A kind of camera that can be simulated.
struct Model
{
    std::string name;    ///< As in Options::model; also the name of its description file.
    std::string summary; ///< One line for the user.
    std::string vendor;
    std::string product;
    std::string family;
};

const std::vector<Model>& allModels();

/// The model of that name, or null.
const Model* findModel(const std::string& name);

/// The names of all models in one line, for messages.
std::string modelNames();

/// The model's GenICam description: in $ZALSIM_MODEL_DIR if that is set, otherwise in the folder
/// "models" beside the program, or beside it in "bin". Empty when there is none; `searched` then
/// says where it should be.
std::string descriptionFile(const Model& model, std::string& searched);

} // namespace ZalSim
