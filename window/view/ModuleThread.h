/**
 * @file ModuleThread.h
 * Threads of this module. They keep it loaded until they have ended.
 */
#pragma once

#include <functional>

namespace jsw::view {

/**
 * Runs the work on a thread of its own; nothing thrown gets out of it. False when no thread can be
 * started: the work has then not been done.
 */
[[nodiscard]] bool startModuleThread(std::function<void()> work);

}  // namespace jsw::view
