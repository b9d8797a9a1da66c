#include "tools/jswctl/Report.h"

#include "PublicLib/text/Text.h"
#include "tools/jswctl/ExitCode.h"

#include <algorithm>
#include <cstdio>
#include <nlohmann/json.hpp>

namespace jsw::ctl {

namespace {

const char* severityName(Severity severity) {
    switch (severity) {
        case Severity::note:
            return "note";
        case Severity::warning:
            return "warning";
        case Severity::error:
            break;
    }
    return "error";
}

/// The first column of a line.
std::string margin(std::string text) {
    constexpr std::size_t kColumn = 9;
    text.resize(kColumn, ' ');
    return text;
}

/// Makes any text of a module or setting one line.
std::string oneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char letter) { return letter == '\r' || letter == '\n'; },
        ' ');
    return text + "\n";
}

std::string line(const Finding& finding) {
    std::string text =
        margin(finding.severity == Severity::note ? "" : severityName(finding.severity));
    text += concat(finding.topic, ": ", finding.text);
    if (!finding.remedy.empty()) text += concat(". ", finding.remedy);
    return oneLine(text);
}

std::string line(const SettingRow& row) {
    return oneLine(concat(margin(""), row.key, " ", row.name, " = ", row.value, " (",
                          sourceName(row.source), ")"));
}

std::string counted(std::size_t number, const char* what) {
    return concat(number, " ", what, number == 1 ? "" : "s");
}

}  // namespace

std::size_t Report::count(Severity severity) const {
    return static_cast<std::size_t>(
        std::count_if(findings_.begin(), findings_.end(),
                      [&](const Finding& finding) { return finding.severity == severity; }));
}

std::string asText(const Report& report) {
    std::string text;
    const std::vector<Finding>& findings = report.findings();
    for (std::size_t index = 0; index <= findings.size(); ++index) {
        if (index == report.beforeSettings()) {
            for (const SettingRow& row : report.settings()) text += line(row);
        }
        if (index < findings.size()) text += line(findings[index]);
    }
    return text + concat(counted(report.count(Severity::error), "error"), ", ",
                         counted(report.count(Severity::warning), "warning"), ".\n");
}

std::string asJson(const std::string& subject, const Report& report) {
    using Json = nlohmann::ordered_json;
    Json findings = Json::array();
    for (const Finding& finding : report.findings()) {
        findings.push_back({{"severity", severityName(finding.severity)},
                            {"topic", finding.topic},
                            {"text", finding.text},
                            {"remedy", finding.remedy}});
    }
    Json settings = Json::array();
    for (const SettingRow& row : report.settings()) {
        settings.push_back({{"key", row.key},
                            {"name", row.name},
                            {"type", row.type},
                            {"value", row.value},
                            {"source", sourceName(row.source)}});
    }
    const Json document = {{"subject", subject},
                           {"errors", report.count(Severity::error)},
                           {"warnings", report.count(Severity::warning)},
                           {"findings", findings},
                           {"settings", settings}};
    return document.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

int show(const Report& report, const std::string& subject, bool json) {
    const std::string text = json ? asJson(subject, report) : asText(report);
    std::fputs(text.c_str(), stdout);
    return report.count(Severity::error) == 0 ? kWell : kFindings;
}

}  // namespace jsw::ctl
