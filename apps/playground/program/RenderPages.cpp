#include "program/RenderPages.h"

#include "program/Localized.h"
#include "program/PictureHost.h"
#include "shell/Shell.h"
#include "shell/TabStrip.h"

#include <moxappsupport/LocalPresets.h>
#include <moxcore/filesupport/Dir.h>
#include <moxui/platform/PaintTarget.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/ui/NodeTree.h>

#include <cmath>
#include <filesystem>
#include <memory>
#include <system_error>

namespace playground {
namespace {

// Takes pictures of a shell in a tree of its own.
class Camera {
 public:
  explicit Camera(ProgramState& state)
      : mScale(static_cast<float>(state.appearance.scale)),
        mHost(mScale),
        mTree(mHost),
        mShell(state, mTree) {
    mTree.SetScale(mScale);
    mTree.SetSize({kPictureWidth, kPictureHeight});
    mTree.SetActive(true);
  }

  MainView& View() const { return mShell.View(); }

  bool Take(std::filesystem::path const& path) {
    mTree.PrepareFrame();
    View().GetPage()->Settle();
    auto const target =
        moxui::platform::NewPaintTarget(static_cast<int>(std::lround(kPictureWidth * mScale)),
                                        static_cast<int>(std::lround(kPictureHeight * mScale)), mScale);
    mTree.PaintAll(target->BeginPaint());
    target->EndPaint();
    return moxui::platform::SavePNG(target->GetPixels(), moxcore::Utf8String(path.string()));
  }

 private:
  float mScale;
  PictureHost mHost;
  moxui::ui::NodeTree mTree;
  Shell mShell;
};

// Pictures neither show the user's presets nor leave any behind: these are in a folder that goes away.
class PicturedPresets {
 public:
  explicit PicturedPresets(std::filesystem::path const& folder) : mFolder(folder / ".playground-presets") {
    Clear();
    moxappsupport::presets::SetLocalPresetsBaseDir(
        moxcore::filesupport::Dir(moxcore::Utf8String(mFolder.string())));
  }
  ~PicturedPresets() {
    Clear();
    moxappsupport::presets::SetLocalPresetsBaseDir(std::nullopt);
  }
  PicturedPresets(PicturedPresets const&) = delete;
  PicturedPresets& operator=(PicturedPresets const&) = delete;

 private:
  void Clear() {
    std::error_code ignored;
    std::filesystem::remove_all(mFolder, ignored);
  }

  std::filesystem::path mFolder;
};

std::string PrefixOf(PageDescriptor const& page, std::size_t sound, std::size_t first) {
  std::string prefix(page.name);
  if (sound > first) {
    prefix += "-" + std::to_string(sound - first + 1);
  }
  return prefix;
}

}  // namespace

std::optional<std::string> RenderPages(ProgramState& state, std::string const& directory,
                                       std::optional<std::size_t> onlyPage) {
  std::filesystem::path const folder(directory);
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (!std::filesystem::is_directory(folder, error)) {
    return Text("$$$/playground/render/noFolder=The folder \"@0\" can't be made.", {directory});
  }
  PicturedPresets const presets(folder);
  Camera camera(state);
  std::size_t const firstSound = state.audio.CurrentIndex();
  for (std::size_t page = 0; page < AllPages().size(); ++page) {
    if (onlyPage && *onlyPage != page) {
      continue;
    }
    PageDescriptor const& descriptor = AllPages()[page];
    bool const isAboutSounds = descriptor.name == "audio";
    std::size_t const sounds = isAboutSounds ? state.audio.Documents().size() : firstSound + 1;
    for (std::size_t sound = firstSound; sound < sounds; ++sound) {
      for (std::size_t i = 0; i < descriptor.states.size(); ++i) {
        state.audio.ShowDocument(sound);
        camera.View().ShowPage(page);
        camera.View().GetTabs().SetValue(i);
        state.log.Clear();
        camera.View().GetPage()->ShowState(i);
        std::filesystem::path const path = folder / (PrefixOf(descriptor, sound, firstSound) + "-" +
                                                     std::string(descriptor.states[i].name) + ".png");
        if (!camera.Take(path)) {
          return Text("$$$/playground/render/notWritten=The file \"@0\" can't be written.", {path.string()});
        }
      }
    }
  }
  return std::nullopt;
}

}  // namespace playground
