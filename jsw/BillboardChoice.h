#pragma once

#include <atomic>

namespace jsw {

class BillboardView;
class Controller;
class JobTexts;
struct Job;

/// Chooses a job's billboard by the rules and shows it. The rules engine returns ids, the catalog
/// the candidates for each id; the first candidate wins whose file exists and which the history
/// does not exclude. At the end the engine, which lives as long as the call, gets the outcome.
///
/// Runs on the rules thread until a billboard is found, no rule remains, or stop is set.
void chooseBillboard(const Job& job, Controller& controller, const BillboardView& view,
                     JobTexts& texts, const std::atomic<bool>& stop);

}  // namespace jsw
