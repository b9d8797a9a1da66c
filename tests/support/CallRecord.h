#pragma once

#include <algorithm>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace jsw::test {

/// The calls that a module received or made, in order, from any thread.
class CallRecord {
  public:
    void add(const std::string& call) {
        const std::lock_guard lock(lock_);
        calls_.push_back(call);
    }
    std::vector<std::string> calls() const {
        const std::lock_guard lock(lock_);
        return calls_;
    }
    bool has(const std::string& call) const {
        const std::lock_guard lock(lock_);
        return std::find(calls_.begin(), calls_.end(), call) != calls_.end();
    }
    /// The calls so far, which are forgotten.
    std::vector<std::string> take() {
        const std::lock_guard lock(lock_);
        return std::exchange(calls_, {});
    }
    void clear() { take(); }

  private:
    mutable std::mutex lock_;
    std::vector<std::string> calls_;
};

}  // namespace jsw::test
