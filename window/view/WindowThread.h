/**
 * @file WindowThread.h
 * The thread of a job's window.
 */
#pragma once

#include "window/view/ViewState.h"

#include <memory>

namespace jsw::window {

/**
 * Starts a thread that shows the job's window until the job is closed, as requested by
 * ViewState::show. ViewState::threadEnded is always called, even if no thread can be started.
 */
void startWindowThread(const std::shared_ptr<ViewState>& state);

}  // namespace jsw::window
