// Fills of 32-bit pixels against a memset of the same bytes, warm: a picture of 16 MB and a row of 1920.
#include "Figure.h"

#include <moxaccelerate/utility/Set.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace {

void CompareFill(bench::Figures& figures, const std::string& name, std::size_t words, double runs) {
  std::vector<std::uint32_t> pixels(words);
  figures.Compare({.name = name,
                   .numerator =
                       [&] {
                         for (double run = 0; run < runs; ++run) {
                           moxaccelerate::utility::Set(pixels.size(), pixels.data(), 0xFF336699U);
                           bench::DoNotOptimize(pixels.data());
                           bench::ClobberMemory();
                         }
                       },
                   .denominator =
                       [&] {
                         for (double run = 0; run < runs; ++run) {
                           std::memset(pixels.data(), 0x33, pixels.size() * sizeof(std::uint32_t));
                           bench::DoNotOptimize(pixels.data());
                           bench::ClobberMemory();
                         }
                       },
                   .bar = 1.5,
                   .numeratorRuns = runs,
                   .denominatorRuns = runs});
}

}  // namespace

int main(int argc, char** argv) {
  bench::Figures figures(argc, argv);
  CompareFill(figures, "fill_picture_16_mb_against_memset", 4 << 20, 1);
  CompareFill(figures, "fill_row_1920_against_memset", 1920, 1000);
  return figures.Result();
}
