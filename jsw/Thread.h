#pragma once

#include "PublicLib/win/Handles.h"

#include <cstdint>

namespace jsw {

/// Something that a thread runs.
class Runnable {
  public:
    virtual ~Runnable() = default;
    virtual void run() = 0;
};

/// Runs a member function that takes no arguments.
template <class T>
class RunnableMethod : public Runnable {
  public:
    /// @param object  must outlive the run
    RunnableMethod(T* object, void (T::*method)()) : object_(object), method_(method) {}
    void run() override { (object_->*method_)(); }

  private:
    T* object_;
    void (T::*method_)();
};

/// A thread of this process. Not started before launch().
class Thread {
  public:
    /// @param runnable  not owned; must outlive the thread
    explicit Thread(Runnable* runnable);
    /// Waits for the thread to end.
    virtual ~Thread();
    Thread(const Thread&) = delete;
    Thread& operator=(const Thread&) = delete;

    /// Starts the thread. Throws Win32Exception if it cannot be created.
    void launch();

    /// Waits at most timeoutMilliseconds; with INFINITE it keeps serving the messages sent to the
    /// calling thread's windows. True if the thread has ended.
    bool wait(std::uint32_t timeoutMilliseconds) const;

    static constexpr std::uint32_t kDefaultStackSize = 4096;

  private:
    static unsigned __stdcall entry(void* argument);

    Runnable* runnable_;
    KernelHandle handle_;
};

}  // namespace jsw
