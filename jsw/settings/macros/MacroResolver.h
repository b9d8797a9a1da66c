#pragma once

#include "jsw/settings/macros/TagScanner.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace jsw {

class Printer;

/// Puts facts about the machine, the job's printer and its cartridges in the place of the tags in
/// an address. Nothing fails: a tag without a value gets its fallback or stays. Used by one thread
/// at a time.
class MacroResolver : public ISymbolicResolverHandler {
  public:
    /// @param printer  whose facts are asked for; held, so that one address never speaks of two
    explicit MacroResolver(std::shared_ptr<Printer> printer);

    Printer& printer() const { return *printer_; }

    /// The text with all tags replaced. When values lead back to themselves, the replacement stops
    /// at TagLimits and the log gets a warning.
    std::string replaceMacros(const std::string& text);

    /// The value of one tag. An empty tag text gives the tag name.
    std::optional<std::string> resolveTag(std::string_view tagText,
                                          std::string_view tagName) override;

    /// "&partner=" and the retailer's code, from the retailer file in the printer-driver folder or
    /// from the printer's store; empty when there is none. Throws Exception when the host or the
    /// version of Windows is not known.
    std::string getPartnerCode();

  private:
    std::optional<std::string> findValue(std::string_view tagName);

    std::shared_ptr<Printer> printer_;
};

}  // namespace jsw
