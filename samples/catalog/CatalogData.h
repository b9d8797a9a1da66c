#pragma once

#include "samples/common/XmlNode.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace jsw::sample {

/** What the catalog file says about one billboard. */
struct Billboard {
    std::string file;
    std::string type;
    std::vector<std::string> actions;  ///< numbered from 0; none is empty
    bool navigation = false;
    bool restore = false;
    std::string carts;
};

/** The catalog file's content. Ids are told apart by letter case. Does not change once built. */
class CatalogData {
  public:
    CatalogData() = default;

    /** Takes what the root element holds; entries without an id are left out. */
    explicit CatalogData(const XmlNode& root);

    /** Null for an unknown id. */
    [[nodiscard]] const Billboard* billboard(std::string_view id) const;

    /** The project ids of a category in file order; empty when the text is no category. */
    [[nodiscard]] std::vector<std::string> projects(std::string_view category) const;

  private:
    std::map<std::string, Billboard, std::less<>> billboards_;
    std::map<std::string, std::vector<std::string>, std::less<>> categories_;
};

}  // namespace jsw::sample
