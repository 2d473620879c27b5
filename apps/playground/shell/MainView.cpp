#include "shell/MainView.h"

#include "program/Localized.h"
#include "shell/EventLogView.h"
#include "shell/Listening.h"
#include "shell/PageList.h"
#include "shell/Painting.h"
#include "shell/ProgramState.h"
#include "shell/TabStrip.h"
#include "shell/ToolBar.h"

#include <moxui/platform/FileDialogs.h>
#include <moxui/scriber/Drawing.h>
#include <moxui/ui/DragData.h>
#include <moxui/ui/KeyboardEvent.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace playground {
namespace {

using moxcore::utility::MakeIntrusive;
using moxcore::utility::RefCountedWeakPtr;
using moxui::RectT;
using moxui::ui::FontIndex;
using moxui::ui::KeyboardCode;
using moxui::ui::ModKeys;
using moxui::ui::OS_ReceiveData;
using moxui::ui::ThemeColorID;

constexpr float kBarHeight = 40.0f;
constexpr float kListWidth = 200.0f;
constexpr float kTitleHeight = 36.0f;
constexpr float kTabsHeight = 28.0f;
constexpr float kLogHeight = 116.0f;
constexpr float kDropFrame = 2.0f;

// Rows for the pages given, with a heading above each group.
std::vector<PageListRow> RowsOf(std::vector<std::size_t> const& pages) {
  std::vector<PageListRow> rows;
  std::string_view group;
  for (std::size_t const page : pages) {
    PageDescriptor const& descriptor = AllPages()[page];
    if (descriptor.group != group) {
      group = descriptor.group;
      rows.push_back({Text16(group), std::nullopt});
    }
    rows.push_back({Text16(descriptor.title), page});
  }
  return rows;
}

}  // namespace

MainView::MainView(ProgramState& state, MainViewActions actions)
    : mState(state), mActions(std::move(actions)) {
  mToolBar = MakeIntrusive<ToolBar>(mState.appearance, mActions.changeAppearance, mActions.askForFiles);
  mSearch = MakeIntrusive<moxui::controls::UI_TextEdit>();
  mSearch->SetPlaceholder(Text16("$$$/playground/search=Search pages"));
  mSearch->SetAccessibleName(moxcore::Utf8String(Text("$$$/playground/search=Search pages")));
  mSearch->SetAlignment(Leading());
  mSearch->SetReturnEndsEditing(false);
  mList = MakeIntrusive<PageList>();
  mTabs = MakeIntrusive<TabStrip>();
  mLog = MakeIntrusive<EventLogView>(mState.log);
  ChildPushBack(mToolBar);
  ChildPushBack(mSearch);
  ChildPushBack(mList);
  ChildPushBack(mTabs);
  ChildPushBack(mLog);

  mSearch->NotifyWhenTextEdited(std::make_shared<std::function<void(moxcore::messaging::Message*)>>(
      [weak = RefCountedWeakPtr<MainView>(this)](moxcore::messaging::Message*) {
        if (auto const view = weak.Lock()) {
          view->Search();
        }
      }));
  WhenChanged(*mList, this, [](MainView& view) { view.ShowPage(view.mList->GetValue()); });
  WhenChanged(*mTabs, this, [](MainView& view) {
    view.mState.stateOfPage = view.mTabs->GetValue();
    view.mPage->ShowState(view.mState.stateOfPage);
  });
  AcceptDrops();
  Search();
  std::size_t const shown = mState.stateOfPage;
  ShowPage(mState.page);
  if (shown != 0 && shown < mTabs->TabCount()) {
    mState.stateOfPage = shown;
    mTabs->SetValue(shown);
    mPage->ResumeState(shown);
  }
}

MainView::~MainView() = default;

ToolBar& MainView::GetToolBar() const {
  return *mToolBar;
}
PageList& MainView::GetPageList() const {
  return *mList;
}
TabStrip& MainView::GetTabs() const {
  return *mTabs;
}

