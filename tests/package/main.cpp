#include <ZalCPP/Camera.h>
#include <ZalCPP/CameraSystem.h>
#include <ZalCPP/ZalTypes.h>

#include <iostream>
#include <memory>
#include <string>

namespace {

int openAndListFeatures(const std::string& id)
{
    std::string error;
    const std::unique_ptr<ZalCPP::Camera> camera = ZalCPP::CameraSystem::Open(id, error);
    if (!camera) {
        std::cerr << error << '\n';
        return 1;
    }
    std::cout << camera->Info().model << ": " << camera->Features()->size() << " features\n";
    return 0;
}

} // namespace

/// Lists the features of the camera that is named; without one, says what a closed camera answers.
int main(int argumentCount, char** arguments)
{
    if (argumentCount > 1)
        return openAndListFeatures(arguments[1]);
    std::cout << ZalCPP::ErrorText(ZalErrorNotOpen) << '\n';
    return 0;
}
