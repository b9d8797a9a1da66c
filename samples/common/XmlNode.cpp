#include "samples/common/XmlNode.h"

#include "common/Letters.h"

namespace jsw::sample {

std::string XmlNode::attribute(std::string_view attributeName, std::string_view fallback) const {
    const auto found = attributes.find(attributeName);
    return found == attributes.end() ? std::string(fallback) : found->second;
}

bool XmlNode::flag(std::string_view attributeName) const {
    const std::string value = attribute(attributeName);
    return value == "1" || common::equalsIgnoringCase(value, "true") ||
           common::equalsIgnoringCase(value, "yes");
}

}  // namespace jsw::sample
