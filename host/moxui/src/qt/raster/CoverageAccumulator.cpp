#include "qt/raster/CoverageAccumulator.h"

#include <algorithm>
#include <array>
#include <bit>
#include <climits>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace moxui::qt {

namespace {

constexpr int kFractionBits = 16;
constexpr int kWhole = 1 << kFractionBits;  // a fully covered pixel; also a line's height
constexpr double kSteep = 1.0 / 16.0;       // shorter ramps are steps

// Unlike lrint, this is no call.
int Round(double value) {
  return static_cast<int>(value < 0 ? value - 0.5 : value + 0.5);
}

std::int64_t RoundFar(double value) {
  return static_cast<std::int64_t>(value < 0 ? value - 0.5 : value + 0.5);
}

std::uint32_t Bits(int value) {
  return static_cast<std::uint32_t>(value);
}

[[gnu::always_inline]] inline std::uint8_t CoverageOf(std::uint32_t sum, bool evenOdd) {
  // Sums of outlines of both directions may be negative; wrapping keeps absurd ones defined.
  std::uint32_t share = (sum >> 31) != 0 ? 0u - sum : sum;
  if (evenOdd) {
    share &= 2 * kWhole - 1;
    share = share > kWhole ? 2 * kWhole - share : share;
  } else {
    share = std::min<std::uint32_t>(share, kWhole);
  }
  return static_cast<std::uint8_t>((share * 255 + kWhole / 2) >> kFractionBits);
}

constexpr int kRun = 16;  // differences looked at together

// The coverage of the first `count` sums.
void StoreCoverage(std::array<std::uint32_t, kRun> const& sums, int count, bool evenOdd, std::uint8_t* out) {
#if defined(__SSE2__)
  if (count == kRun && !evenOdd) {
    __m128i const whole = _mm_set1_epi32(kWhole);
    auto const four = [&](std::size_t i) {
      __m128i const sum = _mm_loadu_si128(reinterpret_cast<__m128i const*>(sums.data() + i));
      __m128i const sign = _mm_srai_epi32(sum, 31);
      __m128i const size = _mm_sub_epi32(_mm_xor_si128(sum, sign), sign);
      // The lowest of numbers stays negative: it is far more than a whole, too.
      __m128i const more = _mm_or_si128(_mm_cmpgt_epi32(size, whole), _mm_srai_epi32(size, 31));
      __m128i const share = _mm_or_si128(_mm_and_si128(more, whole), _mm_andnot_si128(more, size));
      __m128i const parts = _mm_sub_epi32(_mm_slli_epi32(share, 8), share);  // of 255
      return _mm_srli_epi32(_mm_add_epi32(parts, _mm_set1_epi32(kWhole / 2)), kFractionBits);
    };
    __m128i const bytes =
        _mm_packus_epi16(_mm_packs_epi32(four(0), four(4)), _mm_packs_epi32(four(8), four(12)));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out), bytes);
    return;
  }
#endif
  for (int i = 0; i < count; ++i) {
    out[i] = CoverageOf(sums[static_cast<std::size_t>(i)], evenOdd);
  }
}

bool IsZero(std::uint32_t const* differences) {
  std::uint32_t any = 0;
  for (int i = 0; i < kRun; ++i) {
    any |= differences[i];
  }
  return any == 0;
}

bool IsWhole(std::uint32_t sum) {
  return ((sum >> 31) != 0 ? 0u - sum : sum) >= kWhole;
}

// Eight bytes of eight columns become eight rows.
void Transpose8(std::uint8_t const* columns, int columnStride, std::uint8_t* rows, int rowStride) {
  std::uint64_t in[8];
  for (int i = 0; i < 8; ++i) {
    std::memcpy(&in[i], columns + static_cast<std::ptrdiff_t>(i) * columnStride, 8);
  }
  // Swaps ever larger squares off the diagonal: of 1, 2 and 4 bytes.
  for (int distance = 1, shift = 8; distance < 8; distance *= 2, shift *= 2) {
    std::uint64_t const keep = distance == 1   ? 0x00ff00ff00ff00ffu
                               : distance == 2 ? 0x0000ffff0000ffffu
                                               : 0x00000000ffffffffu;
    for (int i = 0; i < 8; ++i) {
      if ((i & distance) == 0) {
        std::uint64_t const a = in[i];
        std::uint64_t const b = in[i + distance];
        in[i] = (a & keep) | ((b & keep) << shift);
        in[i + distance] = ((a >> shift) & keep) | (b & ~keep);
      }
    }
  }
  for (int i = 0; i < 8; ++i) {
    std::memcpy(rows + static_cast<std::ptrdiff_t>(i) * rowStride, &in[i], 8);
  }
}

