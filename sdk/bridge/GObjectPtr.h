#pragma once

#include <glib-object.h>

#include <memory>

namespace ZalCPP {

/// Takes over one reference to a GObject; the last copy gives it back.
template <typename Object> std::shared_ptr<Object> adoptObject(Object* object)
{
    if (!object)
        return nullptr;
    return {object, [](Object* o) { g_object_unref(o); }};
}

} // namespace ZalCPP
