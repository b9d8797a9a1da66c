/**
 * @file PromptLayout.h
 * The prompt's layout. Needs no Windows: the caller provides the scale and measures texts.
 */
#pragma once

#include "window/prompt/Strings.h"
#include "window/ui/Placed.h"

#include <string>
#include <vector>

namespace jsw::prompt {

struct PromptLayout {
    ui::Size size;
    ui::Box sign; /**< the attention sign */
    ui::PlacedText printer;
    ui::Box text;
    std::vector<ui::PlacedText> textLines;
    ui::PlacedText note; /**< its place stays free without a note */
    ui::Box footer;
    std::vector<ui::PlacedButton> buttons; /**< continue, cancel */
};

[[nodiscard]] PromptLayout layoutPrompt(const std::string& printer, const std::string& text,
                                        const std::string& note, const Strings& strings,
                                        const ui::TextMeasure& measure, const ui::Scale& scale);

}  // namespace jsw::prompt
