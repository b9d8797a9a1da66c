#pragma once

#include "samples/common/XmlNode.h"

#include <optional>
#include <string>

namespace jsw::sample {

/**
 * Reads an XML file with the platform's parser, version 3. Any thread may call it.
 *
 * @return the root element; nothing if the file is missing, malformed or nested deeper than 32
 * elements, or the parser is not installed; then problem says which
 */
[[nodiscard]] std::optional<XmlNode> readXmlFile(const std::string& path, std::string& problem);

/** The same; reports a problem (see ProblemFile.h). */
[[nodiscard]] std::optional<XmlNode> loadXmlFile(const std::string& path);

}  // namespace jsw::sample
