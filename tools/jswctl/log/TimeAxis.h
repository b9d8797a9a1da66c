#pragma once

#include "tools/jswctl/log/LogLine.h"

#include <string>
#include <vector>

namespace jsw::ctl::log {

/// A time during which something happened.
struct Interval {
    Milliseconds start;
    Milliseconds end;
};

/// Places times on a picture's horizontal axis. A job mostly waits: stretches in which nothing
/// happens are folded to a narrow band, so that the rest is wide enough to be seen.
class TimeAxis {
  public:
    /// A stretch that was folded.
    struct Fold {
        double x;
        double width;
        Milliseconds duration;
    };
    struct Tick {
        double x;
        std::string label;  ///< since the beginning, "1.5 s"
    };

    /// @param whole  from the first line to the last; its end is not before its start
    /// @param busy   in any order; what lies outside of the whole is cut
    /// @param width  of the axis in pixels
    TimeAxis(Interval whole, std::vector<Interval> busy, double width);

    /// The place of a time; times outside are put at the ends.
    double x(Milliseconds time) const;
    const std::vector<Fold>& folds() const { return folds_; }
    /// So far apart that their labels, to the right of them, do not meet.
    std::vector<Tick> ticks() const;

  private:
    /// A stretch and its place; the scale is the same for all that are not folded.
    struct Segment {
        Interval time;
        double x;
        double width;
        bool folded;
    };

    void addSegment(Interval time, bool folded, double scale);

    Interval whole_;
    double scale_;
    std::vector<Segment> segments_;
    std::vector<Fold> folds_;
};

}  // namespace jsw::ctl::log
