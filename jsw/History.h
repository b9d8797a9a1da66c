#pragma once

#include "PublicLib/locks/CriticalSection.h"
#include "jsw/settings/Settings.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <set>
#include <string>

namespace jsw {

class MethodTrace;

/// The billboards that were shown, oldest first, stored in the registry between jobs. Every thread
/// may use it. Failures of the registry are logged, never raised.
class History {
  public:
    static std::shared_ptr<History> instance();
    static void destroy();

    /// Reads the list that earlier jobs have stored.
    History();
    /// Saves the list, unless it was empty when read and nothing was added.
    ~History();
    History(const History&) = delete;
    History& operator=(const History&) = delete;

    void read();
    /// Writes the list and removes the other values that read() has found. Values that another
    /// process has added since then stay.
    void save();
    /// Appends an id, which becomes the current one; removes the oldest if there are too many.
    void add(const std::string& bbId);
    std::int32_t size() const;
    bool isPresentInHistory(const std::string& bbId) const;
    /// Moves to the id before or after the current one, around the ends; empty in an empty list.
    std::string getPrevious();
    std::string getNext();
    /// The index before or after one, around the ends; the list must not be empty.
    std::uint32_t prev(std::uint32_t index) const;
    std::uint32_t next(std::uint32_t index) const;
    /// Empties the list, in the registry too.
    void clear();

  private:
    std::uint32_t count() const { return static_cast<std::uint32_t>(ids_.size()); }
    void readMaxSize();
    std::string idsPath() const { return settings_.getKeyPath(false) + setting::kHistoryIdsKey; }
    void removeStaleIds(MethodTrace& trace);
    std::string moveTo(std::uint32_t (History::*neighbour)(std::uint32_t) const);

    mutable CriticalSection lock_;  // of all that follows
    std::deque<std::string> ids_;
    std::set<std::string> ownNames_;  // of the stored values, in lower case
    std::int32_t current_ = -1;
    std::uint32_t maxSize_ = setting::kHistoryMaxSize.defaultValue;
    bool dirty_ = false;
    Settings settings_;
};

}  // namespace jsw
