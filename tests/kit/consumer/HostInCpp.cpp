// A driver's program in C++: one job, and which version of the library it was built for.
#include <jsw/jsw.h>

#include <iostream>
#include <iterator>

int main() {
    constexpr InkInfo ink = JSW_INK_UNKNOWN;
    std::cout << "built for " << JSW_VERSION_STRING << ", interface " << JSWGetAPIVersion() << '\n';
    static_assert(JSW_VERSION >= 10000 && std::size(InkInfo{}.InkPercent) == JSW_INK_SLOTS);
    const bool started = JSWInit("Office printer", "book.pdf", 0, 1, 1, 1, 1, &ink, 0, 1,
                                 [](std::uint32_t status) { std::cout << status << '\n'; }) != 0;
    std::cout << "JSWInit answered " << started << '\n';
    JSWTerminate();
    return started ? 0 : 1;
}
