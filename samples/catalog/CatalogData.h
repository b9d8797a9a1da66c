#pragma once

#include "samples/common/XmlNode.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace jsw::sample {

/** One billboard of the catalog file. */
struct Billboard {
    std::string file;
    std::string type;
    std::vector<std::string> actions;  ///< numbered from 0; none is empty
    bool navigation = false;
    bool restore = false;
    std::string carts;
};

/** The contents of the catalog file. Letter case matters in ids. Immutable, so thread-safe. */
class CatalogData {
  public:
    CatalogData() = default;

    /** Reads the root element; skips entries without an id. */
    explicit CatalogData(const XmlNode& root);

    /** Null for an unknown id. */
    [[nodiscard]] const Billboard* billboard(std::string_view id) const;

    /** The project ids of a category in file order; empty if the text is not a category. */
    [[nodiscard]] std::vector<std::string> projects(std::string_view category) const;

  private:
    std::map<std::string, Billboard, std::less<>> billboards_;
    std::map<std::string, std::vector<std::string>, std::less<>> categories_;
};

}  // namespace jsw::sample
