#pragma once

#include "PublicLib/calls/SehFrame.h"
#include "PublicLib/logging/Guard.h"

#include <optional>

namespace jsw {

class ForeignCall;

/// Stands at each entry of the library: around an exported function, a callback that a module was
/// given, and the run of a thread of the library's own. What the library knows of a thread, it
/// knows through the guards on that thread's stack; the innermost one is found by thread-local
/// storage.
///
/// A C++ exception of the library ends here, with a line in the log.
///
/// A structured exception that comes out of foreign code, such as an access violation, is the
/// host's to handle or to die of. When the host handles it, the library's frames must not just
/// vanish: their locks would stay held. So the exception is caught at the call of the foreign code
/// (callForeign()), the library is left in order, without calling foreign code any more, and the
/// guard raises the exception again for the host.
class EntryGuard : public SehFrame {
  public:
    /// Runs work inside a guard. Does not return when there is an exception to raise again.
    template <class Work>
    static void run(const LoggerComponent& component, const char* where, const Work& work) {
        struct Guard final : EntryGuard {
            const LoggerComponent& component;
            const char* where;
            const Work& work;
            Guard(const LoggerComponent& c, const char* place, const Work& todo)
                : component(c), where(place), work(todo) {}
            static void runWork(SehFrame& frame) {
                const auto& self = static_cast<Guard&>(frame);
                try {
                    self.work();
                } catch (...) {
                    reportException(self.component, self.where);
                }
            }
        } guard(component, where, work);
        jswRunInSehFrame(guard, &Guard::runWork);
        guard.leave();
        guard.reraiseToHost();
    }

    EntryGuard(const EntryGuard&) = delete;
    EntryGuard& operator=(const EntryGuard&) = delete;

  protected:
    EntryGuard();
    ~EntryGuard() = default;

  private:
    friend class ForeignCall;
    friend class NoWaiting;

    /// The innermost guard of this thread; null outside the library.
    static EntryGuard* current();

    /// An exception comes out of foreign code. False when that is known already, from a call
    /// further in or from a guard there that raises it again.
    bool note(const EXCEPTION_RECORD& exception);
    bool catchNow(const EXCEPTION_RECORD& exception) override;
    bool catchOnUnwind() override;
    void leave();
    void reraiseToHost() const;

    EntryGuard* const outer_;
    std::optional<EXCEPTION_RECORD> exception_;  // the last one that came out of foreign code
    bool mustReraise_ = false;                   // exception_, when the library has been left
    bool mustNotWait_ = false;                   // see NoWaiting
};

}  // namespace jsw
