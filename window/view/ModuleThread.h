/**
 * @file ModuleThread.h
 * Threads of this module. They keep it loaded until they have ended.
 */
#pragma once

#include <functional>

namespace jsw::window {

/**
 * Runs the work on a new thread and catches its exceptions. False if no thread can be started; then
 * the work is not done.
 */
[[nodiscard]] bool startModuleThread(std::function<void()> work);

}  // namespace jsw::window
