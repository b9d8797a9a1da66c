#include "tools/jswctl/log/Timeline.h"

#include "PublicLib/text/Text.h"
#include "tools/jswctl/log/Html.h"
#include "tools/jswctl/log/Lanes.h"
#include "tools/jswctl/log/Statistics.h"
#include "tools/jswctl/log/TimeAxis.h"
#include "tools/jswctl/log/Words.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace jsw::ctl::log {

namespace {

using html::attribute;
using html::escaped;
using html::number;

constexpr double kWidth = 1120;
constexpr double kLeft = 96;  // the threads' names
constexpr double kRight = 12;
constexpr double kTop = 26;  // the axis
constexpr double kRow = 15;
constexpr double kBar = 13;
constexpr double kLaneGap = 14;
constexpr double kMarkRoom = 12;  // above a lane's first row
constexpr double kMinBar = 1.4;
constexpr double kLetter = 5.9;  // of a bar's label
constexpr std::size_t kMaxMarks = 300;

/// The meaning of a bar's colour.
struct CallKind {
    std::string_view cssClass;
    std::string_view name;  // in the legend; for a module moduleOf()'s name
};

constexpr CallKind kKinds[] = {
    {"view", "view"},          {"catalog", "catalog"}, {"rules", "rules engine"},
    {"older", "older window"}, {"update", "updates"},  {"own", "the library"},
};

std::string_view cssClassOf(std::string_view method) {
    const std::string_view module = moduleOf(method);
    if (!module.empty()) {
        const auto* const kind =
            std::find_if(std::begin(kKinds), std::end(kKinds),
                         [&](const CallKind& one) { return one.name == module; });
        return kind->cssClass;
    }
    return method.starts_with("AppUpdatesController::") ? "update" : "own";
}

/// A lane with its position.
struct Lane : LaneThreads {
    double y;  // of the first row
    double bottom() const { return y + kRow * static_cast<double>(depths.size()); }
};

/// Calls by their start, outer ones first.
std::vector<const Call*> inOrder(const LoggedJob& job) {
    std::vector<const Call*> calls;
    for (const Call& call : job.calls) {
        if (call.start.time) calls.push_back(&call);
    }
    std::stable_sort(calls.begin(), calls.end(), [](const Call* one, const Call* other) {
        return one->start.line < other->start.line;
    });
    return calls;
}

/// Lanes, top one first.
std::vector<Lane> placedLanes(const LoggedJob& job, const std::vector<const Call*>& calls) {
    std::vector<Lane> lanes;
    double y = kTop + kMarkRoom;
    for (LaneThreads& part : shareOut(job, calls)) {
        lanes.push_back({std::move(part), y});
        y = lanes.back().bottom() + kLaneGap + kMarkRoom;
    }
    return lanes;
}

TimeAxis axisOf(const LoggedJob& job, const std::vector<const Call*>& calls) {
    std::vector<Interval> busy;
    busy.reserve(calls.size() + job.story.size());
    for (const Call* call : calls) {
        busy.push_back({*call->start.time, *call->start.time + call->duration});
    }
    for (const Event& event : job.story) {
        if (event.place.time) busy.push_back({*event.place.time, *event.place.time});
    }
    return {{*job.first.time, *job.last.time}, std::move(busy), kWidth - kLeft - kRight};
}

std::string rectangle(std::string_view cssClass, double x, double y, double width, double height) {
    return concat("<rect", attribute("class", cssClass), attribute("x", x), attribute("y", y),
                  attribute("width", width), attribute("height", height));
}

std::string text(std::string_view cssClass, double x, double y, std::string_view content) {
    return concat("<text", attribute("class", cssClass), attribute("x", x), attribute("y", y), ">",
                  escaped(content), "</text>\n");
}

std::string tooltip(const Call& call) {
    std::string words =
        concat(call.name, ", ", secondsInWords(call.duration), ", line ", call.start.line);
    if (!call.result.empty()) words += concat(", result ", call.result);
    if (!call.returned) words += ", did not return in this log";
    return concat("<title>", escaped(words), "</title>");
}

std::string axisAsSvg(const TimeAxis& axis, double bottom) {
    std::string svg;
    for (const TimeAxis::Fold& fold : axis.folds()) {
        svg += rectangle("fold", kLeft + fold.x, kTop - 4, fold.width, bottom - kTop + 4);
        svg += concat("><title>idle for ", secondsInWords(fold.duration), "</title></rect>\n");
        svg +=
            text("axis middle", kLeft + fold.x + fold.width / 2, 14, secondsInWords(fold.duration));
    }
    for (const TimeAxis::Tick& tick : axis.ticks()) {
        const double x = kLeft + tick.x;
        svg += concat("<line class=\"grid\"", attribute("x1", x), attribute("x2", x),
                      attribute("y1", kTop - 4), attribute("y2", bottom), "/>\n");
        svg += text("axis", x + 2, 14, tick.label);
    }
    return svg;
}

std::string barAsSvg(const Call& call, double x, double y, double width) {
    const std::string cssClass =
        concat("bar ", cssClassOf(call.name), call.returned ? "" : " open");
    std::string svg = rectangle(cssClass, x, y, width, kBar);
    svg += concat(">", tooltip(call), "</rect>\n");
    const std::size_t colons = call.name.rfind("::");
    const std::string_view label = std::string_view(call.name).substr(colons + 2);
    if (static_cast<double>(label.size()) * kLetter + 6 < width) {
        svg += text("label", x + 3, y + 10, label);
    }
    return svg;
}

/// Omits bars that would cover the previous one of their row: they are too narrow to be seen.
std::string barsAsSvg(const Lane& lane, const std::vector<const Call*>& calls,
                      const TimeAxis& axis) {
    std::string svg;
    std::vector<double> drawnTo(lane.depths.size());
    for (const Call* call : calls) {
        if (!lane.has(call->thread)) continue;
        const auto depth = std::find(lane.depths.begin(), lane.depths.end(), call->depth);
        if (depth == lane.depths.end()) continue;
        const auto row = static_cast<std::size_t>(depth - lane.depths.begin());
        const double x = kLeft + axis.x(*call->start.time);
        const double end =
            std::max(kLeft + axis.x(*call->start.time + call->duration), x + kMinBar);
        if (end <= drawnTo[row] + 0.5) continue;
        drawnTo[row] = end;
        svg += barAsSvg(*call, x, lane.y + kRow * static_cast<double>(row), end - x);
    }
    return svg;
}

std::string laneAsSvg(const Lane& lane, const LoggedJob& job) {
    std::string svg = rectangle("lane", kLeft, lane.y - kMarkRoom, kWidth - kLeft - kRight,
                                lane.bottom() - lane.y + kMarkRoom);
    const ThreadInfo& thread = job.threads[lane.threads.front()];
    const bool isOne = lane.threads.size() == 1;
    svg += "/>\n";
    svg += text("thread", 2, lane.y + 2, concat(thread.name, isOne ? " thread" : " threads"));
    if (isOne && thread.id)
        svg += text("axis", 2, lane.y + 15, concat("tid ", idInWords(*thread.id)));
    if (!isOne) svg += text("axis", 2, lane.y + 15, concat(lane.threads.size(), " in turn"));
    return svg;
}

/// A triangle above its thread's lane, at the time of the problem's line.
std::string marksAsSvg(const LoggedJob& job, const std::vector<Lane>& lanes, const TimeAxis& axis) {
    std::string svg;
    std::size_t count = 0;
    for (const Problem& problem : job.problems) {
        const auto lane = std::find_if(lanes.begin(), lanes.end(),
                                       [&](const Lane& one) { return one.has(problem.thread); });
        if (!problem.first.time || lane == lanes.end() || ++count > kMaxMarks) continue;
        const double x = kLeft + axis.x(*problem.first.time);
        const double y = lane->y - 1;
        svg += concat(
            "<path", attribute("class", concat("mark ", impactInWords(problem.known->impact))),
            " d=\"M", number(x), " ", number(y), "l-5 -9h10z\"><title>",
            escaped(concat("line ", problem.first.line, ": ", problem.line)), "</title></path>\n");
    }
    return svg;
}

}  // namespace

