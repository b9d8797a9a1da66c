/**
 * @file WindowContent.h
 * What the window shows, in words: the state of a job in a language. No Windows in it.
 */
#pragma once

#include "window/view/BillboardContent.h"
#include "window/view/JobData.h"
#include "window/view/StatusText.h"

#include <optional>
#include <string>
#include <vector>

namespace jsw::view {

/** What the window asks or tells in its last row. */
enum class Question { none, cancel, close };

/** One ink level. */
struct InkContent {
    std::string label;
    std::string level;
    std::optional<int> percent;
    bool isLow = false;
    bool operator==(const InkContent&) const = default;
};

struct WindowContent {
    std::string title; /**< of the window */
    std::string printer;
    std::string job;
    bool isSimulated = false;
    std::string progress;
    std::string time;
    std::optional<int> permille; /**< nothing: under way, but how far is not known */
    bool isCancelling = false;
    std::vector<InkContent> ink; /**< empty: see inkSentence */
    std::string inkSentence;     /**< all levels in one line, or why there are none */
    std::string cancel;          /**< label of the button */
    Question question = Question::none;
    std::string questionText;
    std::string yes;
    std::string no;
    bool operator==(const WindowContent&) const = default;
};

[[nodiscard]] WindowContent describeJob(const JobData& data, Question question,
                                        const Strings& strings);

/** Whether cancelling now would lose anything, so that the user must be asked first. */
[[nodiscard]] bool cancellingNeedsAsking(const JobData& data);

/** Whether to say that closing the window does not cancel; only once, and only while it matters. */
[[nodiscard]] bool closingNeedsExplaining(const JobData& data);

/** The page to show where there is none. */
[[nodiscard]] Page emptyPage(const Strings& strings);

/** The page to show in place of the one in this file, which has a problem. */
[[nodiscard]] Page unshowablePage(const std::string& fileName, Problem problem,
                                  const Strings& strings);

}  // namespace jsw::view
