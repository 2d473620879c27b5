#pragma once

#include <moxmediaui/HostTypes.h>
#include <moxui/ui/UI_NodeBuilder.h>
#include <moxui/ui/UI_SubView.h>

#include <string>

namespace moxui::utility {
class ResourceManager;
}

namespace moxmediaui {

using moxui::ui::UI_Node;
using moxui::ui::UI_SubView;
using moxui::utility::ResourceManager;

/// A view whose content is a view archive (UINodeArchive) among a module's resources. A subclass finds its
/// controls in ConnectControls, by GetNodeMap or by casting GetContentView's children, and makes nodes of
/// classes that the host doesn't know in CreateCustomNode.
///
/// Made, then initialised once: Init calls virtuals, so a subclass's client calls it after the construction.
/// Supplier and resources outlive the view. Main thread only.
class XMLHostView : public UI_SubView {
 public:
  /// Stores the resource's name, ASCII; nothing is loaded yet.
  explicit XMLHostView(std::string const& resourceName);
  ~XMLHostView() override;

  /// Null before Init.
  IntrusivePtr<UI_SubView> GetContentView() const { return mContentView; }

 protected:
  /// Loads the archive, shows its root as the only content and connects the controls. Throws the null-pointer
  /// exception when there is no such archive or its root is no UI_SubView; the loader's errors go through.
  virtual void Init(ResourceManager* resources, SupplierInterface const* supplier);
  virtual SupplierInterface const* GetDrawSupplier() const { return mDrawSupplier; }
  /// A node of a class that the host doesn't know; null, as here, fails the loading.
  virtual IntrusivePtr<UI_Node> CreateCustomNode(Utf8String const& type) const;
  /// The archive is loaded: the place to find controls and bind their messages.
  virtual void ConnectControls() {}
  /// Lays out the content for the view's own rectangle: all of it, as here, or by a subclass's own rule.
  virtual void UpdateSize(RectT<float> const& rect);

  /// The archive's nodes by their ids.
  moxui::ui::NodeMap const& GetNodeMap() const { return mNodeMap; }

 public:
  /// The size of the archive's root; 0 before Init.
  ExtentT<float> UI_GetRecommendedSize(Scriber* scriber) const override;
  void UI_SizeChanged(RectT<float> const& rect) override;

 private:
  std::string mResourceName;
  moxui::ui::NodeMap mNodeMap;
  IntrusivePtr<UI_SubView> mContentView;
  ExtentT<float> mRecommendedSize;
  SupplierInterface const* mDrawSupplier = nullptr;
};

}  // namespace moxmediaui
