/**
 * @file WindowContent.h
 * The state of a job as text in a language. Needs no Windows.
 */
#pragma once

#include "window/view/BillboardContent.h"
#include "window/view/JobData.h"
#include "window/view/StatusText.h"

#include <optional>
#include <string>
#include <vector>

namespace jsw::window {

/** The question or notice in the last row. */
enum class Question { none, cancel, close };

/** One ink level. */
struct InkContent {
    std::string label;
    std::string level;
    std::optional<int> percent;
    bool isLow = false;
    std::optional<Colour> colour; /**< nothing: the usual one */
    bool operator==(const InkContent&) const = default;
};

struct WindowContent {
    std::string title; /**< of the window */
    std::string printer;
    std::string job;
    bool isSimulated = false;
    std::string progress;
    std::string time;
    std::optional<int> permille; /**< nothing: in progress, but unknown how far */
    bool isCancelling = false;
    std::vector<InkContent> ink; /**< empty: see inkSentence */
    std::string inkSentence;     /**< all levels in one line, or the reason for none */
    std::string cancel;          /**< label of the button */
    Question question = Question::none;
    std::string questionText;
    std::string yes;
    std::string no;
    bool operator==(const WindowContent&) const = default;
};

/** @param cartridges names from the content */
[[nodiscard]] WindowContent describeJob(const JobData& data, Question question,
                                        const WindowTexts& texts,
                                        const Cartridges& cartridges = {});

/** Whether cancelling now loses pages, so that the window must ask first. */
[[nodiscard]] bool cancellingNeedsAsking(const JobData& data);

/** Whether to explain that closing does not cancel; only once, and only while pages remain. */
[[nodiscard]] bool closingNeedsExplaining(const JobData& data);

/** The page to show where there is none. */
[[nodiscard]] Page emptyPage(const WindowTexts& texts);

/** The problem in words. */
[[nodiscard]] const std::string& problemText(Problem problem, const WindowTexts& texts);

/** The page to show instead of this file, which has a problem. */
[[nodiscard]] Page unshowablePage(const std::string& fileName, Problem problem,
                                  const WindowTexts& texts);

}  // namespace jsw::window