// Writes rows from the first `length` pixels of `count` columns, each of which begins `stride` behind the one
// before.
void Transpose(std::uint8_t const* columns, int length, int stride, int count, std::uint8_t* rows) {
  int const wholeLength = std::endian::native == std::endian::little ? length - length % 8 : 0;
  int const wholeCount = std::endian::native == std::endian::little ? count - count % 8 : 0;
  for (int y = 0; y < wholeLength; y += 8) {
    for (int x = 0; x < wholeCount; x += 8) {
      Transpose8(columns + static_cast<std::ptrdiff_t>(x) * stride + y, stride,
                 rows + static_cast<std::ptrdiff_t>(y) * count + x, count);
    }
  }
  for (int y = 0; y < length; ++y) {
    for (int x = y < wholeLength ? wholeCount : 0; x < count; ++x) {
      rows[static_cast<std::ptrdiff_t>(y) * count + x] = columns[static_cast<std::ptrdiff_t>(x) * stride + y];
    }
  }
}

}  // namespace

void CoverageAccumulator::Begin(PixelRect const& bounds, SweepDirection direction) {
  mBounds = bounds;
  mColumns = direction == SweepDirection::kColumns;
  mSmooth = true;
  mLength = mColumns ? bounds.Height() : bounds.Width();
  mLines = mColumns ? bounds.Width() : bounds.Height();
  mStride = mLength + 4;
  std::size_t const size = static_cast<std::size_t>(mStride) * static_cast<std::size_t>(mLines);
  if (mDifferences.size() < size) {
    mDifferences.resize(size, 0);
  }
  mTouched.assign(static_cast<std::size_t>(mLines), Touched{INT_MAX, -1});
}

void CoverageAccumulator::BeginUnsmoothed(PixelRect const& bounds) {
  Begin(bounds, SweepDirection::kRows);
  mSmooth = false;
}

void CoverageAccumulator::AddEdge(PointT<double> from, PointT<double> to) {
  if (!mSmooth) {
    if (from.y < to.y) {
      AddUnsmoothedEdge(from, to, 1);
    } else if (to.y < from.y) {
      AddUnsmoothedEdge(to, from, -1);
    }
    return;
  }
  double const u0 = mColumns ? from.y - mBounds.top : from.x - mBounds.left;
  double const u1 = mColumns ? to.y - mBounds.top : to.x - mBounds.left;
  // Rounded alike for all edges that meet in a point, so that the heights of closed outlines cancel exactly.
  std::int64_t const v0 = RoundFar((mColumns ? from.x - mBounds.left : from.y - mBounds.top) * kWhole);
  std::int64_t const v1 = RoundFar((mColumns ? to.x - mBounds.left : to.y - mBounds.top) * kWhole);
  if (v0 < v1) {
    AddClippedEdge(u0, v0, u1, v1, 1);
  } else if (v1 < v0) {
    AddClippedEdge(u1, v1, u0, v0, -1);
  }
}

void CoverageAccumulator::AddClippedEdge(double u0, std::int64_t v0, double u1, std::int64_t v1, int sign) {
  std::int64_t const end = static_cast<std::int64_t>(mLines) << kFractionBits;
  if (v1 <= 0 || v0 >= end) {
    return;
  }
  if (u0 >= mLength && u1 >= mLength) {
    return;  // what lies beyond the end counts nowhere before it
  }
  double const slope = (u1 - u0) / static_cast<double>(v1 - v0);
  if (v0 < 0) {
    u0 -= slope * static_cast<double>(v0);
    v0 = 0;
  }
  v1 = std::min(v1, end);
  double u = u0;
  while (v0 < v1) {
    int const line = static_cast<int>(v0 >> kFractionBits);
    std::int64_t const next =
        std::min<std::int64_t>(v1, static_cast<std::int64_t>(line + 1) << kFractionBits);
    int const height = static_cast<int>(next - v0);
    double const nextU = u + slope * height;
    AddRamp(line, std::min(u, nextU), std::max(u, nextU), sign * height);
    u = nextU;
    v0 = next;
  }
}

