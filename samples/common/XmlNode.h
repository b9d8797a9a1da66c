#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace jsw::sample {

/** One element of an XML file, copied, so that its readers need no parser. */
struct XmlNode {
    std::string name;
    std::map<std::string, std::string, std::less<>> attributes;
    std::string text;  ///< the text of the element and everything below it, trimmed
    std::vector<XmlNode> children;

    /** The attribute's value, or the fallback if there is none. */
    [[nodiscard]] std::string attribute(std::string_view attributeName,
                                        std::string_view fallback = {}) const;

    /** "true", "yes" and "1" in any letter case are true; a missing attribute is false. */
    [[nodiscard]] bool flag(std::string_view attributeName) const;
};

}  // namespace jsw::sample
