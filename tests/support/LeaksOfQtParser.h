#pragma once

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

/// The JSON parser of Qt 5.15 loses memory on objects that have a member twice. Nothing that this
/// thread allocates while one of these lives counts as leaked.
class LeaksOfQtParser
{
public:
#ifdef __SANITIZE_ADDRESS__
    LeaksOfQtParser()
    {
        __lsan_disable();
    }
    ~LeaksOfQtParser()
    {
        __lsan_enable();
    }
#else
    LeaksOfQtParser() = default;
    ~LeaksOfQtParser() = default;
#endif
    LeaksOfQtParser(const LeaksOfQtParser&) = delete;
    LeaksOfQtParser& operator=(const LeaksOfQtParser&) = delete;
};
