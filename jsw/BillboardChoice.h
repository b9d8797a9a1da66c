#pragma once

#include <atomic>

namespace jsw {

class BillboardView;
class Controller;
class JobTexts;
struct Job;

/// Lets the rules choose a job's billboard and shows it: the rules engine names ids, the catalog
/// the candidates that each stands for, and the first one wins that the history lets through and
/// whose file is there. The engine, which lives as long as the call, is told the outcome.
///
/// Runs on the rules thread. Ends when a billboard is found, no rule is left, or stop is set.
void chooseBillboard(const Job& job, Controller& controller, const BillboardView& view,
                     JobTexts& texts, const std::atomic<bool>& stop);

}  // namespace jsw
