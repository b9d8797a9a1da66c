#include "tools/qldemo/DemoScript.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <stdexcept>

namespace jsw::qldemo {
namespace {

constexpr uint32_t kAnyNumber = std::numeric_limits<uint32_t>::max();

template <class Value>
struct Named {
    const char* name;
    Value value;
};

constexpr Named<Action> kActions[] = {
    {"page", Action::kPage}, {"prompt", Action::kPrompt},         {"post", Action::kPost},
    {"end", Action::kEnd},   {"click", Action::kClick},           {"answer", Action::kAnswer},
    {"look", Action::kLook}, {"screenshot", Action::kScreenshot},
};

constexpr Named<Target> kTargets[] = {
    {"previous", Target::kPrevious},
    {"current", Target::kCurrent},
    {"next", Target::kNext},
    {"ink", Target::kInk},
    {"cancel", Target::kCancel},
    {"updates", Target::kUpdates},
    {"special", Target::kSpecial},
    {"minimise", Target::kMinimise},
    {"restore", Target::kRestore},
    {"close", Target::kClose},
    {"close-job", Target::kCloseJob},
    {"yes", Target::kYes},
    {"no", Target::kNo},
    {"window", Target::kActivate},
    {"button", Target::kPageButton},
};

/** Windows' ids of its dialogs' buttons. */
constexpr Named<uint32_t> kAnswers[] = {
    {"ok", 1}, {"cancel", 2}, {"abort", 3}, {"retry", 4}, {"ignore", 5}, {"yes", 6}, {"no", 7},
};

template <class Value, size_t count>
const Value* findNamed(const Named<Value> (&table)[count], std::string_view name) {
    const auto* found = std::find_if(std::begin(table), std::end(table),
                                     [&](const Named<Value>& entry) { return name == entry.name; });
    return found == std::end(table) ? nullptr : &found->value;
}

template <class Value, size_t count>
std::string nameOf(const Named<Value> (&table)[count], Value value) {
    const auto* found =
        std::find_if(std::begin(table), std::end(table),
                     [&](const Named<Value>& entry) { return value == entry.value; });
    return found == std::end(table) ? std::string() : found->name;
}

template <class Value, size_t count>
std::string namesOf(const Named<Value> (&table)[count]) {
    std::string names;
    for (const Named<Value>& entry : table) {
        names += (names.empty() ? "" : ", ") + std::string(entry.name);
    }
    return names;
}

/** The words of one line, taken one after another. */
class Words {
  public:
    explicit Words(std::string_view line) : rest_(line.substr(0, line.find('#'))) {}

    /** Empty at the end. */
    std::string_view next() {
        constexpr std::string_view kBlanks = " \t\r";
        rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
        const std::string_view word = rest_.substr(0, rest_.find_first_of(kBlanks));
        rest_.remove_prefix(word.size());
        return word;
    }

    uint32_t number(const char* what, uint32_t lowest, uint32_t highest = kAnyNumber) {
        const std::string_view word = next();
        const auto value = parseWhole(word, lowest, highest);
        if (!value) throw std::invalid_argument("'" + std::string(word) + "' is no " + what);
        return *value;
    }

  private:
    std::string_view rest_;
};

void readClick(Words& words, Step& step) {
    const std::string_view what = words.next();
    const Target* target = findNamed(kTargets, what);
    if (target == nullptr) {
        throw std::invalid_argument("there is nothing called '" + std::string(what) + "' to click");
    }
    step.target = *target;
    if (step.target == Target::kPageButton) step.number = words.number("button", 1, 100);
}

void readAnswer(Words& words, Step& step) {
    const std::string_view what = words.next();
    const uint32_t* answer = findNamed(kAnswers, what);
    const auto number = parseWhole(what, 1, 0xFFFF);
    if (answer == nullptr && !number) {
        throw std::invalid_argument("'" + std::string(what) + "' is no answer");
    }
    step.number = answer != nullptr ? *answer : *number;
}

void readScreenshot(Words& words, Step& step) {
    step.name = words.next();
    // The name becomes part of a path.
    if (step.name.empty() || step.name.find_first_of("/\\:.*?\"<>|") != std::string::npos) {
        throw std::invalid_argument("'" + step.name + "' is no name for a screenshot");
    }
}

/** The arguments of the step's action. */
void readArguments(Words& words, Step& step) {
    switch (step.action) {
        case Action::kPage: {
            step.number = words.number("page", 1);
            Words look = words;
            step.copy = look.next().empty() ? 1 : words.number("copy", 1);
            break;
        }
        case Action::kPrompt:
            step.number = words.number("prompt type", 0);
            break;
        case Action::kPost:
            step.number = words.number("message", 0);
            break;
        case Action::kClick:
            readClick(words, step);
            break;
        case Action::kAnswer:
            readAnswer(words, step);
            break;
        case Action::kScreenshot:
            readScreenshot(words, step);
            break;
        case Action::kEnd:
        case Action::kLook:
            break;
    }
}

/** Reads lines in order; keeps the job and the time of the last one. */
class ScriptReader {
  public:
    void readLine(std::string_view line) {
        Words words(line);
        const std::string_view first = words.next();
        if (first.empty()) return;
        if (first == "job") {
            job_ = words.number("job", 1);
            time_ = 0;
        } else if (first == "at") {
            steps_.push_back(readStep(words));
        } else {
            throw std::invalid_argument("'" + std::string(first) + "' is neither at nor job");
        }
        const std::string_view extra = words.next();
        if (!extra.empty()) throw std::invalid_argument("'" + std::string(extra) + "' is too much");
    }

