// Parsing: the printer's cache record and the tags in an address.

#include "PublicLib/printer/CacheRecord.h"
#include "PublicLib/printer/PrinterCache.h"
#include "PublicLib/text/Text.h"
#include "bench/Host.h"
#include "bench/Measures.h"
#include "jsw/settings/macros/TagScanner.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace jsw::bench {

namespace {

using Bytes = std::vector<std::uint8_t>;

void addRecord(Bytes& record, std::uint32_t id, const Bytes& data) {
    record.insert(record.end(), {static_cast<std::uint8_t>(id >> 8), static_cast<std::uint8_t>(id),
                                 static_cast<std::uint8_t>(data.size())});
    record.insert(record.end(), data.begin(), data.end());
}

constexpr std::size_t kRecordSize = 4096;

/// Like a real printer's: each known value once, among many unknown records.
Bytes ordinaryRecord() {
    Bytes record{0, 0};
    addRecord(record, 0x0016, {'S', 'N', '1', '2', '3', '4', '5', '6'});
    for (const std::uint32_t cartridge : {0x0110U, 0x0120U}) {
        addRecord(record, cartridge, {'Q'});
        addRecord(record, cartridge + 3, {0, 1, 2, 3});
        addRecord(record, cartridge + 7, {1});
        addRecord(record, cartridge + 8, {0, 0, 4, 5});
        addRecord(record, cartridge + 10, {1});
    }
    for (std::uint32_t id = 0x0400; id <= 0x0417; ++id) addRecord(record, id, {0, 0, 9, 9});
    for (std::uint32_t id = 0x0600; record.size() + 7 <= kRecordSize; ++id) {
        addRecord(record, id, {1, 2, 3, 4});
    }
    return record;
}

/// The most expensive record that fits: only numbers that are used, each traced.
Bytes recordOfNumbers() {
    Bytes record{0, 0};
    while (record.size() + 7 <= kRecordSize) addRecord(record, 0x0400, {0, 0, 0, 9});
    return record;
}

/// Only finds the beginning, id and number of each record.
std::uint32_t walk(const Bytes& record) {
    std::uint32_t sum = 0;
    std::size_t position = 2;
    while (position + 3 <= record.size()) {
        const std::uint32_t id = record[position] * 256U + record[position + 1];
        const std::uint8_t length = record[position + 2];
        sum += id;
        if (length == 4 && position + 7 <= record.size()) {
            for (std::size_t i = 3; i < 7; ++i) sum = sum << 8 | record[position + i];
        }
        position += 3U + length;
    }
    return sum;
}

volatile std::uint32_t result;  // so that nothing is optimised away

template <class Parse>
Row measureRecord(const std::string& name, const Bytes& record, Thoroughness times, Parse parse) {
    const std::array<Work, 2> works{repeated([&] { result = parse(record); }),
                                    repeated([&] { result = walk(record); })};
    const auto timings = timeInTurns(works, {200 * times, 200});
    return {name, timings[0], "a walk over its records", timings[1]};
}

std::uint32_t parseTraced(const Bytes& record) {
    return PrinterCache(record.data(), record.size()).getCartridgeCount();
}

std::uint32_t parseAlone(const Bytes& record) {
    CacheRecord parser;
    parser.parse(record);
    return parser.values().cartridgeCount;
}

/// Has one value, so that only finding and replacing tags takes time.
class OneValue : public ISymbolicResolverHandler {
  public:
    static constexpr std::string_view kValue = "00000409";

    std::optional<std::string> resolveTag(std::string_view /*tagText*/,
                                          std::string_view /*tagName*/) override {
        return std::string(kValue);
    }
};

/// The same replacement with std::string's functions only.
std::string replaceByHand(const std::string& text, std::string_view value) {
    std::string done;
    done.reserve(text.size());
    std::size_t position = 0;
    for (;;) {
        const std::size_t open = text.find("_^", position);
        if (open == std::string::npos) break;
        const std::size_t close = text.find("^_", open + 2);
        if (close == std::string::npos) break;
        done.append(text, position, open - position);
        done.append(value);
        position = close + 2;
    }
    return done.append(text, position);
}

Timing perTag(Timing timing, std::uint32_t tags) {
    return {timing.low / tags, timing.median / tags};
}

Row measureTags(const std::string& name, const std::string& text, std::uint32_t tags,
                Thoroughness times) {
    OneValue handler;
    const std::array<Work, 2> works{
        repeated([&] { result = replaceTags(text, &handler).text.size() & 0xFFU; }),
        repeated([&] { result = replaceByHand(text, OneValue::kValue).size() & 0xFFU; })};
    const auto timings = timeInTurns(works, {1000 * times, std::max(10'000 / tags, 1U)});
    return {name, perTag(timings[0], tags), "found and joined by hand", perTag(timings[1], tags)};
}

}  // namespace

void measureCacheRecord(Report& report, Thoroughness times) {
    const Host host(0);
    report.add(measureRecord("a cache record of 4 KB", ordinaryRecord(), times, parseTraced)
                   .withRatioAtMost(2.5));
    report.add(measureRecord("the same, the parser alone", ordinaryRecord(), times, parseAlone)
                   .withRatioAtMost(2.5));
    report.add(measureRecord("a record of numbers alone", recordOfNumbers(), times, parseTraced));
    report.add(measureRecord("the same, the parser alone", recordOfNumbers(), times, parseAlone)
                   .withRatioAtMost(2.5));
}

void measureMacros(Report& report, Thoroughness times) {
    const std::string tag = "_^CountryCode^_";
    report.add(
        measureTags("an address with one tag", "http://www.example.com/?c=" + tag, 1, times));
    report.add(measureTags("a tag alone", tag, 1, times).withTimeAtMost(60));
    for (const std::uint32_t tags : {10U, 100U}) {
        std::string text;
        for (std::uint32_t i = 0; i < tags; ++i) text += tag;
        report.add(measureTags(concat("each of ", tags, " tags"), text, tags, times));
    }
}

}  // namespace jsw::bench
