#pragma once

#include <windows.h>

#include <concepts>
#include <string>
#include <utility>
#include <vector>

namespace jsw::test {

/// The functions that a loaded library imports, and the thunks through which it calls them.
/// Overwriting a thunk affects only that library: a replacement can call the real function
/// normally.
class ImportTable {
  public:
    struct Import {
        std::string library;  ///< as in the table, for example "KERNEL32.dll"
        std::string name;
        void** thunk;
    };

    /// @param library  must stay loaded while its thunks are used
    explicit ImportTable(HMODULE library);

    /// All imported functions in the table's order, without imported variables.
    const std::vector<Import>& functions() const { return functions_; }
    /// The thunk of a function.
    /// @throws std::invalid_argument if the library does not import it
    void** thunk(const std::string& name) const;

  private:
    std::vector<Import> functions_;
};

/// Redirects the calls through one thunk; the destructor restores it.
class ThunkOverride {
  public:
    ThunkOverride(void** thunk, void* target);
    ~ThunkOverride();
    ThunkOverride(const ThunkOverride&) = delete;
    ThunkOverride& operator=(const ThunkOverride&) = delete;

    /// The original function.
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

    static inline ReplacedImport* current_ = nullptr;  // one at a time per place in a test
    Replacement replacement_;
    ThunkOverride override_;
};

/// Replaces an imported function by a callable with the same signature until the returned object is
/// destroyed. Any thread of the library may call it; none may be inside it at destruction.
///     const auto shell = replaceImport<decltype(ShellExecuteExA)>(
///         imports, "ShellExecuteExA", [&](SHELLEXECUTEINFOA* info) { … return TRUE; });
/// A callable that needs the real function takes it as its first argument.
template <class Function, class Replacement>
auto replaceImport(const ImportTable& table, const std::string& name, Replacement replacement) {
    return ReplacedImport<Function, Replacement>(table, name, std::move(replacement));
}

}  // namespace jsw::test
