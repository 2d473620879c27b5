#pragma once

namespace moxui::ui {

/// The platform's own event behind an event of ours; valid only while that is being handled. Empty for events
/// that no platform event stands behind.
class OS_Event {
 public:
  OS_Event() = default;
  explicit OS_Event(void const* nativeEvent) : mNativeEvent(nativeEvent) {}

  void const* GetNativeEvent() const { return mNativeEvent; }
  bool IsEmpty() const { return mNativeEvent == nullptr; }

 private:
  void const* mNativeEvent = nullptr;
};

}  // namespace moxui::ui
