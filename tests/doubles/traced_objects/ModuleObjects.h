// Stands before the header of the same name when the source of the module's objects is compiled for
// traced_objects: the objects get types that print their construction and destruction.
#pragma once

#include <windows.h>

#include <cstdio>
#include <string>

enum class Kind { Language, Atlas, Text, Application };

template <Kind kind> struct Traced {
    Traced() { std::printf("+%s\n", Name()); }
    Traced(const Traced&) = delete;
    Traced& operator=(const Traced&) = delete;
    ~Traced() { std::printf("-%s\n", Name()); }
    static const char* Name()
    {
        switch (kind) {
        case Kind::Language:
            return "language";
        case Kind::Atlas:
            return "atlas";
        case Kind::Text:
            return "text";
        default:
            return "application";
        }
    }
};

using k_GlossaW = Traced<Kind::Language>;
using k_StyleAtlas = Traced<Kind::Atlas>;
using CString = Traced<Kind::Text>;
using CStyleAtlasApp = Traced<Kind::Application>;
