#pragma once

namespace jsw {

/// The process's singletons: built when the first job starts, torn down when the last one ends.
class SingletonMgr {
  public:
    /// Throws if one of them cannot be built, after tearing down those built so far.
    SingletonMgr();
    virtual ~SingletonMgr();
    SingletonMgr(const SingletonMgr&) = delete;
    SingletonMgr& operator=(const SingletonMgr&) = delete;
};

}  // namespace jsw
