#include "jsw/settings/macros/MacroResolver.h"

#include "PublicLib/errors/Exception.h"
#include "PublicLib/logging/Guard.h"
#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/os/Localize.h"
#include "PublicLib/os/OsVersion.h"
#include "PublicLib/printer/Printer.h"
#include "PublicLib/text/Text.h"
#include "PublicLib/win/Paths.h"
#include "jsw/settings/OfnSettings.h"
#include "jsw/settings/Settings.h"
#include "jsw/settings/macros/CartridgeTags.h"
#include "jsw/settings/macros/PageDirectUtilities.h"

#include <windows.h>

#include <exception>
#include <optional>
#include <utility>

namespace jsw {

namespace {

using Value = std::optional<std::string>;  // nothing: the tag stays

constexpr bool kReadOnly = false;
constexpr bool kWriteDefault = true;

Value localSetting(const setting::Text& text, bool writeDefault) {
    const Settings settings;
    std::string value;
    const Read outcome =
        writeDefault ? settings.readOrWriteDefault(text, value) : settings.read(text, value);
    if (outcome == Read::found) return value;
    logLine(component::kJsw, kLogError, "Error - settings.getStringValue(keyName=", text.key,
            ", valueName=", text.name, ", rc=false.");
    return std::nullopt;
}

Value printerSetting(const Printer& printer, const setting::Text& text) {
    std::string value;
    const OfnSettings store(printer.getFriendlyName());
    if (store.read(text, value) != Read::found) return std::nullopt;
    return value;
}

/// The retailer's code in a file of the folder; empty if there is none.
std::string codeInRetailerFile(const std::string& folder) {
    constexpr DWORD kMaxCode = 260;  // characters with the terminator
    if (folder.empty()) return {};   // the path would name the root of a drive
    const std::string file = joinPath(folder, Localize::getInstance()->localId() + "rtlr.ini");
    char code[kMaxCode] = "";
    GetPrivateProfileStringA("Skin", "Partner1URL", "", code, kMaxCode, file.c_str());
    return code;
}

Value cartridgeValue(const CartridgeTag& tag, std::string_view tagName, Printer& printer) {
    const CartridgeHolder* const holder = findCartridgeHolder(tagName);
    if (holder == nullptr) {
        logLine(component::kJsw, kLogError, "WARNING: Cartridge ", tag.topic, " tag '", tagName,
                "' not valid.");
        return std::nullopt;
    }
    return tag.value(printer.getCache(), *holder);
}

/// What a value's source returns; nothing, and a log line, if it fails.
template <class Source>
Value orLogged(const Source& source) {
    try {
        return source();
    } catch (const Exception& error) {
        logLine(component::kJsw, kLogError, error.text());
    } catch (const std::exception&) {  // usually out of memory; another tag may succeed
        reportException(component::kJsw, "MacroResolver::resolveTag");
    }
    return std::nullopt;
}

}  // namespace

MacroResolver::MacroResolver(std::shared_ptr<Printer> printer) : printer_(std::move(printer)) {
}

std::string MacroResolver::replaceMacros(const std::string& text) {
    MethodTrace trace(component::kJsw, "MacroResolver::replaceMacros:");
    trace.add("    replaceMacros( str=", text, "):");
    TagResult result = replaceTags(text, this);
    if (!result.complete) {
        logLine(component::kJsw, kLogError,
                "WARNING: MacroResolver::replaceMacros: too many or too long values, a value may "
                "lead back to itself. The remaining tags are not replaced.");
    }
    return trace.returning(std::move(result.text));
}

Value MacroResolver::resolveTag(std::string_view tagText, std::string_view tagName) {
    MethodTrace trace(component::kJsw, "MacroResolver::resolveTag:");
    trace.add("    resolveTag( strTagText=", tagText, ", strTag=", tagName, ")");
    Value value =
        tagText.empty() ? std::string(tagName) : orLogged([&] { return findValue(tagName); });
    trace.setResult(value ? *value : tagText);
    return value;
}

/// Nothing for an unknown tag and for one that has neither a value nor a fallback.
Value MacroResolver::findValue(std::string_view tagName) {
    const auto is = [&](std::string_view name) { return equalsIgnoringCase(tagName, name); };
    if (is("BaseUrl")) return localSetting(setting::kBaseUrl, kWriteDefault);
    if (is("CountryCode")) return PageDirectUtilities::getCountryCode();
    if (is("LanguageCode")) return PageDirectUtilities::getLanguageCode();
    if (is("OemCode")) return localSetting(setting::kManufacturerName, kReadOnly);
    if (is("OsCode")) return PageDirectUtilities::getOsCode();
    if (is("PartnerCode")) return orLogged([&] { return Value(getPartnerCode()); }).value_or("");
    if (is("PrinterCode")) return localSetting(setting::kPrinterCode, kWriteDefault);
    if (is("PSI")) {
        return orLogged([&] { return printerSetting(*printer_, setting::kSerialNumber); })
            .value_or("");
    }
    const CartridgeTag* const tag = findCartridgeTag(tagName);
    if (tag == nullptr) return std::nullopt;
    return orLogged([&] { return cartridgeValue(*tag, tagName, *printer_); })
        .value_or(std::string(tag->fallback));
}

std::string MacroResolver::getPartnerCode() {
    MethodTrace trace(component::kJsw, "MacroResolver::getPartnerCode()");
    const std::string folder = OsVersion::instance().versionedPrinterDriverFolder();
    trace.add("INI File path containing partner1URL=", folder);
    std::string result;
    const std::string code = codeInRetailerFile(folder);
    if (!code.empty()) {
        trace.add("Partner code read from ini file.");
        result = concat("&partner=", code);
    } else {
        trace.add("No Partner code read from ini file. retCode=", 0);
        const Value retailer = printerSetting(*printer_, setting::kRetailerId);
        const bool isValid = retailer && !retailer->empty();
        trace.add(isValid ? "Partner code read from registry." : "No valid RetailerId in registry");
        if (isValid) result = concat("&partner=", *retailer);
    }
    return trace.returning(std::move(result));
}

}  // namespace jsw
