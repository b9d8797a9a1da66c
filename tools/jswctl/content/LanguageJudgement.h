#pragma once

#include "common/LanguageFile.h"
#include "tools/jswctl/Report.h"
#include "window/view/WindowTexts.h"

namespace jsw::ctl {

/// Says what is wrong with a language file: what the modules refuse, names that they do not know,
/// texts that stay English, access keys that two controls of the window have.
void judgeLanguage(const std::string& code, const common::LanguageFile& file, Report& report);

/// The window's texts in a language, or in English where the file is refused.
[[nodiscard]] window::WindowTexts windowTextsOf(const common::LanguageFile& file);

}  // namespace jsw::ctl