EventLogView& MainView::GetLog() const {
  return *mLog;
}

MainViewPlace MainView::GetPlace() const {
  return {.search = mSearch->GetValue(),
          .listOffset = mList->GetOffset(),
          .pageOffset = mPage->GetScrollOffset(),
          .logLinesBack = mLog->GetLinesBack()};
}

void MainView::SetPlace(MainViewPlace const& place) {
  mSearch->SetValue(place.search, false);
  Search();
  mList->ScrollTo(place.listOffset);
  mPage->SetScrollOffset(place.pageOffset);
  mLog->ScrollBack(place.logLinesBack - mLog->GetLinesBack());
}

void MainView::ShowPage(std::size_t page) {
  mState.page = std::min(page, AllPages().size() - 1);
  PageDescriptor const& descriptor = AllPages()[mState.page];
  if (mPage) {
    ChildRemove(mPage);
    mPage.Reset();
  }
  mState.stateOfPage = 0;
  mPage = descriptor.make({.audio = mState.audio,
                           .transport = mState.transport,
                           .log = mState.log,
                           .timecode = mState.timecode,
                           .channels = mState.channels,
                           .curve = mState.curve,
                           .presets = mState.presets,
                           .askWhereToSave = mActions.askWhereToSave});
  // Below the log, which keeps the order of the keyboard: list, states, page, log.
  ChildInsert(ChildSize() - 1, mPage);
  std::vector<moxcore::Utf16String> tabs;
  for (PageState const& state : descriptor.states) {
    tabs.push_back(Text16(state.title));
  }
  mTabs->SetTabs(std::move(tabs));
  mList->SetValue(mState.page);
  LayOut();
  UI_Invalidate();
}

void MainView::OpenFiles(std::vector<std::string> const& paths) {
  if (paths.empty()) {
    return;
  }
  // All pages that take media are about sound.
  if (std::size_t const audio = FindPage("audio"); mState.page != audio) {
    ShowPage(audio);
  }
  mState.audio.OpenFiles(paths);
}

void MainView::Search() {
  mList->SetRows(RowsOf(PagesMatching(mSearch->GetValue())));
}

void MainView::AcceptDrops() {
  using moxui::PointT;
  RefCountedWeakPtr<MainView> const weak(this);
  UI_InstallHandleDragEnterFunction([weak](PointT<float>, OS_ReceiveData& data, int& effect) {
    auto const view = weak.Lock();
    if (!view || data.GetFiles().empty()) {
      return false;
    }
    effect = moxui::ui::DropEffect::kCopy;
    view->SetDropIsNear(true);
    return true;
  });
  UI_InstallHandleDragLeaveFunction([weak](OS_ReceiveData&) {
    if (auto const view = weak.Lock()) {
      view->SetDropIsNear(false);
    }
  });
  UI_InstallHandleDropFunction([weak](PointT<float>, OS_ReceiveData& data, int& effect) {
    auto const view = weak.Lock();
    if (!view) {
      return false;
    }
    view->SetDropIsNear(false);
    effect = moxui::ui::DropEffect::kCopy;
    view->OpenFiles({data.GetFiles().begin(), data.GetFiles().end()});
    return !data.GetFiles().empty();
  });
}

void MainView::SetDropIsNear(bool isNear) {
  if (mDropIsNear != isNear) {
    mDropIsNear = isNear;
    UI_Invalidate();
  }
}

void MainView::LayOut() {
  RectT<float> const own = UI_GetLocalRectF(false);
  if (own.IsEmpty()) {
    return;
  }
  auto const place = [&own](moxui::ui::UI_Node& node, RectT<float> const& rect) {
    node.UI_SetLocalRectF(Placed(rect, own.width));
  };
  place(*mToolBar, {0.0f, 0.0f, own.width, kBarHeight});
  float const control = ControlHeight();
  place(*mSearch, {8.0f, kBarHeight + 8.0f, kListWidth - 16.0f, control});
  float const listTop = kBarHeight + 16.0f + control;
  place(*mList, {0.0f, listTop, kListWidth - 1.0f, std::max(own.height - listTop, 0.0f)});
  float const width = std::max(own.width - kListWidth, 0.0f);
  float const tabsTop = kBarHeight + kTitleHeight;
  place(*mTabs, {kListWidth, tabsTop, width, kTabsHeight});
  float const pageTop = tabsTop + kTabsHeight;
  place(*mPage, {kListWidth, pageTop, width, std::max(own.height - pageTop - kLogHeight, 0.0f)});
  place(*mLog, {kListWidth, own.height - kLogHeight, width, kLogHeight});
}

