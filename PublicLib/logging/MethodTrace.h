#pragma once

#include "PublicLib/logging/BasicLogger.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace jsw {

/// Traces one method, from its construction to the end of the scope:
///
///     MethodTrace trace(component::kJsw, "History::add: ");
///     trace.add("bbId=", id);
///
/// writes "+History::add: ", "History::add: bbId=…" and "-History::add: ", the lines between
/// indented by one column. Parts are joined only if the line will be written. Not thread-safe.
/// Never throws, so that destructors may be traced, too; if memory is exhausted, lines are missing.
class MethodTrace {
  public:
    /// A trace to the process's log at the method trace level; the tag is joined from its parts.
    template <class... Tag>
    explicit MethodTrace(const LoggerComponent& component, const Tag&... tag) noexcept {
        if (!isLogEnabled(component, kLogTrace)) return;
        withoutRaising(
            [&] { start(BasicLogger::existing(), component, concat(tag...), kLogTrace); });
    }

    /// A trace to any log at any level. With announce false it is silent: it never logs.
    /// @param logger  must outlive the trace
    MethodTrace(Logger* logger, const LoggerComponent& component, std::string tag,
                std::uint32_t level, bool announce) noexcept;

    /// A silent trace.
    MethodTrace() = default;

    ~MethodTrace() {
        if (open_) end();
    }
    MethodTrace(const MethodTrace&) = delete;
    MethodTrace& operator=(const MethodTrace&) = delete;

    bool isActive() const { return open_.has_value(); }

    /// Adds a line: the tag followed by the parts.
    template <class... Parts>
    void add(const Parts&... parts) noexcept {
        if (!open_) return;
        withoutRaising([&] {
            if (open_->logger->isEnabled(open_->component, kLogTraceLine)) {
                open_->logger->log(open_->component, open_->level, open_->tag + concat(parts...));
            }
        });
    }

    /// Records the result for the exit line: a number, a truth value as 1 or 0, or a text.
    void setResult(std::int32_t value) noexcept;
    void setResult(std::uint32_t value) noexcept { setResult(asSigned(value)); }
    void setResult(std::string_view value) noexcept;

    /// Records a truth value by its name and hands it on.
    bool answering(bool value) noexcept {
        setResult(value ? "true" : "false");
        return value;
    }
    /// Records the result and hands it on; an enumerator counts as its number.
    template <class Value>
    Value returning(Value value) noexcept {
        if constexpr (std::is_enum_v<Value>) {
            setResult(static_cast<std::int32_t>(value));
        } else {
            setResult(value);
        }
        return value;
    }

  private:
    /// The state of a trace that is written. Nearly all traces are silent and do not even construct
    /// empty strings.
    struct Open {
        std::shared_ptr<Logger> logger;  // the log may end before the method
        const LoggerComponent& component;
        std::string tag;
        std::uint32_t level;
        std::string result{};
    };

    void start(std::shared_ptr<Logger> logger, const LoggerComponent& component, std::string tag,
               std::uint32_t level);
    void end() noexcept;

    std::optional<Open> open_;
};

}  // namespace jsw
