#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace jsw::ctl::log {

/// Follows how one job's billboard is chosen.
class Choice {
  public:
    /// @param text     the text of a line
    /// @param onRules  whether the rules are being processed on the line's thread
    void add(std::string_view text, bool onRules);

    /// What was chosen and why, in a sentence; empty if the log does not say.
    std::string inWords() const;

  private:
    struct PassedOver {
        std::string id;
        const char* why;
    };

    void learnType(std::string_view exit);
    void nameRule(std::string_view result);
    void passOver(std::string_view id, const char* why);
    std::string passedOverInWords() const;
    std::string reason() const;

    bool rulesRan_ = false;
    bool engineFailed_ = false;
    bool shown_ = false;
    bool isCategory_ = false;
    const char* type_ = "";
    std::string asked_;      // the last result, while its type is unknown
    std::string rule_;       // the last result that names billboards
    std::string billboard_;  // the one shown
    std::string page_;
    std::vector<std::string> candidates_;
    std::vector<PassedOver> passedOver_;
    std::size_t passedOverOfRule_ = 0;
};

}  // namespace jsw::ctl::log
