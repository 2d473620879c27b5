#include "../archive/ArchiveClasses.h"
#include "MirrorLayout.h"

#include <moxcore/debug/Trace.h>
#include <moxcore/string/Encoding.h>
#include <moxui/archive/UINodeArchive.h>
#include <moxui/resources/ResourceManager.h>
#include <moxui/skins/LayoutDirection.h>
#include <moxui/ui/UI_Container.h>
#include <moxui/ui/UI_NodeBuilder.h>

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>
#include <vector>

namespace moxui::ui {

namespace {

using archive::Member;
using archive::Object;
using archive::PropertyValue;
using archive::ThrowArchiveError;
using archive::Value;
using moxcore::utility::IntrusivePtr;
using OwnedNode = IntrusivePtr<UI_Node>;

constexpr moxcore::debug::TraceLevel kDetail{8};

moxcore::debug::TraceCategory const& Category() {
  static moxcore::debug::TraceCategory const category("moxui.archive");
  return category;
}

/// The number of a key such as "child-3"; nothing for any other key.
std::optional<unsigned> NumberOf(std::string_view key, std::string_view head) {
  if (!key.starts_with(head)) {
    return std::nullopt;
  }
  key.remove_prefix(head.size());
  unsigned number = 0;
  auto const [end, error] = std::from_chars(key.data(), key.data() + key.size(), number);
  bool const isNumber =
      error == std::errc() && end == key.data() + key.size() && (key == "0" || key[0] != '0');
  return isNumber ? std::optional(number) : std::nullopt;
}

/// The values of numbered keys in the order of their numbers.
std::vector<std::pair<unsigned, Value const*>> Numbered(Value const& object, std::string_view head) {
  std::vector<std::pair<unsigned, Value const*>> found;
  for (Member const& member : object.GetMembers()) {
    if (auto const number = NumberOf(member.key, head)) {
      found.emplace_back(*number, &member.value);
    }
  }
  std::ranges::sort(found);
  return found;
}

Value const& Require(Value const& object, std::string_view key) {
  Value const* const value = object.Find(key);
  if (value == nullptr) {
    ThrowArchiveError("$$$/moxui/Archive/Error/Missing=View archive, line @0: “@1” is missing.",
                      object.GetLine(), key);
  }
  return *value;
}

std::vector<Value const*> SectionsOf(Value const& node) {
  Value const& sections = Require(node, "sections");
  auto const listed = Numbered(sections, "section-");
  std::int64_t const count = PropertyValue("count", Require(sections, "count")).AsInteger();
  bool const isWithoutGap = listed.empty() || listed.back().first + std::size_t{1} == listed.size();
  if (count != static_cast<std::int64_t>(listed.size()) || !isWithoutGap) {
    ThrowArchiveError(
        "$$$/moxui/Archive/Error/SectionCount=View archive, line @0: the number of sections is wrong.",
        sections.GetLine());
  }
  std::vector<Value const*> values;
  values.reserve(listed.size());
  for (auto const& [number, section] : listed) {
    values.push_back(section);
  }
  return values;
}

/// One run of building: what has been made so far goes when it ends early.
class Building {
 public:
  explicit Building(CustomNodeFactory const& factory) : mFactory(factory) {}

  OwnedNode BuildNode(Value const& description, int depth) {
    if (depth > UI_NodeBuilder::kMaximalDepth) {
      ThrowArchiveError("$$$/moxui/Archive/Error/Levels=View archive, line @0: there are too many levels.",
                        description.GetLine());
    }
    auto const sections = SectionsOf(description);
    OwnedNode node = Make(description, sections);
    for (auto section = sections.rbegin(); section != sections.rend(); ++section) {
      ApplySection(*node, **section, depth);
    }
    return node;
  }

  NodeMap TakeNodes() { return std::move(mNodes); }

