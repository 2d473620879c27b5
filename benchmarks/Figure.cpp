#include "Figure.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>

namespace bench {

namespace {

constexpr int kRepetitions = 5;
constexpr int kSlices = 8;                  // turns that each side takes within a repetition
constexpr double kSecondsPerSlice = 0.015;  // 0.12 s a side and repetition

double SecondsOf(const std::function<void()>& work, std::int64_t calls) {
  const auto begin = std::chrono::steady_clock::now();
  for (std::int64_t i = 0; i < calls; ++i) {
    work();
    ClobberMemory();
  }
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

// Warms up and finds how many calls fill a slice.
std::int64_t CallsPerSlice(const std::function<void()>& work, double sliceSeconds) {
  SecondsOf(work, 1);
  std::int64_t calls = 1;
  for (;;) {
    const double seconds = SecondsOf(work, calls);
    if (seconds >= sliceSeconds) {
      return calls;
    }
    const double factor = seconds > 0 ? 1.2 * sliceSeconds / seconds : 10.0;
    calls = static_cast<std::int64_t>(static_cast<double>(calls) * std::clamp(factor, 1.2, 10.0)) + 1;
  }
}

template <typename T>
T Median(std::vector<T> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

double UnitsPerSecond(const std::string& unit) {
  if (unit == "ns") {
    return 1e9;
  }
  if (unit == "us") {
    return 1e6;
  }
  return unit == "ms" ? 1e3 : 1.0;
}

std::string Number(double value) {
  std::array<char, 48> text{};
  const double size = value < 0 ? -value : value;
  const char* format = size >= 1000 ? "%.0f" : size >= 100 ? "%.1f" : size >= 10 ? "%.2f" : "%.3f";
  std::snprintf(text.data(), text.size(), format, value);
  return text.data();
}

}  // namespace

Figures::Figures(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    const std::string argument = argv[i];
    if (argument == "--filter" && i + 1 < argc) {
      mFilters.emplace_back(argv[++i]);
    } else if (argument == "--list") {
      mListOnly = true;
    } else if (argument == "--quick") {
      mQuick = true;
    } else {
      std::fprintf(stderr, "%s: usage: [--filter NAME]... [--list] [--quick]\n", argv[0]);
      mBadArguments = true;
    }
  }
}

bool Figures::Wants(const std::string& name) const {
  if (mBadArguments) {
    return false;
  }
  const bool selected =
      mFilters.empty() || std::any_of(mFilters.begin(), mFilters.end(), [&](const std::string& filter) {
        return name.find(filter) != std::string::npos;
      });
  return selected;
}

void Figures::Compare(const Figure& figure) {
  if (!Wants(figure.name)) {
    return;
  }
  if (mListOnly) {
    std::puts(figure.name.c_str());
    return;
  }
  struct Sample {
    double ratio, numerator, denominator;
    bool operator<(const Sample& other) const { return ratio < other.ratio; }
  };
  const double sliceSeconds = mQuick ? 0.0 : kSecondsPerSlice;
  const std::int64_t numeratorCalls = CallsPerSlice(figure.numerator, sliceSeconds);
  const std::int64_t denominatorCalls = CallsPerSlice(figure.denominator, sliceSeconds);
  std::vector<Sample> samples;
  for (int repetition = 0; repetition < (mQuick ? 1 : kRepetitions); ++repetition) {
    double numerator = 0;
    double denominator = 0;
    for (int slice = 0; slice < (mQuick ? 1 : kSlices); ++slice) {
      const bool numeratorFirst = slice % 2 == 0;
      if (numeratorFirst) {
        numerator += SecondsOf(figure.numerator, numeratorCalls);
      }
      denominator += SecondsOf(figure.denominator, denominatorCalls);
      if (!numeratorFirst) {
        numerator += SecondsOf(figure.numerator, numeratorCalls);
      }
    }
    const double slices = mQuick ? 1 : kSlices;
    numerator /= static_cast<double>(numeratorCalls) * slices * figure.numeratorRuns;
    denominator /= static_cast<double>(denominatorCalls) * slices * figure.denominatorRuns;
    samples.push_back({numerator / denominator, numerator, denominator});
  }
  const Sample median = Median(samples);
  const double scale = UnitsPerSecond(figure.unit);
  PrintLine(figure.name, median.ratio,
            Number(median.numerator * scale) + " / " + Number(median.denominator * scale) + " " + figure.unit,
            figure.bar, figure.atLeast);
}

void Figures::Time(const Timing& timing) {
  if (!Wants(timing.name)) {
    return;
  }
  if (mListOnly) {
    std::puts(timing.name.c_str());
    return;
  }
  const std::int64_t calls = CallsPerSlice(timing.work, mQuick ? 0.0 : kSecondsPerSlice * kSlices);
  std::vector<double> samples;
  for (int repetition = 0; repetition < (mQuick ? 1 : kRepetitions); ++repetition) {
    samples.push_back(SecondsOf(timing.work, calls) / (static_cast<double>(calls) * timing.runs));
  }
  PrintLine(timing.name, Median(samples) * UnitsPerSecond(timing.unit), timing.unit, timing.bar, false);
}

void Figures::Count(const std::string& name, double numerator, double denominator, double bar,
                    const std::string& unit) {
  if (!Wants(name)) {
    return;
  }
  if (mListOnly) {
    std::puts(name.c_str());
    return;
  }
  PrintLine(name, numerator / denominator, Number(numerator) + " / " + Number(denominator) + " " + unit, bar,
            false);
}

void Figures::Print(const std::string& name, double value, const std::string& unit) {
  if (!Wants(name)) {
    return;
  }
  if (mListOnly) {
    std::puts(name.c_str());
    return;
  }
  PrintLine(name, value, unit, 0, false);
}

int Figures::Result() const {
  return mBadArguments ? 2 : mFallsShort ? 1 : 0;
}

void Figures::PrintLine(const std::string& name, double figure, const std::string& parts, double bar,
                        bool atLeast) {
  std::string verdict = "printed";
  if (bar > 0) {
    // Written so that a figure that is no number falls short.
    const bool holds = atLeast ? figure >= bar : figure <= bar;
    if (mQuick) {
      verdict = "not judged";
    } else {
      verdict = holds ? "holds" : "FALLS SHORT";
      mFallsShort = mFallsShort || !holds;
    }
    verdict = (atLeast ? "bar >= " : "bar <= ") + Number(bar) + "  " + verdict;
  }
  std::printf("%-48s %10s  %-28s  %s\n", name.c_str(), Number(figure).c_str(), parts.c_str(),
              verdict.c_str());
  std::fflush(stdout);
}

}  // namespace bench
