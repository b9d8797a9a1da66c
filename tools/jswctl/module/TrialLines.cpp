#include "tools/jswctl/module/TrialLines.h"

#include <nlohmann/json.hpp>

namespace jsw::ctl {

namespace {

using Json = nlohmann::json;

std::string asLine(const Json& object) {
    return object.dump(-1, ' ', true, Json::error_handler_t::replace) + "\n";
}

/// Module texts are ANSI, JSON is not: each byte is sent as the character with the same number.
std::string packed(const std::string& text) {
    std::string utf8;
    for (const char letter : text) {
        const auto byte = static_cast<unsigned char>(letter);
        if (byte < 0x80) {
            utf8 += letter;
        } else {
            utf8 += static_cast<char>(0xC0 | (byte >> 6));
            utf8 += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
    return utf8;
}

std::string unpacked(const std::string& utf8) {
    std::string text;
    for (std::size_t index = 0; index < utf8.size(); ++index) {
        const auto byte = static_cast<unsigned char>(utf8[index]);
        if (byte < 0x80 || index + 1 == utf8.size()) {
            text += utf8[index];
        } else {
            const auto low = static_cast<unsigned char>(utf8[++index]);
            text += static_cast<char>(((byte & 0x03) << 6) | (low & 0x3F));
        }
    }
    return text;
}

std::string textOf(const Json& object, const char* name) {
    const auto entry = object.find(name);
    return entry != object.end() && entry->is_string() ? unpacked(entry->get<std::string>())
                                                       : std::string();
}

}  // namespace

namespace trialline {

std::string begin(const std::string& call) {
    return asLine({{"begin", packed(call)}});
}
std::string end(double milliseconds, const std::string& answer) {
    return asLine({{"end", milliseconds}, {"answer", packed(answer)}});
}
std::string problem(const std::string& text) {
    return asLine({{"problem", packed(text)}});
}
std::string fault(const std::string& text) {
    return asLine({{"fault", packed(text)}});
}
std::string finished() {
    return asLine({{"finished", true}});
}

}  // namespace trialline

void takeTrialLine(std::string_view line, ModuleTrial& trial) {
    const Json object = Json::parse(line, nullptr, false);
    if (!object.is_object()) return;
    if (object.contains("begin")) {
        trial.calls.push_back({textOf(object, "begin"), false, 0, {}});
    } else if (object.contains("end") && object["end"].is_number() && !trial.calls.empty()) {
        ModuleCall& call = trial.calls.back();
        call.ended = true;
        call.milliseconds = object["end"].get<double>();
        call.answer = textOf(object, "answer");
    } else if (object.contains("problem")) {
        trial.problem = textOf(object, "problem");
    } else if (object.contains("fault")) {
        trial.faults.push_back(textOf(object, "fault"));
    } else if (object.contains("finished")) {
        trial.finished = true;
    }
}

}  // namespace jsw::ctl
