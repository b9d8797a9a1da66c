#pragma once

#include "bench/Timing.h"

#include <string>
#include <vector>

namespace jsw::bench {

/// The target of a measure.
struct Target {
    std::string text;  ///< "at most 1.10 of its floor"
    bool holds;
};

/// One measure beside its floor, the system's own time for the same.
struct Row {
    std::string name;
    Timing measure;
    std::string floorName;
    Timing floor;
    std::vector<Target> targets{};
    double ratioLimit = 0;  ///< 0: none

    /// The ratio of a measure to its floor, from the low times, which are disturbed least.
    double ratio() const { return measure.low / floor.low; }
    Row withRatioAtMost(double limit) &&;
    Row withTimeAtMost(double nanoseconds) &&;
};

/// A quantity other than time, such as lines per second, for several cases.
struct Series {
    struct Point {
        std::string name;
        double value;
    };

    std::string name;
    std::string unit;
    std::vector<Point> points{};
    std::vector<Target> targets{};
};

/// The results of a run.
class Report {
  public:
    /// Also prints the line at once.
    void add(Row row);
    void add(Series series);

    void printHeading() const;
    /// The number of targets that do not hold.
    std::size_t missed() const;
    std::string json() const;

  private:
    std::vector<Row> rows_;
    std::vector<Series> series_;
};

}  // namespace jsw::bench
