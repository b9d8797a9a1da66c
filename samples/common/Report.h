#pragma once

#include <windows.h>

#include <string>

namespace jsw::sample {

/** Tells a developer what is wrong with a file; modules have no other place to say it. */
inline void report(const std::string& text) {
    OutputDebugStringA(("jsw sample module: " + text + "\n").c_str());
}

}  // namespace jsw::sample
