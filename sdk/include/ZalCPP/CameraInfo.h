#pragma once

#include <string>

namespace ZalCPP {

/// What is known of a camera before it is opened. A field is empty where the camera does not say.
struct CameraInfo
{
    std::string id;      ///< Opens the camera; unique among the cameras found.
    std::string vendor;  ///< The maker's name.
    std::string model;   ///< The model's name.
    std::string serial;  ///< The serial number, as text.
    std::string address; ///< Its network address, or what stands for one elsewhere.
};

} // namespace ZalCPP
