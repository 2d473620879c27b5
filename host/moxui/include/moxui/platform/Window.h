#pragma once

#include <moxcore/string/String.h>
#include <moxui/geometry/ColorRGBA.h>
#include <moxui/geometry/ExtentT.h>
#include <moxui/geometry/PointT.h>

#include <functional>
#include <memory>

namespace moxui::scriber {
class ImageInterface;
}
namespace moxui::ui {
class NodeTree;
}

namespace moxui::platform {

class Window;

struct WindowOptions {
  moxcore::Utf16String title{};
  ExtentT<float> size{640, 480};
  ColorRGBA background{0.12F, 0.12F, 0.12F, 1};
  Window* parent =
      nullptr;  ///< asked at the creation only; a dialog stays above its parent and opens centred on it
  bool isDialog = false;
  bool isResizable = true;
};

/// A window of the desktop, which shows one node tree. It opens hidden; its end closes it.
class Window {
 public:
  /// Asked when the user wants to close the window; false keeps it open.
  using CloseFunction = std::function<bool()>;

  Window() = default;
  /// A handler of the window may end it, while it runs modally too. Windows whose parent it is stay.
  virtual ~Window();
  Window(Window const&) = delete;
  Window& operator=(Window const&) = delete;

  /// For who keeps a window that may end first: null in it then.
  std::shared_ptr<Window* const> GetReference() const { return mReference; }

  /// The tree lives as long as the window. Its size is the size of the window's content.
  virtual ui::NodeTree& GetTree() = 0;
  virtual void Show() = 0;
  virtual void Hide() = 0;
  virtual bool IsShown() const = 0;
  virtual void SetTitle(moxcore::Utf16String const& title) = 0;
  /// Of the content, in the desktop's logical pixels. A window that isn't resizable keeps its size.
  virtual void SetSize(ExtentT<float> size) = 0;
  virtual void SetMinimumSize(ExtentT<float> size) = 0;
  virtual void SetCloseFunction(CloseFunction function) = 0;
  /// Shows the window, blocks all others and handles events until EndModal; gives its answer. A close by the
  /// user that the close function doesn't refuse ends it with `closeAnswer`, and so does the window's end.
  /// Gives `closeAnswer` at once while the window is running modally already.
  virtual int RunModal(int closeAnswer) = 0;
  /// The last answer counts. Does nothing while the window isn't running modally.
  virtual void EndModal(int answer) = 0;

  virtual void SetBackground(ColorRGBA const&) {}
  virtual void SetIcon(scriber::ImageInterface const&) {}
  virtual void SetPosition(PointT<float>) {}
  virtual PointT<float> GetPosition() const { return {}; }
  virtual void Activate() {}
  virtual bool IsActive() const { return false; }
  virtual bool IsMaximized() const { return false; }
  virtual void SetMaximized(bool) {}
  /// Shows the tree larger or smaller: so many of the desktop's logical pixels to one of the tree's. Sizes
  /// and places of the window stay in those of the desktop; its dialogs have zooms of their own. Not above 0
  /// or not finite: nothing happens.
  virtual void SetZoom(float) {}
  /// The platform's window; null where there is none. Opaque to all but the platform's own files.
  virtual void* GetNativeHandle() const { return nullptr; }

 private:
  std::shared_ptr<Window*> mReference = std::make_shared<Window*>(this);
};

}  // namespace moxui::platform
