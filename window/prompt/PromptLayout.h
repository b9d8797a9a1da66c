/**
 * @file PromptLayout.h
 * The prompt's layout. Needs no Windows: the caller provides the scale and measures texts.
 */
#pragma once

#include "window/prompt/PromptTexts.h"
#include "window/ui/Placed.h"

#include <string>
#include <vector>

namespace jsw::window {

struct PromptLayout {
    Size size;
    Box sign; /**< the attention sign */
    PlacedText printer;
    Box text;
    std::vector<PlacedText> textLines;
    PlacedText note; /**< its place stays free without a note */
    Box footer;
    std::vector<PlacedButton> buttons; /**< continue, cancel */
};

[[nodiscard]] PromptLayout layoutPrompt(const std::string& printer, const std::string& text,
                                        const std::string& note, const PromptTexts& texts,
                                        const TextMeasure& measure, const Scale& scale);

}  // namespace jsw::window
