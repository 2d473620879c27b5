#pragma once

#include <moxcore/string/String.h>
#include <moxcore/utility/IntrusivePtr.h>
#include <moxui/archive/Value.h>
#include <moxui/scriber/ScriberTypes.h>
#include <moxui/ui/UI_Node.h>

#include <functional>
#include <map>
#include <string_view>

namespace moxui::utility {
class ResourceManager;
}

namespace moxui::ui {

/// Nodes by their ids.
using NodeMap = std::map<moxcore::Utf8String, moxcore::utility::IntrusivePtr<UI_Node>>;

/// Makes a node of a class that the host doesn't know; null if the client doesn't know it either.
using CustomNodeFactory =
    std::function<moxcore::utility::IntrusivePtr<UI_Node>(moxcore::Utf8String const& type)>;

/// Makes trees of nodes from view archives (UINodeArchive documents). A node is made by its adapter, or by
/// its `className` where it has one; what the host doesn't know is made by a client's factory. Then each
/// section's properties go to the node, from the base class to the most derived one; keys that the class
/// doesn't have are passed over with a trace ("moxui.archive").
///
/// Archives are laid out from left to right; where the interface runs from right to left, the tree comes
/// mirrored.
///
/// Whatever is wrong with a document throws a mox_exception that names the line, and leaves nothing behind.
class UI_NodeBuilder {
 public:
  /// Nodes in one another.
  static constexpr int kMaximalDepth = 128;

  struct Tree {
    moxcore::utility::IntrusivePtr<UI_Node> root;
    NodeMap nodes;
  };

  /// Reads a document; throws if it is none.
  explicit UI_NodeBuilder(std::string_view text);
  ~UI_NodeBuilder();

  archive::Value const& GetArchive() const { return mArchive; }

  /// A new tree at each call. The supplier is that of the views' window; no node asks it before it is
  /// measured or painted, so that it may be null.
  Tree Build(scriber::SupplierInterface const* supplier, CustomNodeFactory const& factory = {}) const;

  /// Builds the "XML" resource of a name and adds its nodes to the map. Null, with the map untouched, if
  /// there is no such resource.
  static moxcore::utility::IntrusivePtr<UI_Node> LoadViewFromXML(utility::ResourceManager const* resources,
                                                                 scriber::SupplierInterface const* supplier,
                                                                 moxcore::Utf16String const& name,
                                                                 NodeMap& nodes,
                                                                 CustomNodeFactory const& factory = {});

 private:
  archive::Value mArchive;
};

}  // namespace moxui::ui
