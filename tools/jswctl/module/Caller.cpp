#include "tools/jswctl/module/Caller.h"

#include "tools/jswctl/module/ReturnedMemory.h"

namespace jsw::ctl {

void Caller::free(const std::string& title, void* memory) const {
    if (memory == nullptr || returned::take(memory)) return;
    tell(trialline::fault(concat(title,
                                 " returns memory that was not allocated with the given function, "
                                 "or returns it twice; the host would crash")));
}

std::string Caller::answer(const std::string& title, char* text) const {
    if (text == nullptr) return kNoAnswer;
    std::string copy = text;
    free(title, text);
    return copy;
}

/// Stops where the library does: at a null pointer or an empty text.
std::string Caller::answer(const std::string& title, char** list) const {
    if (list == nullptr) return kNoAnswer;
    std::string all;
    for (char** next = list; *next != nullptr && **next != '\0'; ++next) {
        all += concat(all.empty() ? "" : ", ", answer(title, *next));
    }
    free(title, list);
    return all;
}

}  // namespace jsw::ctl
