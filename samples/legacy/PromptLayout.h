/**
 * @file PromptLayout.h
 * Where everything in the prompt is. No Windows in it: the scale and the measuring of texts are
 * handed in.
 */
#pragma once

#include "samples/legacy/Strings.h"
#include "samples/ui/Placed.h"

#include <string>
#include <vector>

namespace jsw::legacy {

struct PromptLayout {
    sampleui::Size size;
    sampleui::Box sign; /**< the mark that something is to be done */
    sampleui::PlacedText printer;
    sampleui::Box text;
    std::vector<sampleui::PlacedText> textLines;
    sampleui::PlacedText note; /**< its place stays free while there is no news */
    sampleui::Box footer;
    std::vector<sampleui::PlacedButton> buttons; /**< continue, cancel */
};

[[nodiscard]] PromptLayout layoutPrompt(const std::string& printer, const std::string& text,
                                        const std::string& note, const Strings& strings,
                                        const sampleui::TextMeasure& measure,
                                        const sampleui::Scale& scale);

}  // namespace jsw::legacy