void MainView::UI_SizeChanged(RectT<float> const& rect) {
  UI_SubView::UI_SizeChanged(rect);
  LayOut();
}

void MainView::UI_Draw(moxui::scriber::Scriber* scriber) const {
  RectT<float> const own = UI_GetLocalRectF(false);
  moxui::utils::DrawRect(scriber, own, ThemeColor(ThemeColorID::kGray1));
  moxui::utils::DrawRect(scriber, Placed({0.0f, kBarHeight, kListWidth, own.height - kBarHeight}, own.width),
                         ThemeColor(ThemeColorID::kGray2));
  moxui::utils::DrawRect(scriber,
                         Placed({kListWidth - 1.0f, kBarHeight, 1.0f, own.height - kBarHeight}, own.width),
                         ThemeColor(ThemeColorID::kGray3));
  PageDescriptor const& page = AllPages()[mState.page];
  moxcore::Utf16String const title = Text16(page.title);
  float const left = kListWidth + kPanelPadding;
  float const titleWidth = std::ceil(LabelWidth(title, FontIndex::kTitle));
  DrawLabel(scriber, title, Placed({left, kBarHeight, titleWidth + 4.0f, kTitleHeight}, own.width), Leading(),
            FontIndex::kTitle, ThemeColor(ThemeColorID::kGray9));
  float const textLeft = left + titleWidth + 16.0f;
  DrawLabel(scriber, Text16(page.description),
            Placed({textLeft, kBarHeight, std::max(own.width - textLeft - kPanelPadding, 0.0f), kTitleHeight},
                   own.width),
            Leading(), FontIndex::kSmall, ThemeColor(ThemeColorID::kGray7));
  UI_SubView::UI_Draw(scriber);
  if (mDropIsNear) {
    moxui::utils::DrawOutline(scriber, own.Inset(kDropFrame / 2.0f), ThemeColor(ThemeColorID::kInteractive),
                              kDropFrame);
  }
}

bool MainView::UI_DoPreKeyboardEvent(moxui::ui::UI_Node*, moxui::ui::KeyboardEvent const& event) {
  if (!event.IsAction(moxui::ui::KeyAction::kKeyDown)) {
    return false;
  }
  // Whoever drags has a hand for this key, wherever the focus is.
  if (event.GetCode() == KeyboardCode::kEscape && event.GetModKey().IsEmpty() && mPage->CancelDrag()) {
    return true;
  }
  ModKeys const command(moxui::ui::ModKey::kCommand);
  if (event.CompareShortcut(KeyboardCode::kO, command)) {
    mActions.askForFiles();
    return true;
  }
  if (event.CompareShortcut(KeyboardCode::kF, command)) {
    mSearch->UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kByCode);
    mSearch->SelectAll();
    return true;
  }
  // While a page is being searched for, up and down go through what was found.
  bool const isArrow = event.GetCode() == KeyboardCode::kUp || event.GetCode() == KeyboardCode::kDown;
  if (isArrow && event.GetModKey().IsEmpty() && mSearch->UI_HasKeyboardFocus()) {
    mList->Step(event.GetCode() == KeyboardCode::kDown ? 1 : -1);
    return true;
  }
  return false;
}

bool MainView::UI_DoKeyboardEvent(moxui::ui::UI_Node*, moxui::ui::KeyboardEvent const& event) {
  return mPage->HandleShortcut(event);
}

}  // namespace playground
