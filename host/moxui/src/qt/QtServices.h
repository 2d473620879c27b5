#pragma once

#include <moxui/platform/Clipboard.h>
#include <moxui/platform/CursorControl.h>
#include <moxui/platform/DragSource.h>
#include <moxui/platform/FileDialogs.h>
#include <moxui/platform/MenuPresenter.h>

#include <QCursor>
#include <map>

namespace moxui::qt {

class QtClipboard final : public platform::Clipboard {
 public:
  ui::TransferData GetData() const override;
  void SetData(ui::TransferData const& data) override;
};

class QtCursor final : public platform::CursorControl {
 public:
  void DisplayCursor(platform::CursorID cursor, platform::CursorMode mode) override;
  void ShowPlatformCursor(bool show, bool immediately, bool counted) override;
  bool IsCursorShown() const override { return !mIsHidden; }
  platform::CursorID GetCursor() const override { return mCursor; }
  PointT<float> GetPosition() const override;
  bool SetPosition(PointT<float> position) override;
  platform::CursorID MakeCursorFromPNG(std::span<std::byte const> bytes, PointT<float> hotSpot,
                                       float scale) override;

 private:
  QCursor ToQCursor(platform::CursorID cursor) const;

  platform::CursorID mCursor = platform::CursorID::kArrow;
  int mHideCount = 0;
  bool mIsHidden = false;
  std::map<int, QCursor> mCustom;
};

class QtMenus final : public platform::MenuPresenter {
 public:
  int Popup(std::vector<ui::OS_MenuItem> const& items, platform::MenuPlace const& place) override;
};

class QtDragSource final : public platform::DragSource {
 public:
  int Drag(ui::UI_Node* source, ui::TransferData const& data, int effects) override;
};

class QtFileDialogs final : public platform::FileDialogs {
 public:
  std::vector<moxcore::Utf8String> AskForFilesToOpen(platform::FileRequest const& request) override;
  moxcore::Utf8String AskForFileToSave(platform::FileRequest const& request) override;
  moxcore::Utf8String AskForDirectory(platform::FileRequest const& request) override;
};

}  // namespace moxui::qt