std::string legendAsHtml() {
    std::string page = "<p class=\"legend\">";
    for (const CallKind& kind : kKinds) {
        page += concat("<span class=\"key ", kind.cssClass, "\"></span>", escaped(kind.name), " ");
    }
    return page +
           "<span class=\"mark stops\">&#9660;</span>stops something "
           "<span class=\"mark hinders\">&#9660;</span>hinders "
           "<span class=\"mark note\">&#9660;</span>note "
           "<span class=\"key fold\"></span>idle time, shortened</p>\n";
}

std::string timelineAsSvg(const LoggedJob& job) {
    const auto calls = inOrder(job);
    if (!job.duration() || calls.empty()) return {};
    const auto lanes = placedLanes(job, calls);
    const TimeAxis axis = axisOf(job, calls);
    const double bottom = lanes.back().bottom() + 4;
    std::string svg =
        concat("<svg class=\"timeline\" role=\"img\" viewBox=\"0 0 ", number(kWidth), " ",
               number(bottom + 4), "\"",
               attribute("aria-label", concat("Timeline of job ", job.number)), ">\n");
    for (const Lane& lane : lanes) svg += laneAsSvg(lane, job);
    svg += axisAsSvg(axis, bottom);
    for (const Lane& lane : lanes) svg += barsAsSvg(lane, calls, axis);
    return svg + marksAsSvg(job, lanes, axis) + "</svg>\n";
}

}  // namespace jsw::ctl::log
