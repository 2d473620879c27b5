#pragma once

#include "shell/Page.h"

#include <moxui/controls/UI_TextEdit.h>
#include <moxui/ui/UI_SubView.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace playground {

class EventLogView;
class PageList;
class TabStrip;
class ToolBar;
struct Appearance;
struct ProgramState;

// What the view asks of the window around it.
struct MainViewActions {
  std::function<void(Appearance const&)> changeAppearance;
  std::function<void()> askForFiles;
  std::function<std::string(moxui::platform::FileRequest request)> askWhereToSave = {};
};

// What a view remembers of how it was looked at, for the one that takes its place.
struct MainViewPlace {
  moxcore::Utf16String search;
  float listOffset = 0.0f;
  float pageOffset = 0.0f;
  int logLinesBack = 0;
};

// All of the window: the bar above, the list of pages with its search field, the page with its states, the
// log. Files that are dropped anywhere are opened.
class MainView : public moxui::ui::UI_SubView {
 public:
  // The state outlives the view.
  MainView(ProgramState& state, MainViewActions actions);
  ~MainView() override;

  void ShowPage(std::size_t page);
  // Opens files and shows them on their page.
  void OpenFiles(std::vector<std::string> const& paths);

  MainViewPlace GetPlace() const;
  void SetPlace(MainViewPlace const& place);

  ToolBar& GetToolBar() const;
  PageList& GetPageList() const;
  TabStrip& GetTabs() const;
  EventLogView& GetLog() const;
  Page* GetPage() const { return mPage.Get(); }
  moxui::controls::UI_TextEdit& GetSearch() const { return *mSearch; }

  void UI_Draw(moxui::scriber::Scriber* scriber) const override;
  void UI_SizeChanged(moxui::RectT<float> const& rect) override;
  bool UI_DoPreKeyboardEvent(moxui::ui::UI_Node* node, moxui::ui::KeyboardEvent const& event) override;
  bool UI_DoKeyboardEvent(moxui::ui::UI_Node* node, moxui::ui::KeyboardEvent const& event) override;

 private:
  void AcceptDrops();
  void SetDropIsNear(bool isNear);
  void Search();
  void LayOut();

  ProgramState& mState;
  MainViewActions mActions;
  moxcore::utility::IntrusivePtr<ToolBar> mToolBar;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_TextEdit> mSearch;
  moxcore::utility::IntrusivePtr<PageList> mList;
  moxcore::utility::IntrusivePtr<TabStrip> mTabs;
  moxcore::utility::IntrusivePtr<Page> mPage;
  moxcore::utility::IntrusivePtr<EventLogView> mLog;
  bool mDropIsNear = false;
};

}  // namespace playground
