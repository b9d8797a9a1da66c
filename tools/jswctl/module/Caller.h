#pragma once

#include "PublicLib/text/Text.h"
#include "PublicLib/win/EntryPoint.h"
#include "tools/jswctl/module/ModuleFacts.h"
#include "tools/jswctl/module/TrialLines.h"
#include <jsw/module.h>

#include <windows.h>

#include <chrono>
#include <string>

namespace jsw::ctl {

/// Reports of the process that tests a module to its parent.
class Teller {
  public:
    explicit Teller(HANDLE pipe) : pipe_(pipe) {}

    void tell(const std::string& line) const {
        DWORD written = 0;
        WriteFile(pipe_, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
    }

    /// Reports the beginning of a call, makes it, and reports its duration and its result as text.
    template <class Call>
    std::string timed(const std::string& name, const Call& call) const {
        tell(trialline::begin(name));
        const auto begin = std::chrono::steady_clock::now();
        std::string answer = call();
        const std::chrono::duration<double, std::milli> time =
            std::chrono::steady_clock::now() - begin;
        tell(trialline::end(time.count(), answer));
        return answer;
    }

  private:
    HANDLE pipe_;
};

/// Calls entry points of one module; skips missing ones.
class Caller {
  public:
    Caller(const Teller& teller, HMODULE module) : teller_(teller), module_(module) {}

    /// Calls an entry point without result.
    template <class Function, class... Args>
    void call(const char* name, const Args&... args) const {
        use<Function>(name, name, [&](Function* entry) {
            entry(args...);
            return std::string();
        });
    }

    /// Calls an entry point and returns its result as text; frees the result's memory, which must
    /// be from returned::allocate().
    /// @param shown  the text in brackets after the name, such as a billboard's id
    template <class Function, class... Args>
    std::string ask(const char* name, const std::string& shown, const Args&... args) const {
        const std::string title = shown.empty() ? name : concat(name, "(", shown, ")");
        return use<Function>(name, title,
                             [&](Function* entry) { return answer(title, entry(args...)); });
    }

    void tell(const std::string& line) const { teller_.tell(line); }

  private:
    template <class Function, class Work>
    std::string use(const char* name, const std::string& title, const Work& work) const {
        auto* entry = findEntryPoint<Function>(module_, name);
        if (entry == nullptr) return {};
        return teller_.timed(title, [&] {
            try {
                return work(entry);
            } catch (...) {
                return std::string(kException);
            }
        });
    }

    std::string answer(const std::string& title, char* text) const;
    std::string answer(const std::string& title, char** list) const;
    static std::string answer(const std::string& /*title*/, JswBool flag) {
        return flag != 0 ? kYes : "no";
    }
    template <class Number>
    static std::string answer(const std::string& /*title*/, Number number) {
        return concat(number);
    }
    void free(const std::string& title, void* memory) const;

    const Teller& teller_;
    HMODULE module_;
};

}  // namespace jsw::ctl
