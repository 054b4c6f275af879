// Serves the nasty camera in a process of its own, so that a test can stop or kill it. Says "ready"
// and ends when its input is closed.
#include "tests/sdk/bridge/NastyCamera.h"

#include <iostream>
#include <string>

int main()
{
    NastyCamera camera;
    camera.reset();
    std::cout << "ready" << std::endl;
    for (std::string line; std::getline(std::cin, line);) {
    }
    return 0;
}
