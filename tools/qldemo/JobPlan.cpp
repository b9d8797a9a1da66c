#include "tools/qldemo/JobPlan.h"

#include <algorithm>
#include <iterator>

namespace jsw::qldemo {
namespace {

bool has(const std::vector<Step>& steps, Action action) {
    return std::any_of(steps.begin(), steps.end(),
                       [&](const Step& step) { return step.action == action; });
}

/** A step that is not in a script. */
Step impliedStep(double at, Action action, uint32_t number = 0, uint32_t copy = 1) {
    Step step;
    step.at = at;
    step.action = action;
    step.number = number;
    step.copy = copy;
    step.implied = true;
    return step;
}

/** Copies one after another, as by a printer without a sorter. */
void addPages(const DemoOptions& options, std::vector<Step>& steps) {
    double at = 0;
    for (uint32_t copy = 1; copy <= options.copies; ++copy) {
        for (uint32_t page = 1; page <= options.pages; ++page) {
            steps.push_back(impliedStep(at, Action::kPage, page, copy));
            at += options.secondsPerPage;
        }
    }
}

double lastTime(const std::vector<Step>& steps) {
    double last = 0;
    for (const Step& step : steps) last = std::max(last, step.at);
    return last;
}

}  // namespace

std::vector<Step> planJob(const DemoOptions& options, const std::vector<Step>& script,
                          uint32_t job) {
    std::vector<Step> steps;
    std::copy_if(script.begin(), script.end(), std::back_inserter(steps),
                 [&](const Step& step) { return step.job == 0 || step.job == job; });
    const double printing = options.secondsPerPage * options.pages * options.copies;
    double end = lastTime(steps);
    if (has(steps, Action::kPage)) {
        end += options.secondsPerPage;  // the last page takes time, too
    } else {
        addPages(options, steps);
        end = std::max(end, printing);
    }
    if (options.prompt) {
        steps.push_back(impliedStep(printing / 2, Action::kPrompt, *options.prompt));
    }
    if (!has(steps, Action::kEnd)) steps.push_back(impliedStep(end, Action::kEnd));
    std::stable_sort(steps.begin(), steps.end(),
                     [](const Step& left, const Step& right) { return left.at < right.at; });
    return steps;
}

}  // namespace jsw::qldemo