void CoverageAccumulator::AddUnsmoothedEdge(PointT<double> from, PointT<double> to, int sign) {
  // The rows whose middle lies between the ends; the upper end counts.
  double const first = std::max(std::ceil(from.y - mBounds.top - 0.5), 0.0);
  double const last = std::min(std::ceil(to.y - mBounds.top - 0.5), static_cast<double>(mLines));
  double const slope = (to.x - from.x) / (to.y - from.y);
  // NOLINTNEXTLINE(clang-analyzer-security.FloatLoopCounter): whole rows, exact in a double
  for (double y = first; y < last; y += 1.0) {
    double const x = from.x - mBounds.left + slope * (y + 0.5 + mBounds.top - from.y);
    int const column = static_cast<int>(std::clamp(std::ceil(x - 0.5), 0.0, static_cast<double>(mLength)));
    int const line = static_cast<int>(y);
    std::uint32_t* const row = mDifferences.data() + static_cast<std::ptrdiff_t>(line) * mStride;
    row[column] += Bits(sign * kWhole);
    row[column + 1] -= Bits(sign * kWhole);
    Touched& touched = mTouched[static_cast<std::size_t>(line)];
    touched.first = std::min(touched.first, column);
    touched.last = std::max(touched.last, column + 2);
  }
}

void CoverageAccumulator::AddRamp(int line, double from, double to, int height) {
  double const length = mLength;
  if (from >= length) {
    return;
  }
  if (to > length || from < 0) {
    // What lies before the line counts from its first pixel on; what lies beyond it counts nowhere.
    double const width = to - from;
    double const before = std::clamp((0.0 - from) / width, 0.0, 1.0);
    int const stepHeight = Round(height * before);
    if (stepHeight != 0) {
      std::uint32_t* const row = mDifferences.data() + static_cast<std::ptrdiff_t>(line) * mStride;
      row[0] += Bits(stepHeight);
      row[1] -= Bits(stepHeight);
      Touched& touched = mTouched[static_cast<std::size_t>(line)];
      touched.first = 0;
      touched.last = std::max(touched.last, 2);
    }
    if (to <= 0) {
      return;
    }
    double const inside = std::clamp((std::min(to, length) - std::max(from, 0.0)) / width, 0.0, 1.0);
    height = to > length ? Round(height * inside) : height - stepHeight;
    from = std::max(from, 0.0);
    to = std::min(to, length);
  }
  if (height == 0) {
    return;
  }
  std::uint32_t* const row = mDifferences.data() + static_cast<std::ptrdiff_t>(line) * mStride;
  Touched& touched = mTouched[static_cast<std::size_t>(line)];
  double const width = to - from;
  if (width < kSteep) {
    double const middle = from + 0.5 * width;
    int const i = static_cast<int>(middle);
    int const late = Round(height * (middle - i));
    row[i] += Bits(height - late);
    row[i + 1] += Bits(2 * late - height);
    row[i + 2] -= Bits(late);
    touched.first = std::min(touched.first, i);
    touched.last = std::max(touched.last, i + 3);
    return;
  }
  int const slope = Round(height / width);
  int const i = static_cast<int>(from);
  double const f = from - i;
  int const begin0 = Round(0.5 * slope * (1.0 - f) * (1.0 - f));
  int const begin2 = Round(0.5 * slope * f * f);
  int const begin1 = slope - begin0 - begin2;
  int const j = static_cast<int>(to);
  double const g = to - j;
  int const end0 = Round(0.5 * slope * (1.0 - g) * (1.0 - g));
  int const end2 = Round(0.5 * slope * g * g);
  int const end1 = slope - end0 - end2;
  // What rounding has left of the height, so that the sum beyond the ramp is exact.
  std::uint32_t const reached = Bits(slope) * Bits(j - i) - Bits(begin1 + 2 * begin2) + Bits(end1 + 2 * end2);
  std::uint32_t const rest = Bits(height) - reached;
  row[i] += Bits(begin0);
  row[i + 1] += Bits(begin1);
  row[i + 2] += Bits(begin2);
  row[j] -= Bits(end0);
  row[j + 1] += rest - Bits(end1);
  row[j + 2] -= Bits(end2) + rest;
  touched.first = std::min(touched.first, i);
  touched.last = std::max(touched.last, j + 3);
}

