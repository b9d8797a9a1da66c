#pragma once

#include "common/LanguageFile.h"
#include "samples/common/XmlNode.h"
#include "window/view/BillboardContent.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace jsw::ctl {

/// A page's file.
struct ContentPage {
    std::string fileName;  ///< "welcome.de.jbb"
    std::string name;      ///< "welcome.jbb", its name in the catalog
    std::string language;  ///< "de"; empty: for all languages without a file of their own
    window::ParsedPage parsed;
    std::map<std::string, std::string> head;  ///< keys in lower case, with their last values
};

/// An XML file of the content, or why it could not be read.
struct ContentFile {
    std::optional<sample::XmlNode> root;
    std::string problem;
};

/// A data folder of the sample content format.
struct ContentFacts {
    std::string folder;
    ContentFile catalog;
    ContentFile rules;
    std::vector<ContentPage> pages;
    std::map<std::string, common::LanguageFile> languages;  ///< beside this program, by their codes
    std::map<std::string, std::string> cartridges;  ///< problems of cartridges*.txt, by their names
    std::map<std::string, bool> pictures;  ///< files in lower case, and whether they can be shown
};

}  // namespace jsw::ctl