    std::vector<Step> take() { return std::move(steps_); }

  private:
    Step readStep(Words& words) {
        const std::string_view time = words.next();
        const auto seconds = parseSeconds(time);
        if (!seconds) {
            throw std::invalid_argument("'" + std::string(time) + "' is no time in seconds");
        }
        if (*seconds < time_) throw std::invalid_argument("the time goes back");
        time_ = *seconds;
        const std::string_view name = words.next();
        const Action* action = findNamed(kActions, name);
        if (action == nullptr) {
            throw std::invalid_argument("unknown step '" + std::string(name) + "'");
        }
        Step step;
        step.at = time_;
        step.action = *action;
        step.job = job_;
        readArguments(words, step);
        return step;
    }

    std::vector<Step> steps_;
    uint32_t job_ = 0;
    double time_ = 0;
};

}  // namespace

bool isDriverStep(const Step& step) {
    return step.action == Action::kPage || step.action == Action::kPrompt ||
           step.action == Action::kPost || step.action == Action::kEnd;
}

std::string describe(const Step& step) {
    std::string action = nameOf(kActions, step.action);
    const std::string number = std::to_string(step.number);
    switch (step.action) {
        case Action::kClick:
            return action + " " + nameOf(kTargets, step.target) +
                   (step.target == Target::kPageButton ? " " + number : "");
        case Action::kAnswer: {
            const std::string answer = nameOf(kAnswers, step.number);
            return action + " " + (answer.empty() ? number : answer);
        }
        case Action::kScreenshot:
            return action + " " + step.name;
        case Action::kPage:
        case Action::kPrompt:
        case Action::kPost:
            return action + " " + number;
        case Action::kEnd:
        case Action::kLook:
            break;
    }
    return action;
}

std::string scriptHelp() {
    return "Scripts have one step per line; # starts a comment:\n"
           "  job N                       the following lines are for the Nth job only\n"
           "  at SECONDS page N [COPY]    the driver reports page N\n"
           "  at SECONDS prompt TYPE      the driver asks the user; returns after the answer\n"
           "  at SECONDS post NUMBER      the driver passes a message to the open prompt\n"
           "  at SECONDS end              the driver ends the job\n"
           "  at SECONDS click WHAT       the user presses " +
           namesOf(kTargets) +
           " N\n"
           "  at SECONDS answer WHAT      the user answers a prompt: " +
           namesOf(kAnswers) +
           " or the number of a button\n"
           "  at SECONDS look             prints what the job window shows\n"
           "  at SECONDS screenshot NAME  asks for a screenshot and waits for it\n"
           "Times are relative to the start of the job and must not decrease.\n";
}

ParsedScript parseScript(std::string_view text) {
    ParsedScript parsed;
    ScriptReader reader;
    uint32_t lineNumber = 0;
    while (!text.empty()) {
        ++lineNumber;
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        try {
            reader.readLine(line);
        } catch (const std::invalid_argument& problem) {
            parsed.error = "line " + std::to_string(lineNumber) + ": " + problem.what();
            return parsed;
        }
    }
    parsed.steps = reader.take();
    return parsed;
}

}  // namespace jsw::qldemo
