#include "PublicLib/os/Localize.h"

#include "PublicLib/errors/ErrorPlaces.h"
#include "PublicLib/locks/Singleton.h"
#include "PublicLib/os/ProductLines.h"
#include "PublicLib/win/Paths.h"
#include "PublicLib/win/SystemFolders.h"
#include <jsw/product_lines.h>

#include <utility>

namespace jsw {

namespace {

constexpr std::size_t kLocalIdLength = 4;
constexpr std::size_t kPathBufferSize = 260;  // registry paths are cut to this, terminator included

std::string fitted(std::string path) {
    if (path.size() >= kPathBufferSize) path.resize(kPathBufferSize - 1);
    return path;
}

}  // namespace

std::string localIdOf(std::string_view executablePath) {
    std::string id(fileNamePart(executablePath).substr(0, kLocalIdLength));
    for (char& letter : id) {
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    }
    return id;
}

void Localize::createInstance(HMODULE module) {
    singleton<const Localize>->instance(
        [module] { return std::make_shared<const Localize>(module); });
}

void Localize::createInstanceFor(const std::string& executablePath) {
    singleton<const Localize>->instance(
        [&] { return std::make_shared<const Localize>(executablePath); });
}

std::shared_ptr<const Localize> Localize::getInstance() {
    auto current = singleton<const Localize>->existing();
    if (!current) {
        throw Exception("You must call Localize::createInstance() before calling getInstance()", 0,
                        place::kNoLocalize);
    }
    return current;
}

void Localize::destroy() {
    singleton<const Localize>->destroy([] {});
}

Localize::Localize(HMODULE module) : Localize(moduleFileName(module)) {
}

Localize::Localize(std::string executablePath) : modulePath_(std::move(executablePath)) {
    if (modulePath_.empty()) {
        raiseLastError("Localize::Localize(): GetModuleFileName failed", place::kModulePath);
    }
    localId_ = localIdOf(modulePath_);
    if (localId_.empty()) {
        throw Exception("Localize::Localize(): GetLocalId failed", 0, place::kLocalId);
    }
}

std::string Localize::settingsFileName() const {
    return localId_ + "jsw.loc";
}

bool Localize::getProductLineRoot(std::string& path) const {
    const ProductLine* line = findProductLine(localId_);
    path = "Software\\";
    path += line != nullptr ? line->key : JSW_NO_PRODUCT_LINE;
    path = fitted(std::move(path));
    return line != nullptr;
}

std::string Localize::getProductLineRoot() const {
    std::string path;
    getProductLineRoot(path);
    return path;
}

std::string Localize::getJswRoot() const {
    return fitted(getProductLineRoot() + "\\JSW\\");
}

std::string Localize::getRegistryPath(StoreKind kind) const {
    switch (kind) {
        case StoreKind::local:
            return fitted(getJswRoot() + "Local\\" + localId_ + "\\");
        case StoreKind::shared:
            return fitted(getJswRoot() + "Shared\\");
        case StoreKind::scratch:
            break;
    }
    return "Software\\QuillonTemp\\temp";
}

}  // namespace jsw
