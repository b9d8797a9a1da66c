#pragma once

#include "jsw/settings/macros/TagScanner.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace jsw {

class Printer;

/// Replaces the tags in an address by values of the machine, the job's printer and its cartridges.
/// Nothing fails: a tag without a value gets its fallback or stays. Not thread-safe.
class MacroResolver : public ISymbolicResolverHandler {
  public:
    /// @param printer  the source of values; held, so that an address never mixes two printers
    explicit MacroResolver(std::shared_ptr<Printer> printer);

    /// The text with all tags replaced. If values lead back to themselves, replacing stops at
    /// TagLimits and the log gets a warning.
    std::string replaceMacros(const std::string& text);

    /// The value of one tag. An empty tag text gives the tag name.
    std::optional<std::string> resolveTag(std::string_view tagText,
                                          std::string_view tagName) override;

    /// "&partner=" and the retailer's code, from the retailer file in the printer-driver folder or
    /// from the printer's store; empty if there is none. Throws Exception if the host or the
    /// version of Windows is unknown.
    std::string getPartnerCode();

  private:
    std::optional<std::string> findValue(std::string_view tagName);

    std::shared_ptr<Printer> printer_;
};

}  // namespace jsw
