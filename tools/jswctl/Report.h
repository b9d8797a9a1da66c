#pragma once

#include "tools/jswctl/SettingRow.h"

#include <string>
#include <utility>
#include <vector>

namespace jsw::ctl {

enum class Severity {
    note,     ///< a fact that is all right
    warning,  ///< probably a mistake; the job goes on without something
    error,    ///< stops a job, its billboards or its updates
};

/// One line of a report: what was found, and the remedy.
struct Finding {
    Severity severity;
    std::string topic;   ///< the subject, such as "view module"
    std::string text;    ///< without a final stop
    std::string remedy;  ///< may be empty
};

/// The lines of a report, in order.
class Report {
  public:
    void note(std::string topic, std::string text) {
        add(Severity::note, std::move(topic), std::move(text), {});
    }
    void warn(std::string topic, std::string text, std::string remedy) {
        add(Severity::warning, std::move(topic), std::move(text), std::move(remedy));
    }
    void error(std::string topic, std::string text, std::string remedy) {
        add(Severity::error, std::move(topic), std::move(text), std::move(remedy));
    }
    void add(Severity severity, std::string topic, std::string text, std::string remedy) {
        findings_.push_back({severity, std::move(topic), std::move(text), std::move(remedy)});
    }

    /// All settings are together, after the lines that precede the first one.
    void setting(SettingRow row) {
        if (settings_.empty()) beforeSettings_ = findings_.size();
        settings_.push_back(std::move(row));
    }
    std::size_t beforeSettings() const { return beforeSettings_; }

    const std::vector<SettingRow>& settings() const { return settings_; }
    const std::vector<Finding>& findings() const { return findings_; }
    /// The number of lines with this severity.
    std::size_t count(Severity severity) const;

  private:
    std::vector<Finding> findings_;
    std::vector<SettingRow> settings_;
    std::size_t beforeSettings_ = 0;
};

/// One line per finding and setting, then one that counts errors and warnings.
std::string asText(const Report& report);

/// {"subject", "errors", "warnings", "findings": [{"severity", "topic", "text", "remedy"}],
/// "settings": [{"key", "name", "type", "value", "source"}]}; invalid UTF-8 is replaced.
std::string asJson(const std::string& subject, const Report& report);

/// Writes the report to standard output and returns the exit code: kFindings if it has errors.
int show(const Report& report, const std::string& subject, bool json);

}  // namespace jsw::ctl
