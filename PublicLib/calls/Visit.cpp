#include "PublicLib/calls/Visit.h"

#include "PublicLib/NeverDestroyed.h"
#include "PublicLib/calls/FramedCall.h"
#include "PublicLib/locks/ThreadScoped.h"

#include <array>

namespace jsw {

namespace {

struct VisitState {
    EXCEPTION_RECORD exception;  ///< to be sent on; the code is 0 while there is none
    alignas(void*) std::array<std::byte, Visit::kRuntimeStateSize> runtime;
};
using Visits = ThreadScoped<VisitState>;

NeverDestroyed<Visits> visits;

void sendOn(const EXCEPTION_RECORD& exception) {
    RaiseException(exception.ExceptionCode, exception.ExceptionFlags & EXCEPTION_NONCONTINUABLE,
                   exception.NumberParameters, exception.ExceptionInformation);
}

}  // namespace

bool Visit::hasException() {
    const VisitState* visit = visits->innermost();
    return visit != nullptr && visit->exception.ExceptionCode != 0;
}

bool Visit::keepException(const EXCEPTION_RECORD& exception) {
    VisitState* visit = visits->innermost();
    if (visit != nullptr) visit->exception = exception;
    return visit != nullptr;
}

void* Visit::runtimeState() {
    VisitState* visit = visits->innermost();
    return visit != nullptr ? visit->runtime.data() : nullptr;
}

void Visit::make(const Body& body) {
    class Call : public FramedCall {
      public:
        explicit Call(const Body& body) : body_(body), scope_(*visits) {}
        const EXCEPTION_RECORD& exception() const { return scope_.value.exception; }
        void end() { scope_.leave(); }

        void run() override { body_.run(); }
        bool endsHere(const EXCEPTION_RECORD& /*exception*/) override { return false; }
        /// The library's own frames, this one among them, go without their destructors.
        bool stopsHere(const EXCEPTION_RECORD& /*exception*/) override {
            end();
            return false;
        }

      private:
        const Body& body_;
        Visits::Scope scope_;
    };
    EXCEPTION_RECORD exception{};
    {
        Call call(body);
        runInFrame(call);
        exception = call.exception();
    }
    if (exception.ExceptionCode != 0) sendOn(exception);
}

}  // namespace jsw
