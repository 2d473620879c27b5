#pragma once

#include "shell/MainView.h"
#include "shell/ProgramState.h"
#include "shell/ProgramWorkspace.h"

#include <moxworkspace/TopLevelWindow.h>

#include <functional>
#include <string>

namespace moxui::platform {
struct FileRequest;
class Window;
}  // namespace moxui::platform
namespace moxui::ui {
class NodeTree;
}

namespace playground {

// Puts the program's view into a tree, in a panel of a main window's workspace, and makes it anew whenever
// theme, look, language or direction change.
class Shell {
 public:
  // All outlive the shell. The appearance of the state is applied at once. Files are asked for above the
  // window, where there is one.
  Shell(ProgramState& state, moxui::ui::NodeTree& tree, moxui::platform::Window* window = nullptr);
  ~Shell();
  Shell(Shell const&) = delete;
  Shell& operator=(Shell const&) = delete;

  MainView& View() const { return *mView; }
  ProgramWorkspace& GetWorkspace() const { return *mWorkspace; }
  void SetAppearance(Appearance const& appearance);
  // Asks for files and opens them. Does nothing without a platform to ask with.
  void AskForFiles();
  // Asks where to write a file; empty when the user gave up, and without a platform to ask with.
  std::string AskWhereToSave(moxui::platform::FileRequest request) const;
  // What AskForFiles asks with.
  moxui::platform::FileRequest RequestForFiles() const;

  // Called after the appearance became another one, the scale included.
  void SetAppearanceFunction(std::function<void(Appearance const&)> function);

 private:
  void Build();

  ProgramState& mState;
  moxui::ui::NodeTree& mTree;
  moxui::platform::Window* mWindow;
  moxworkspace::TopLevelWindow mTopLevel;
  std::function<void(Appearance const&)> mAppearanceFunction;
  moxcore::utility::IntrusivePtr<MainView> mView;
  moxcore::utility::IntrusivePtr<ProgramWorkspace> mWorkspace;
};

}  // namespace playground
