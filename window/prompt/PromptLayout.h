/**
 * @file PromptLayout.h
 * Where everything in the prompt is. No Windows in it: the scale and the measuring of texts are
 * handed in.
 */
#pragma once

#include "window/prompt/Strings.h"
#include "window/ui/Placed.h"

#include <string>
#include <vector>

namespace jsw::prompt {

struct PromptLayout {
    ui::Size size;
    ui::Box sign; /**< the mark that something is to be done */
    ui::PlacedText printer;
    ui::Box text;
    std::vector<ui::PlacedText> textLines;
    ui::PlacedText note; /**< its place stays free while there is no news */
    ui::Box footer;
    std::vector<ui::PlacedButton> buttons; /**< continue, cancel */
};

[[nodiscard]] PromptLayout layoutPrompt(const std::string& printer, const std::string& text,
                                        const std::string& note, const Strings& strings,
                                        const ui::TextMeasure& measure, const ui::Scale& scale);

}  // namespace jsw::prompt
