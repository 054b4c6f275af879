#pragma once

#include <ZalCPP/Camera.h>
#include <ZalCPP/CameraInfo.h>
#include <ZalCPP/Export.h>

#include <memory>
#include <string>
#include <vector>

namespace ZalCPP {

/// Finds and opens cameras (GigE Vision and USB3 Vision). Any thread.
class ZALCPP_EXPORT CameraSystem
{
public:
    /// The cameras found now; takes about as long as the network discovery does.
    static std::vector<CameraInfo> List();

    /// Opens the camera whose id, serial number or network address is `id`, or the first one found
    /// when `id` is empty. On failure returns null and sets `error` to a sentence for the user. A
    /// camera that does not tell which of its features are implemented cannot be opened, nor one
    /// whose description cannot be read to its end.
    static std::unique_ptr<Camera> Open(const std::string& id, std::string& error);
};

} // namespace ZalCPP
