#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <string>
#include <vector>

namespace bench {

using benchmark::ClobberMemory;
using benchmark::DoNotOptimize;

// A comparison: what one piece of work costs in terms of another. The figure is the time of one run of
// `numerator` divided by the time of one run of `denominator` (a peer's way to do the same, or a floor such
// as a memset of the same pixels), so it means the same on a slow and on a fast machine.
struct Figure {
  std::string name;                   // lower_case_with_underscores, unique among all programs
  std::function<void()> numerator;    // does its work `numeratorRuns` times
  std::function<void()> denominator;  // does its work `denominatorRuns` times
  double bar = 0;                     // the figure holds when it is at most the bar; 0: printed, not judged
  std::string unit = "us";            // in which both times are shown: "ns", "us", "ms" or "s"
  double numeratorRuns = 1;           // times are shown and divided per run
  double denominatorRuns = 1;
  bool atLeast = false;  // the figure holds when it is at least the bar (a speed-up, a rate)
};

// A time without a peer: printed for information, never judged unless a bar in its unit is given.
struct Timing {
  std::string name;
  std::function<void()> work;  // does its work `runs` times
  std::string unit = "us";
  double runs = 1;
  double bar = 0;  // holds when the time in `unit` is at most the bar; 0: printed, not judged
};

// The figures of one program. main() declares them one after the other and returns Result():
//
//   int main(int argc, char** argv) {
//     bench::Figures figures(argc, argv);
//     figures.Compare({.name = "waveform_rows_against_memset",
//                      .numerator = [&] { DrawRows(pixels); },
//                      .denominator = [&] { std::memset(...); },
//                      .bar = 2.0});
//     return figures.Result();
//   }
//
// Each figure is measured five times; numerator and denominator take turns in short slices within each
// repetition, which cancels drift of the machine; the median of the five ratios is the figure. Program
// arguments: --filter NAME (only figures whose names contain NAME; may be repeated), --list,
// --quick (one short repetition: shows that the program works, measures nothing of worth; no bar is judged).
class Figures {
 public:
  Figures(int argc, char** argv);

  // True if the figure is asked for, so that costly preparations for others can be left out.
  bool Wants(const std::string& name) const;

  void Compare(const Figure& figure);
  void Time(const Timing& timing);

  // A figure that was counted rather than timed: bytes, allocations, repainted pixels.
  void Count(const std::string& name, double numerator, double denominator, double bar,
             const std::string& unit);
  // A plain number for information.
  void Print(const std::string& name, double value, const std::string& unit);

  // The exit code: 0 if every judged figure holds, else 1; 2 for bad arguments.
  int Result() const;

 private:
  void PrintLine(const std::string& name, double figure, const std::string& parts, double bar, bool atLeast);

  std::vector<std::string> mFilters;
  bool mListOnly = false;
  bool mQuick = false;
  bool mBadArguments = false;
  bool mFallsShort = false;
};

}  // namespace bench
