#include "window/view/WindowThread.h"

#include "window/view/ModuleThread.h"
#include "window/view/Window.h"

namespace jsw::window {
namespace {

/** Calls ViewState::threadEnded when the thread, or the attempt to start it, ends. */
class EndNotice {
  public:
    explicit EndNotice(ViewState& state) : state_(state) {}
    ~EndNotice() { state_.threadEnded(); }
    EndNotice(const EndNotice&) = delete;
    EndNotice& operator=(const EndNotice&) = delete;

  private:
    ViewState& state_;
};

void showWindow(const std::shared_ptr<ViewState>& state) {
    const EndNotice notice(*state);
    Window(state).run();
}

}  // namespace

void startWindowThread(const std::shared_ptr<ViewState>& state) {
    bool started = false;
    try {
        started = startModuleThread([state] { showWindow(state); });
    } catch (...) {
        // Out of memory: the job continues without a window.
    }
    if (!started) state->threadEnded();
}

}  // namespace jsw::window
