#include "tools/jswctl/log/TimeAxis.h"

#include <algorithm>
#include <cstdio>

namespace jsw::ctl::log {

namespace {

constexpr double kFoldWidth = 44;
constexpr std::size_t kMaxFolds = 10;
constexpr Milliseconds kShortestFold = 200;
constexpr double kTickDistance = 70;
constexpr double kLabelWidth = 40;  // of a tick, to the right of it

/// The gaps between the intervals, in order.
std::vector<Interval> gapsBetween(std::vector<Interval> busy, const Interval& whole) {
    std::sort(busy.begin(), busy.end(),
              [](const Interval& one, const Interval& other) { return one.start < other.start; });
    std::vector<Interval> gaps;
    Milliseconds end = whole.start;
    for (const Interval& interval : busy) {
        const Milliseconds start = std::min(interval.start, whole.end);
        if (start > end) gaps.push_back({end, start});
        end = std::max(end, std::min(interval.end, whole.end));
    }
    if (whole.end > end) gaps.push_back({end, whole.end});
    return gaps;
}

Milliseconds length(const Interval& interval) {
    return interval.end - interval.start;
}

/// The gaps to fold: the longest of the long ones.
std::vector<Interval> foldable(std::vector<Interval> gaps, const Interval& whole) {
    const Milliseconds shortest = std::max(kShortestFold, length(whole) / 20);
    std::erase_if(gaps, [&](const Interval& gap) { return length(gap) < shortest; });
    std::stable_sort(gaps.begin(), gaps.end(), [](const Interval& one, const Interval& other) {
        return length(one) > length(other);
    });
    if (gaps.size() > kMaxFolds) gaps.resize(kMaxFolds);
    std::sort(gaps.begin(), gaps.end(),
              [](const Interval& one, const Interval& other) { return one.start < other.start; });
    return gaps;
}

/// 1, 2, 5, 10, 20, 50, … milliseconds: the first that keeps ticks apart.
Milliseconds tickStep(double scale) {
    Milliseconds power = 1;
    while (true) {
        for (const Milliseconds factor : {1, 2, 5}) {
            if (static_cast<double>(factor * power) * scale >= kTickDistance) return factor * power;
        }
        power *= 10;
    }
}

std::string tickLabel(Milliseconds time, Milliseconds step) {
    char text[32];
    const int decimals = step >= 1000 ? 0 : step >= 100 ? 1 : step >= 10 ? 2 : 3;
    std::snprintf(text, sizeof(text), "%.*f s", decimals, static_cast<double>(time) / 1000.0);
    return text;
}

}  // namespace

TimeAxis::TimeAxis(Interval whole, std::vector<Interval> busy, double width) : whole_(whole) {
    const auto folded = foldable(gapsBetween(std::move(busy), whole), whole);
    Milliseconds shown = length(whole);
    for (const Interval& gap : folded) shown -= length(gap);
    const double room = width - kFoldWidth * static_cast<double>(folded.size());
    scale_ = room / static_cast<double>(std::max<Milliseconds>(shown, 1));

    Milliseconds time = whole.start;
    for (const Interval& gap : folded) {
        addSegment({time, gap.start}, false, scale_);
        addSegment(gap, true, scale_);
        time = gap.end;
    }
    addSegment({time, whole.end}, false, scale_);
}

void TimeAxis::addSegment(Interval time, bool folded, double scale) {
    const double x = segments_.empty() ? 0 : segments_.back().x + segments_.back().width;
    const double width = folded ? kFoldWidth : static_cast<double>(length(time)) * scale;
    segments_.push_back({time, x, width, folded});
    if (folded) folds_.push_back({x, width, length(time)});
}

double TimeAxis::x(Milliseconds time) const {
    time = std::clamp(time, whole_.start, whole_.end);
    const auto segment = std::find_if(segments_.begin(), segments_.end(),
                                      [&](const Segment& one) { return time <= one.time.end; });
    const Milliseconds duration = length(segment->time);
    if (duration == 0) return segment->x;
    const double part =
        static_cast<double>(time - segment->time.start) / static_cast<double>(duration);
    return segment->x + part * segment->width;
}

std::vector<TimeAxis::Tick> TimeAxis::ticks() const {
    const Milliseconds step = tickStep(scale_);
    std::vector<Tick> result;
    double free = 0;  // start of free room for labels
    for (const Segment& segment : segments_) {
        const double end = segment.x + segment.width;
        if (segment.folded) {
            free = end;  // a fold has its own label
            continue;
        }
        const Milliseconds from = segment.time.start - whole_.start;
        const Milliseconds to = segment.time.end - whole_.start;
        for (Milliseconds time = (from + step - 1) / step * step; time <= to; time += step) {
            const double place = x(whole_.start + time);
            // Time 0 always has a label if the axis has no other.
            const bool isOnly = place == 0 && folds_.empty();
            if (place < free || (place + kLabelWidth > end && !isOnly)) continue;
            result.push_back({place, tickLabel(time, step)});
            free = place + kLabelWidth;
        }
    }
    return result;
}

}  // namespace jsw::ctl::log
