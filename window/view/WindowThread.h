/**
 * @file WindowThread.h
 * The thread that a job's window lives on.
 */
#pragma once

#include "window/view/ViewState.h"

#include <memory>

namespace jsw::view {

/**
 * Starts a thread that shows the job's window until the job is closed. ViewState::show has asked
 * for it; ViewState::threadEnded is called in any case, also when no thread can be started.
 */
void startWindowThread(const std::shared_ptr<ViewState>& state);

}  // namespace jsw::view
