#include "jsw/History.h"

#include "PublicLib/errors/Exception.h"
#include "PublicLib/locks/Singleton.h"
#include "PublicLib/logging/Guard.h"
#include "PublicLib/logging/MethodTrace.h"
#include "jsw/settings/RegistryKey.h"

#include <windows.h>

#include <algorithm>
#include <mutex>
#include <string_view>

namespace jsw {

namespace {

constexpr std::string_view kIdPrefix = "Id";

std::string valueName(std::uint32_t position) {
    return concat(kIdPrefix, position);
}

}  // namespace

std::shared_ptr<History> History::instance() {
    MethodTrace trace(component::kJsw, "History::instance: ");
    return singleton<History>->instance([&] {
        trace.add("instantiating History.");
        return std::make_shared<History>();
    });
}

void History::destroy() {
    MethodTrace trace(component::kJsw, "History::destroy: ");
    const auto leaving = singleton<History>->existing();
    singleton<History>->destroy([&] { trace.add("destroying History."); });
    // A thread that still holds the history destroys and saves it later, but the next job must
    // already read the present list.
    if (leaving.use_count() > 1) {
        runGuarded(component::kJsw, "History::save", [&] { leaving->save(); });
    }
}

History::History() {
    MethodTrace trace(component::kJsw, "History::History: ");
    read();
}

History::~History() {
    runGuarded(component::kJsw, "History::~History", [this] {
        MethodTrace trace(component::kJsw, "History::~History: ");
        save();
    });
}

/// A missing number is normal; one of another type is logged as an error.
void History::readMaxSize() {
    try {
        std::uint32_t maxSize = 0;
        const RegistryKey key(settings_.getKeyPath(false) + setting::kHistoryMaxSize.key, false);
        if (key.getValue(setting::kHistoryMaxSize.name, maxSize) && maxSize != 0) {
            maxSize_ = maxSize;
        }
    } catch (const Exception& error) {
        if (error.code() == ERROR_FILE_NOT_FOUND) return;
        logLine(component::kJsw, kLogError, "ERROR - ", error.text());
    }
}

void History::read() {
    MethodTrace trace(component::kJsw, "History::read: ");
    const std::lock_guard lock(lock_);
    readMaxSize();
    ids_.clear();
    std::vector<NamedText> entries;
    const std::size_t most = std::max<std::size_t>(BasicSettings::kMaxNames, maxSize_);
    settings_.getStringValues(setting::kHistoryIdsKey, entries, most);
    trace.add(entries.empty() ? "No entries in history" : "Adding billboards");
    ownNames_.clear();
    for (const auto& [name, bbId] : entries) {
        ownNames_.insert(toLower(name));
        if (ownNames_.size() > most) continue;  // not read, but save() removes it
        if (bbId) {
            trace.add("bbId=", *bbId);
            add(*bbId);
        } else {
            trace.add("Unable to read bbId for key=", name);
        }
    }
}

void History::save() {
    MethodTrace trace(component::kJsw, "History::save: ");
    const std::lock_guard lock(lock_);
    if (!dirty_) {
        trace.add("Save not needed.");
        return;
    }
    bool complete = true;
    for (std::uint32_t position = 0; position < count(); ++position) {
        const std::string& bbId = ids_[position];
        const std::string name = valueName(position);
        if (settings_.setValue(setting::kHistoryIdsKey, name, bbId)) {
            ownNames_.insert(toLower(name));
        } else {
            trace.add("Unable to save history, bbId=", bbId);
            complete = false;
        }
    }
    // An id that could not be written may still be stored under its old name.
    if (complete) removeStaleIds(trace);
    dirty_ = !complete;
}

/// Removes the other values that read() has found, or the next job would read them again: those of
/// an earlier, longer list, and foreign ones, which the list has stored under its own names by now.
/// Values that another process has added meanwhile stay.
void History::removeStaleIds(MethodTrace& trace) {
    std::set<std::string> current;
    for (std::uint32_t position = 0; position < count(); ++position) {
        current.insert(toLower(valueName(position)));
    }
    auto key = RegistryKey::openExisting(idsPath());  // once: there may be thousands
    if (!key) return;
    for (const std::string& name : ownNames_) {
        if (current.contains(name)) continue;
        try {
            key->deleteValue(name);
        } catch (const Exception& error) {
            if (error.code() == ERROR_FILE_NOT_FOUND) continue;
            trace.add("Unable to remove an entry of an earlier history, name=", name,
                      ", error=", error.code());
        }
    }
    ownNames_ = std::move(current);
}

void History::add(const std::string& bbId) {
    MethodTrace trace(component::kJsw, "History::add: ");
    trace.add("bbId=", bbId);
    const std::lock_guard lock(lock_);
    ids_.push_back(bbId);
    dirty_ = true;
    if (count() > maxSize_) {
        trace.add("Removing oldest entry from list");
        ids_.pop_front();
    }
    current_ = static_cast<std::int32_t>(count()) - 1;
    trace.add("current_=", current_);
}

std::int32_t History::size() const {
    MethodTrace trace(component::kJsw, "History::size: ");
    const std::lock_guard lock(lock_);
    return static_cast<std::int32_t>(count());
}

bool History::isPresentInHistory(const std::string& bbId) const {
    MethodTrace trace(component::kJsw, "History::isPresentInHistory: ");
    const std::lock_guard lock(lock_);
    return trace.returning(std::ranges::find(ids_, bbId) != ids_.end());
}

std::uint32_t History::prev(std::uint32_t index) const {
    MethodTrace trace(component::kJsw, "History::prev: ");
    const std::lock_guard lock(lock_);
    return trace.returning(index == 0 ? count() - 1 : (index - 1) % count());
}

std::uint32_t History::next(std::uint32_t index) const {
    MethodTrace trace(component::kJsw, "History::next: ");
    const std::lock_guard lock(lock_);
    return trace.returning((index + 1) % count());
}

std::string History::moveTo(std::uint32_t (History::*neighbour)(std::uint32_t) const) {
    const std::lock_guard lock(lock_);
    if (ids_.empty()) return {};
    const std::uint32_t index = (this->*neighbour)(static_cast<std::uint32_t>(current_));
    current_ = static_cast<std::int32_t>(index);
    return ids_[index];
}

std::string History::getPrevious() {
    MethodTrace trace(component::kJsw, "History::getPrevious: ");
    return moveTo(&History::prev);
}

std::string History::getNext() {
    MethodTrace trace(component::kJsw, "History::getNext: ");
    return moveTo(&History::next);
}

void History::clear() {
    MethodTrace trace(component::kJsw, "History::clear: ");
    const std::lock_guard lock(lock_);
    ids_.clear();
    try {
        RegistryKey::recurseDeleteKey(idsPath(), HKEY_LOCAL_MACHINE);
        ownNames_.clear();  // or save() would remove them
    } catch (const Exception& error) {
        trace.add("Unable to clear history from the registry");
        trace.add(error.text());
    } catch (...) {
        trace.add("Unable to clear history from the registry");
    }
}

}  // namespace jsw