// Writes the pixels of a line in which its coverage changes, and clears its differences.
CoverageAccumulator::LineCoverage CoverageAccumulator::SumUp(int line, bool evenOdd, std::uint8_t* out) {
  std::uint32_t* const row = mDifferences.data() + static_cast<std::ptrdiff_t>(line) * mStride;
  Touched const touched = mTouched[static_cast<std::size_t>(line)];
  if (touched.last < 0) {
    return {};
  }
  std::uint32_t step = 0;
  std::uint32_t sum = 0;
  int const end = std::min(touched.last, mLength);
  for (int k = touched.first; k < end;) {
    // Where no edge begins or ends, the coverage is constant or a ramp, mostly of wholly covered pixels.
    if (k + kRun <= end && IsZero(row + k)) {
      std::uint32_t const next = sum + kRun * step;
      bool const covered = !evenOdd && IsWhole(sum + step) && IsWhole(next) && ((sum ^ next) >> 31) == 0;
      if (step == 0 || covered) {
        std::memset(out + k, CoverageOf(next, evenOdd), kRun);
        sum = next;
        k += kRun;
        continue;
      }
    }
    int const count = std::min(kRun, end - k);
    std::array<std::uint32_t, kRun> sums;
    for (int i = 0; i < count; ++i) {
      step += row[k + i];
      sum += step;
      sums[static_cast<std::size_t>(i)] = sum;
    }
    StoreCoverage(sums, count, evenOdd, out + k);
    k += count;
  }
  std::fill(row + touched.first, row + touched.last, 0u);
  // Beyond the last difference the coverage is constant: that of outlines that go on beyond the line.
  return {std::min(touched.first, end), end, end < mLength ? CoverageOf(sum, evenOdd) : std::uint8_t{0}};
}

// Sums up lines of a piece one after the other; false when nothing of them is covered.
bool CoverageAccumulator::SumUpLines(int begin, int end, bool evenOdd, int& first, int& last) {
  mSummed.clear();
  mLinePixels.resize(std::max(mLinePixels.size(),
                              static_cast<std::size_t>(end - begin) * static_cast<std::size_t>(mLength)));
  first = mLength;
  last = 0;
  for (int line = begin; line < end; ++line) {
    LineCoverage const summed = SumUp(line, evenOdd, LinePixels(line - begin));
    mSummed.push_back(summed);
    if (summed.first < summed.last || summed.beyond != 0) {
      first = std::min(first, summed.first);
      last = std::max(last, summed.beyond != 0 ? mLength : summed.last);
    }
  }
  for (std::size_t i = 0; i < mSummed.size() && first < last; ++i) {
    auto const [lineFirst, lineLast, beyond] = mSummed[i];
    std::uint8_t* const pixels = LinePixels(static_cast<int>(i));
    bool const isCovered = lineFirst < lineLast || beyond != 0;
    std::fill(pixels + first, pixels + (isCovered ? lineFirst : last), std::uint8_t{0});
    if (isCovered) {
      std::fill(pixels + lineLast, pixels + last, beyond);
    }
  }
  return first < last;
}

void CoverageAccumulator::Finish(scriber::FillRule rule, int linesAtOnce, CoverageConsumer const& consume) {
  bool const evenOdd = rule == scriber::FillRule::kEvenOdd;
  for (int begin = 0; begin < mLines; begin += linesAtOnce) {
    int const end = std::min(begin + linesAtOnce, mLines);
    int first = 0;
    int last = 0;
    if (!SumUpLines(begin, end, evenOdd, first, last)) {
      continue;
    }
    if (mColumns) {
      mPiece.SetBounds({mBounds.left + begin, mBounds.top + first, mBounds.left + end, mBounds.top + last});
      Transpose(LinePixels(0) + first, last - first, mLength, end - begin, mPiece.coverage.data());
    } else {
      mPiece.SetBounds({mBounds.left + first, mBounds.top + begin, mBounds.left + last, mBounds.top + end});
      for (int line = begin; line < end; ++line) {
        std::copy_n(LinePixels(line - begin) + first, last - first, mPiece.Row(mBounds.top + line));
      }
    }
    consume(mPiece);
  }
}

}  // namespace moxui::qt
