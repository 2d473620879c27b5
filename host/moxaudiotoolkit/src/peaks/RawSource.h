#pragma once

#include "RawLayout.h"

#include <moxaudiotoolkit/peaks/SampleSource.h>

#include <cstdint>
#include <memory>
#include <string>

namespace moxaudiotoolkit {

class AudioFile;

// Uncompressed samples of a file, read at their places.
class RawSource : public SampleSource {
 public:
  // Null when `file`, which is the same file, isn't one of plain samples or is read as something else than
  // its layout says.
  static std::shared_ptr<const RawSource> Open(AudioFile& file);
  ~RawSource() override;

  void ReadInterleaved(std::int64_t firstFrame, std::span<float> destination) const override;
  void ReadPeaks(std::int64_t firstFrame, std::int64_t frameCount,
                 std::span<const PeakRun> runs) const override;

 private:
  RawSource(const SampleSourceProperties& properties, const RawLayout& layout, std::string name,
            int descriptor);

  bool AgreesWith(AudioFile& file) const;
  void ReadBytes(std::int64_t firstFrame, std::span<std::uint8_t> destination) const;

  RawLayout mLayout;
  std::string mName;
  int mDescriptor;
};

}  // namespace moxaudiotoolkit
