#include "jsw/History.h"

#include "PublicLib/NeverDestroyed.h"
#include "PublicLib/errors/Exception.h"
#include "PublicLib/locks/Singleton.h"
#include "PublicLib/logging/MethodTrace.h"
#include "jsw/settings/RegistryKey.h"

#include <windows.h>

#include <algorithm>
#include <charconv>
#include <mutex>
#include <optional>
#include <string_view>
#include <vector>

namespace jsw {

namespace {

NeverDestroyed<Singleton<History>> singleton;

const LoggerComponent& log() {
    return component::kJsw;
}

constexpr std::string_view kIdPrefix = "Id";

std::string valueName(std::uint32_t position) {
    return concat(kIdPrefix, position);
}

/// The position in a value name of the form "Id<number>".
std::optional<std::uint32_t> positionOf(std::string_view name) {
    if (!name.starts_with(kIdPrefix)) return std::nullopt;
    name.remove_prefix(kIdPrefix.size());
    std::uint32_t position = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), position);
    if (error != std::errc{} || end != name.data() + name.size()) return std::nullopt;
    return position;
}

}  // namespace

std::shared_ptr<History> History::instance() {
    MethodTrace trace(log(), "History::instance: ");
    return singleton->instance([&] {
        trace.add("instantiating History.");
        return std::make_shared<History>();
    });
}

void History::destroy() {
    MethodTrace trace(log(), "History::destroy: ");
    singleton->destroy([&] { trace.add("destroying History."); });
}

History::History() {
    MethodTrace trace(log(), "History::History: ");
    read();
}

History::~History() {
    try {
        MethodTrace trace(log(), "History::~History: ");
        save();
    } catch (const std::exception& error) {
        logLine(log(), kLogError, "ERROR - the history is not saved: ", error.what());
    }
}

/// A missing number is the normal case; one of another type is an error worth a line.
void History::readMaxSize() {
    try {
        std::uint32_t maxSize = 0;
        const RegistryKey key(settings_.getKeyPath(false) + setting::kHistoryMaxSize.key, false);
        if (key.getValue(setting::kHistoryMaxSize.name, maxSize) && maxSize != 0) {
            maxSize_ = maxSize;
        }
    } catch (const Exception& error) {
        if (error.code() == ERROR_FILE_NOT_FOUND) return;
        logLine(log(), kLogError, "ERROR - ", error.text());
    }
}

void History::read() {
    MethodTrace trace(log(), "History::read: ");
    const std::lock_guard lock(lock_);
    readMaxSize();
    ids_.clear();
    std::vector<std::string> names;
    settings_.getValueNames(setting::kHistoryIdsKey, names);
    trace.add(names.empty() ? "No entries in history" : "Adding billboards");
    for (const std::string& name : names) {
        std::string bbId;
        if (settings_.getStringValue(setting::kHistoryIdsKey, name, bbId)) {
            trace.add("bbId=", bbId);
            add(bbId);
        } else {
            trace.add("Unable to read bbId for key=", name);
        }
    }
}

void History::save() {
    MethodTrace trace(log(), "History::save: ");
    const std::lock_guard lock(lock_);
    if (!dirty_) {
        trace.add("Save not needed.");
        return;
    }
    for (std::uint32_t position = 0; position < count(); ++position) {
        const std::string& bbId = ids_[position];
        if (!settings_.setStringValue(setting::kHistoryIdsKey, valueName(position), bbId)) {
            trace.add("Unable to save history, bbId=", bbId);
        }
    }
    removeStaleIds();
}

/// Values beyond the list, left by an earlier, longer one, would come back at the next job.
void History::removeStaleIds() const {
    bool mayBeMore = true;
    while (mayBeMore) {  // the registry lists a limited number of names at once
        std::vector<std::string> names;
        settings_.getValueNames(setting::kHistoryIdsKey, names);
        bool removed = false;
        for (const std::string& name : names) {
            const auto position = positionOf(name);
            if (position && *position >= count()) {
                removed = settings_.deleteValue(setting::kHistoryIdsKey, name) || removed;
            }
        }
        mayBeMore = removed && names.size() == BasicSettings::kMaxNames;
    }
}

void History::add(const std::string& bbId) {
    MethodTrace trace(log(), "History::add: ");
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
    MethodTrace trace(log(), "History::size: ");
    const std::lock_guard lock(lock_);
    return static_cast<std::int32_t>(count());
}

bool History::isPresentInHistory(const std::string& bbId) const {
    MethodTrace trace(log(), "History::isPresentInHistory: ");
    const std::lock_guard lock(lock_);
    const bool present = std::find(ids_.begin(), ids_.end(), bbId) != ids_.end();
    trace.setResult(present);
    return present;
}

std::uint32_t History::prev(std::uint32_t index) const {
    MethodTrace trace(log(), "History::prev: ");
    const std::lock_guard lock(lock_);
    const std::uint32_t result = index == 0 ? count() - 1 : (index - 1) % count();
    trace.setResult(static_cast<std::int32_t>(result));
    return result;
}

std::uint32_t History::next(std::uint32_t index) const {
    MethodTrace trace(log(), "History::next: ");
    const std::lock_guard lock(lock_);
    const std::uint32_t result = (index + 1) % count();
    trace.setResult(static_cast<std::int32_t>(result));
    return result;
}

std::string History::moveTo(std::uint32_t (History::*neighbour)(std::uint32_t) const) {
    const std::lock_guard lock(lock_);
    if (ids_.empty()) return {};
    const std::uint32_t index = (this->*neighbour)(static_cast<std::uint32_t>(current_));
    current_ = static_cast<std::int32_t>(index);
    return ids_[index];
}

std::string History::getPrevious() {
    MethodTrace trace(log(), "History::getPrevious: ");
    return moveTo(&History::prev);
}

std::string History::getNext() {
    MethodTrace trace(log(), "History::getNext: ");
    return moveTo(&History::next);
}

void History::clear() {
    MethodTrace trace(log(), "History::clear: ");
    const std::lock_guard lock(lock_);
    ids_.clear();
    try {
        RegistryKey::recurseDeleteKey(settings_.getKeyPath(false) + setting::kHistoryIdsKey,
                                      HKEY_LOCAL_MACHINE);
    } catch (const Exception& error) {
        trace.add("Unable to clear history from the registry");
        trace.add(error.text());
    }
}

}  // namespace jsw