 private:
  OwnedNode Make(Value const& description, std::vector<Value const*> const& sections) {
    Value const* type = &Require(description, "adapter");
    for (Value const* const section : sections) {
      Value const* const name = section->Find("className");
      if (name != nullptr && !PropertyValue("className", *name).AsName().empty()) {
        type = name;
        break;
      }
    }
    moxcore::Utf8String const& name = PropertyValue("adapter", *type).AsName();
    auto const* const known = archive::FindArchiveClass(name);
    OwnedNode node = known != nullptr && known->make != nullptr ? known->make() : nullptr;
    if (!node && mFactory) {
      node = mFactory(name);
    }
    if (!node) {
      ThrowArchiveError(
          "$$$/moxui/Archive/Error/Adapter=View archive, line @0: nobody knows how to make “@1”.",
          type->GetLine(), name);
    }
    return node;
  }

  void ApplySection(UI_Node& node, Value const& section, int depth) {
    moxcore::Utf8String const& name = PropertyValue("sectionName", Require(section, "sectionName")).AsName();
    archive::Section::Rest const rest = [&](Member const& member) { ApplyRest(node, member, name, depth); };
    if (auto const* const known = archive::FindArchiveClass(name)) {
      known->section->Apply(node, section.GetMembers(), rest);
    } else {
      for (Member const& member : section.GetMembers()) {
        rest(member);
      }
    }
  }

  /// What belongs to the tree rather than to a class; everything else is unknown.
  void ApplyRest(UI_Node& node, Member const& member, moxcore::Utf8String const& section, int depth) {
    if (member.key == "id") {
      SetID(node, member.value);
    } else if (member.key == "children") {
      BuildChildren(node, member.value, depth);
    } else if (member.key != "sectionName" && member.key != "className" &&
               moxcore::debug::TraceEnabled(Category(), kDetail)) {
      moxcore::Utf8String text = "no property ";
      text.append(member.key).append(" of ").append(section).append(", line ");
      text.append(moxcore::config::ErrorValueToText(member.value.GetLine()));
      Trace(kDetail, Category(), text);
    }
  }

  void SetID(UI_Node& node, Value const& value) {
    moxcore::Utf8String const& id = PropertyValue("id", value).AsName();
    node.UI_SetNodeID(id);
    if (!id.empty() && !mNodes.emplace(id, OwnedNode(&node)).second) {
      ThrowArchiveError("$$$/moxui/Archive/Error/ID=View archive, line @0: there are two nodes “@1”.",
                        value.GetLine(), id);
    }
  }

  void BuildChildren(UI_Node& node, Value const& children, int depth) {
    auto const descriptions = Numbered(children, "child-");
    if (descriptions.empty()) {
      return;
    }
    UI_Container* const container = node.UI_GetContainer();
    if (container == nullptr) {
      PropertyValue("children", children).Reject();
    }
    for (auto const& [number, description] : descriptions) {
      OwnedNode const child = BuildNode(*description, depth + 1);
      if (skins::IsRightToLeft()) {
        MirrorChild(*child, node.UI_GetLocalRectF(RectSpace::kOwn).width);
      }
      container->ChildPushBack(child);
    }
  }

  CustomNodeFactory const& mFactory;
  NodeMap mNodes;
};

}  // namespace

UI_NodeBuilder::UI_NodeBuilder(std::string_view text) : mArchive(archive::ReadArchive(text)) {}
UI_NodeBuilder::~UI_NodeBuilder() = default;

UI_NodeBuilder::Tree UI_NodeBuilder::Build(scriber::SupplierInterface const*,
                                           CustomNodeFactory const& factory) const {
  Building building(factory);
  Tree tree;
  tree.root = building.BuildNode(Require(mArchive, "root"), 1);
  tree.nodes = building.TakeNodes();
  return tree;
}

OwnedNode UI_NodeBuilder::LoadViewFromXML(utility::ResourceManager const* resources,
                                          scriber::SupplierInterface const* supplier,
                                          moxcore::Utf16String const& name, NodeMap& nodes,
                                          CustomNodeFactory const& factory) {
  utility::ResourceBytes bytes;
  moxcore::Utf8String const resource = moxcore::string::UTF16to8(name);
  if (resources == nullptr ||
      !resources->GetBinary(utility::ResourceType("XML"), utility::ResourceName(resource), &bytes)) {
    return nullptr;
  }
  UI_NodeBuilder const builder({reinterpret_cast<char const*>(bytes.data()), bytes.size()});
  Tree tree = builder.Build(supplier, factory);
  nodes.merge(tree.nodes);
  return std::move(tree.root);
}

}  // namespace moxui::ui
