#pragma once

#include <moxcore/string/String.h>
#include <moxui/ui/OS_Event.h>
#include <moxui/ui/PointerEvent.h>

#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

namespace moxui::ui {

class UI_Node;

/// Data that is being dragged or pasted: texts, files (absolute paths) and bytes under a format name (a media
/// type such as "application/x-keywords").
struct TransferData {
  moxcore::Utf16String text{};
  std::vector<moxcore::Utf8String> files{};
  std::vector<std::pair<moxcore::Utf8String, std::vector<std::byte>>> formats{};

  bool IsEmpty() const { return text.empty() && files.empty() && formats.empty(); }
};

/// What a drag brings to a view.
class OS_ReceiveData {
 public:
  explicit OS_ReceiveData(TransferData data, ModKeys modKeys = {})
      : mData(std::move(data)), mModKeys(modKeys) {}

  bool HasText() const { return !mData.text.empty(); }
  moxcore::Utf16String const& GetText() const { return mData.text; }
  std::vector<moxcore::Utf8String> const& GetFiles() const { return mData.files; }
  bool HasFormat(std::string_view format) const { return GetData(format) != nullptr; }
  /// Null when the drag has nothing in that format.
  std::vector<std::byte> const* GetData(std::string_view format) const;
  ModKeys GetModKey() const { return mModKeys; }
  /// For who hands it on while the drag goes on.
  void SetModKey(ModKeys modKeys) { mModKeys = modKeys; }

 private:
  TransferData mData;
  ModKeys mModKeys;
};

/// What a drag takes along from here. Begun from the event that moved the pointer.
class OS_SendData {
 public:
  explicit OS_SendData(OS_Event event) : mEvent(event) {}

  OS_Event const& GetEvent() const { return mEvent; }
  void SetText(moxcore::Utf16String text) { mData.text = std::move(text); }
  void AddFile(moxcore::Utf8String path) { mData.files.push_back(std::move(path)); }
  void SetData(moxcore::Utf8String format, std::vector<std::byte> bytes);
  TransferData const& GetData() const { return mData; }

  /// Runs the platform's drag loop from `source`; `effects` are the sums of DropEffect that are offered. The
  /// effect that was taken, kNone when the drag was given up or can't be had here. The release that the loop
  /// swallowed reaches the press's target afterwards.
  int DoDrag(UI_Node* source, int effects);

 private:
  OS_Event mEvent;
  TransferData mData;
};

}  // namespace moxui::ui
