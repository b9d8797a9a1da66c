#pragma once

#include "PublicLib/text/Text.h"
#include "tools/jswctl/Report.h"

#include <algorithm>
#include <string>

namespace jsw::ctl {

/// Whether a finding of this severity contains the text, its remedy after ". ".
inline bool has(const Report& report, Severity severity, const std::string& text) {
    return std::any_of(
        report.findings().begin(), report.findings().end(), [&](const Finding& finding) {
            return finding.severity == severity &&
                   concat(finding.topic, ": ", finding.text, ". ", finding.remedy).find(text) !=
                       std::string::npos;
        });
}

}  // namespace jsw::ctl
