#pragma once

#include <windows.h>

#include <concepts>
#include <string>
#include <utility>
#include <vector>

namespace jsw::test {

/// The functions that a loaded library imports from others, and the thunks through which it calls
/// them. Writing a thunk over changes what that library calls, and nobody else: a replacement
/// reaches the real function by calling it as ever.
class ImportTable {
  public:
    struct Import {
        std::string library;  ///< as the table spells it, for example "KERNEL32.dll"
        std::string name;
        void** thunk;
    };

    /// @param library  must stay loaded for as long as its thunks are used
    explicit ImportTable(HMODULE library);

    /// All imported functions in the order of the table; imported variables are left out.
    const std::vector<Import>& functions() const { return functions_; }
    /// The thunk of a function.
    /// @throws std::invalid_argument when the library does not import it
    void** thunk(const std::string& name) const;

  private:
    std::vector<Import> functions_;
};

/// Sends the calls through one thunk somewhere else; the destructor restores what was there.
class ThunkOverride {
  public:
    ThunkOverride(void** thunk, void* target);
    ~ThunkOverride();
    ThunkOverride(const ThunkOverride&) = delete;
    ThunkOverride& operator=(const ThunkOverride&) = delete;

    /// What was there.
    void* before() const { return before_; }

  private:
    void** thunk_;
    void* before_;
};

/// See replaceImport.
template <class Function, class Replacement>
class ReplacedImport;

template <class Result, class... Arguments, class Replacement>
class ReplacedImport<Result(Arguments...), Replacement> {
  public:
    ReplacedImport(const ImportTable& table, const std::string& name, Replacement replacement)
        : replacement_(std::move(replacement)),
          override_(table.thunk(name), reinterpret_cast<void*>(&call)) {
        current_ = this;
    }

  private:
    using Original = Result(WINAPI*)(Arguments...);

    static Result WINAPI call(Arguments... arguments) {
        if constexpr (std::invocable<Replacement, Original, Arguments...>) {
            const auto original = reinterpret_cast<Original>(current_->override_.before());
            return current_->replacement_(original, arguments...);
        } else {
            return current_->replacement_(arguments...);
        }
    }

    static inline ReplacedImport* current_ = nullptr;  // one at a time for each place in a test
    Replacement replacement_;
    ThunkOverride override_;
};

/// Puts a callable of the same shape in the place of an imported function until the answer goes out
/// of scope. Any thread of the library may call it; none may be inside it when it goes.
///     const auto shell = replaceImport<decltype(ShellExecuteExA)>(
///         imports, "ShellExecuteExA", [&](SHELLEXECUTEINFOA* info) { … return TRUE; });
/// One that wants to call the real function takes it as its first argument.
template <class Function, class Replacement>
auto replaceImport(const ImportTable& table, const std::string& name, Replacement replacement) {
    return ReplacedImport<Function, Replacement>(table, name, std::move(replacement));
}

}  // namespace jsw::test
