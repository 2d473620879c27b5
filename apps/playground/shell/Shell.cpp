#include "shell/Shell.h"

#include "program/AppearanceState.h"
#include "program/Localized.h"

#include <moxui/platform/Application.h>
#include <moxui/platform/FileDialogs.h>
#include <moxui/ui/NodeTree.h>
#include <moxui/ui/UI_Container.h>

#include <cstddef>
#include <utility>
#include <vector>

namespace playground {

Shell::Shell(ProgramState& state, moxui::ui::NodeTree& tree, moxui::platform::Window* window)
    : mState(state), mTree(tree), mWindow(window), mTopLevel(tree) {
  ApplyAppearance(mState.appearance);
  Build();
}

Shell::~Shell() {
  mTree.SetRoot(nullptr);
}

void Shell::SetAppearanceFunction(std::function<void(Appearance const&)> function) {
  mAppearanceFunction = std::move(function);
}

void Shell::Build() {
  mView = moxcore::utility::MakeIntrusive<MainView>(
      mState,
      MainViewActions{
          .changeAppearance = [this](Appearance const& appearance) { SetAppearance(appearance); },
          .askForFiles = [this] { AskForFiles(); },
          .askWhereToSave =
              [this](moxui::platform::FileRequest request) { return AskWhereToSave(std::move(request)); }});
  mWorkspace = moxcore::utility::MakeIntrusive<ProgramWorkspace>(
      Text16("$$$/playground/windowTitle=moxmediaui Playground"), mView);
  mTopLevel.SetWorkspace(mWorkspace.Get());
  mTree.SetRoot(mWorkspace);
}

namespace {

// The way to a node below another: the numbers of children, from the top down.
std::vector<std::size_t> PathTo(moxui::ui::UI_Node const* node, moxui::ui::UI_Node const* top) {
  std::vector<std::size_t> path;
  while (node != nullptr && node != top && node->UI_GetParentNode() != nullptr) {
    moxui::ui::UI_Container const* const siblings = node->UI_GetParentNode()->UI_GetContainer();
    std::size_t index = 0;
    while (index < siblings->ChildSize() && siblings->ChildGet(index) != node) {
      ++index;
    }
    path.insert(path.begin(), index);
    node = node->UI_GetParentNode();
  }
  return node == top ? path : std::vector<std::size_t>();
}

moxcore::utility::IntrusivePtr<moxui::ui::UI_Node> Follow(
    moxcore::utility::IntrusivePtr<moxui::ui::UI_Node> node, std::vector<std::size_t> const& path) {
  for (std::size_t const index : path) {
    moxui::ui::UI_Container const* const children = node ? node->UI_GetContainer() : nullptr;
    node = children != nullptr ? children->ChildGet(index) : nullptr;
  }
  return node;
}

}  // namespace

void Shell::SetAppearance(Appearance const& appearance) {
  if (appearance == mState.appearance) {
    return;
  }
  mState.appearance = appearance;
  ApplyAppearance(appearance);
  // The new view is made like the old one: whoever works it by keys goes on at the same control.
  auto const focused = PathTo(mTree.GetFocusLeaf(), mView.Get());
  MainViewPlace const place = mView->GetPlace();
  Build();
  mView->SetPlace(place);
  if (!focused.empty()) {
    if (auto const node = Follow(mView, focused)) {
      node->UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kTraversal);
    }
  }
  if (mAppearanceFunction) {
    mAppearanceFunction(appearance);
  }
}

void Shell::AskForFiles() {
  if (auto* const application = moxui::platform::Application::Get()) {
    auto const files = application->GetFileDialogs().AskForFilesToOpen(RequestForFiles());
    mView->OpenFiles({files.begin(), files.end()});
  }
}

std::string Shell::AskWhereToSave(moxui::platform::FileRequest request) const {
  auto* const application = moxui::platform::Application::Get();
  if (application == nullptr) {
    return {};
  }
  request.parent = mWindow;
  auto const file = application->GetFileDialogs().AskForFileToSave(request);
  return {file.begin(), file.end()};
}

moxui::platform::FileRequest Shell::RequestForFiles() const {
  moxui::platform::FileRequest request;
  request.parent = mWindow;
  request.title = Text16("$$$/playground/open/title=Open sounds");
  request.allowsSeveral = true;
  request.kinds = {
      {Text16("$$$/playground/open/kind=Sound files"),
       {"*.wav", "*.aif", "*.aiff", "*.flac", "*.ogg", "*.oga", "*.opus", "*.mp3", "*.w64", "*.caf"}},
      {Text16("$$$/playground/export/peaksKind=Peak files"), {"*.dat"}},
      {Text16("$$$/playground/open/all=All files"), {"*"}}};
  return request;
}

}  // namespace playground
