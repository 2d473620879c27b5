// Reads bytes as a list of presets. Whatever is read is complete or empty, has an order, and, written, reads
// as the same list.
#include "PresetReading.h"

#include <algorithm>
#include <any>
#include <utility>
#include <vector>

namespace {

using namespace preset_reading;
using List = std::vector<Preset<AudioChannelLayoutPresetData>>;

void RequireOrder(List list) {
  std::sort(list.begin(), list.end(), PresetLess);
  for (std::size_t i = 1; i < list.size(); ++i) {
    Require(!PresetLess(list[i], list[i - 1]));
  }
}

void RequireSameAgain(const List& list) {
  std::any array = moxcore::serialization::JSONArray();
  for (const auto& preset : list) {
    Require(preset == Preset<AudioChannelLayoutPresetData>() || IsComplete(preset));
    moxcore::serialization::AppendToArray(
        array, IsComplete(preset) ? PresetToJSON(preset) : std::any(std::uint64_t{0}));
  }
  const auto text = moxcore::serialization::GetJSONUTF8String(array, true);
  Require(ParsePresetListText<AudioChannelLayoutPresetData>(text.c_str(), text.size() + 1) == list);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  List list;
  try {
    list = ParsePresetListText<AudioChannelLayoutPresetData>(data, size);
  } catch (const std::exception&) {
    return 0;
  }
  RequireSameAgain(list);
  RequireOrder(std::move(list));
  return 0;
}
