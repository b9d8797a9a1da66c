#pragma once

namespace jsw {

/// The process's singletons: built when the first job starts, torn down when the last one ends.
class SingletonMgr {
  public:
    /// Throws when one of them cannot be built; what was built until then is torn down again.
    SingletonMgr();
    virtual ~SingletonMgr();
    SingletonMgr(const SingletonMgr&) = delete;
    SingletonMgr& operator=(const SingletonMgr&) = delete;
};

}  // namespace jsw
