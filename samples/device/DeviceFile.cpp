#include "samples/device/DeviceFile.h"

#include "common/Letters.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace jsw::sample {
namespace {

constexpr size_t kMaxText = 255;

/** Cuts the text up to a separator off the front and trims it. */
std::string_view cut(std::string_view& text, std::string_view separators) {
    const size_t end = std::min(text.find_first_of(separators), text.size());
    const std::string_view part = common::trim(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    return part;
}

template <class Number>
Number readNumber(std::string_view text, int line) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size()) {
        throw DeviceFileError(line, "\"" + std::string(text) + "\" is no number from 0 to " +
                                        std::to_string(std::numeric_limits<Number>::max()));
    }
    return number;
}

std::vector<uint8_t> bigEndian(uint32_t value) {
    return {static_cast<uint8_t>(value >> 24), static_cast<uint8_t>(value >> 16),
            static_cast<uint8_t>(value >> 8), static_cast<uint8_t>(value)};
}

std::vector<uint8_t> recordData(std::string_view form, std::string_view value, int line) {
    if (form == "text" && value.size() <= kMaxText) {
        return {value.begin(), value.end()};
    }
    if (form == "char" && value.size() == 1) {
        return {static_cast<uint8_t>(value[0])};
    }
    if (form == "byte") {
        return {readNumber<uint8_t>(value, line)};
    }
    if (form == "number") return bigEndian(readNumber<uint32_t>(value, line));
    throw DeviceFileError(line,
                          "a record is an id, then \"text\" (up to 255 characters), "
                          "\"char\", \"byte\" or \"number\", then the value");
}

/** Appends "ID FORM VALUE" to a cache record, which begins with a header of two bytes. */
void addRecord(std::vector<uint8_t>& cache, std::string_view value, int line) {
    if (cache.empty()) cache.assign(2, 0);
    const auto id = readNumber<uint16_t>(cut(value, " \t"), line);
    value = common::trim(value);
    const std::string_view form = cut(value, " \t");
    const std::vector<uint8_t> data = recordData(form, common::trim(value), line);
    cache.push_back(static_cast<uint8_t>(id >> 8));
    cache.push_back(static_cast<uint8_t>(id));
    cache.push_back(static_cast<uint8_t>(data.size()));
    cache.insert(cache.end(), data.begin(), data.end());
}

void takeValue(DevicePrinter& printer, std::string_view key, std::string_view value, int line) {
    if (key == "port") {
        printer.port = value;
    } else if (key == "transport") {
        printer.transport = value;
    } else if (key == "hid") {
        printer.hids.emplace_back(value);
    } else if (key == "scanner") {
        printer.scanners.emplace_back(value);
    } else if (key == "printHeadClass") {
        printer.printHeadClass = readNumber<uint8_t>(value, line);
    } else if (key == "record") {
        addRecord(printer.cache, value, line);
    } else {
        throw DeviceFileError(line, "unknown key \"" + std::string(key) + "\"");
    }
}

}  // namespace

std::vector<DevicePrinter> readDeviceFile(std::string_view text) {
    std::vector<DevicePrinter> printers;
    for (int line = 1; !text.empty(); ++line) {
        std::string_view content = cut(text, "\n");
        if (content.empty() || content.front() == '#') continue;
        if (content.front() == '[' && content.back() == ']') {
            printers.emplace_back().name = common::trim(content.substr(1, content.size() - 2));
        } else if (printers.empty()) {
            throw DeviceFileError(line, "a printer's [name] must come first");
        } else {
            const std::string_view key = cut(content, "=");
            takeValue(printers.back(), key, common::trim(content), line);
        }
    }
    return printers;
}

}  // namespace jsw::sample
