#pragma once

#include "tools/jswctl/log/LogLine.h"

#include <string>
#include <vector>

namespace jsw::ctl::log {

/// A busy time.
struct Interval {
    Milliseconds start;
    Milliseconds end;
};

/// Maps times to a picture's horizontal axis. A job mostly waits: long idle times are folded to a
/// narrow band, so that the rest is wide enough.
class TimeAxis {
  public:
    /// A folded idle time.
    struct Fold {
        double x;
        double width;
        Milliseconds duration;
    };
    struct Tick {
        double x;
        std::string label;  ///< time since the beginning, "1.5 s"
    };

    /// @param whole  from the first line to the last; its end is not before its start
    /// @param busy   in any order; clipped to the whole
    /// @param width  of the axis in pixels
    TimeAxis(Interval whole, std::vector<Interval> busy, double width);

    /// The position of a time; times outside are at the ends.
    double x(Milliseconds time) const;
    const std::vector<Fold>& folds() const { return folds_; }
    /// Spaced so that their labels, on the right, do not overlap.
    std::vector<Tick> ticks() const;

  private:
    /// A piece of the axis and its position; all pieces that are not folded have the same scale.
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
