#include "samples/catalog/CatalogData.h"

namespace jsw::sample {
namespace {

Billboard readBillboard(const XmlNode& element) {
    Billboard billboard;
    billboard.file = element.attribute("file");
    billboard.type = element.attribute("type", "standard");
    billboard.navigation = element.flag("navigation");
    billboard.restore = element.flag("restore");
    billboard.carts = element.attribute("carts");
    for (const XmlNode& child : element.children) {
        if (child.name != "action") continue;
        // Buttons refer to actions by number: skipping one would renumber the later ones.
        if (child.text.empty()) break;
        billboard.actions.push_back(child.text);
    }
    return billboard;
}

std::vector<std::string> readProjects(const XmlNode& element) {
    std::vector<std::string> ids;
    for (const XmlNode& child : element.children) {
        if (child.name == "project" && !child.attribute("id").empty()) {
            ids.push_back(child.attribute("id"));
        }
    }
    return ids;
}

}  // namespace

CatalogData::CatalogData(const XmlNode& root) {
    for (const XmlNode& element : root.children) {
        const std::string id = element.attribute("id");
        if (id.empty()) continue;
        if (element.name == "billboard") {
            billboards_[id] = readBillboard(element);
        } else if (element.name == "category") {
            categories_[id] = readProjects(element);
        }
    }
}

const Billboard* CatalogData::billboard(std::string_view id) const {
    const auto found = billboards_.find(id);
    return found == billboards_.end() ? nullptr : &found->second;
}

std::vector<std::string> CatalogData::projects(std::string_view category) const {
    const auto found = categories_.find(category);
    return found == categories_.end() ? std::vector<std::string>() : found->second;
}

}  // namespace jsw::sample
