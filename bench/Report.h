#pragma once

#include "bench/Timing.h"

#include <string>
#include <vector>

namespace jsw::bench {

/// What a measure should come to.
struct Target {
    std::string text;  ///< "at most 1.10 of its floor"
    bool holds;
};

/// One measure beside what the system itself takes for the same.
struct Row {
    std::string name;
    Timing measure;
    std::string floorName;
    Timing floor;
    std::vector<Target> targets{};
    double ratioLimit = 0;  ///< 0: none

    /// How many times its floor a measure takes. Of the shortest times: they are the least
    /// disturbed.
    double ratio() const { return measure.min / floor.min; }
    Row withRatioAtMost(double limit) &&;
    Row withTimeAtMost(double nanoseconds) &&;
};

/// A quantity that is no time, such as lines per second, for each of several cases.
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

/// All that one run has found.
class Report {
  public:
    /// Prints a line at once, so that somebody who waits sees something.
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
