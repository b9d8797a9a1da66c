#include "tools/qldemo/Console.h"

#include <cstdio>

namespace jsw::qldemo {

void Console::startClock() {
    const std::lock_guard lock(mutex_);
    start_ = std::chrono::steady_clock::now();
}

double Console::elapsed() const {
    const std::lock_guard lock(mutex_);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
}

void Console::line(const std::string& who, const std::string& text) {
    char head[40] = {};
    std::snprintf(head, sizeof head, "[%6.2f] %-8.8s ", elapsed(), who.c_str());
    write(head + text);
}

void Console::plain(const std::string& text) {
    write(text);
}

void Console::write(const std::string& text) {
    const std::lock_guard lock(mutex_);
    std::puts(text.c_str());
    // Readers of a pipe act on single lines.
    std::fflush(stdout);
}

Console& console() {
    static Console instance;
    return instance;
}

}  // namespace jsw::qldemo
