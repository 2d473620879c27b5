#pragma once

#include <string>
#include <string_view>
#include <vector>

/// View archives that a test writes in a few words.
namespace moxui::testing {

inline std::string Pair(std::string_view key, std::string_view value) {
  return std::string("<prop.pair><key>").append(key).append("</key>").append(value).append("</prop.pair>\n");
}

inline std::string List(std::string_view pairs) {
  return std::string("<prop.list>\n").append(pairs).append("</prop.list>\n");
}

inline std::string Wide(std::string_view text) {
  return std::string("<ustring>").append(text).append("</ustring>");
}
inline std::string Narrow(std::string_view text) {
  return std::string("<string>").append(text).append("</string>");
}
inline std::string Real(std::string_view number) {
  return std::string("<float>").append(number).append("</float>");
}
inline std::string Signed(std::string_view number) {
  return std::string("<int type='signed' size='32'>").append(number).append("</int>");
}
inline std::string Unsigned(std::string_view number) {
  return std::string("<int type='unsigned' size='32'>").append(number).append("</int>");
}

inline std::string Choice(std::string_view number) {
  return List(Pair(".aptype", Signed("2")) + Pair("selected", Signed(number)));
}

inline std::string Bounds(std::string_view left, std::string_view top, std::string_view width,
                          std::string_view height) {
  return Pair("bounds",
              List(Pair(".aptype", Signed("1")) + Pair("left", Real(left)) + Pair("top", Real(top)) +
                   Pair("width", Real(width)) + Pair("height", Real(height))));
}

inline std::string Constraints(std::string_view bits) {
  return Pair("Constraints", List(Pair(".aptype", Signed("4")) + Pair("constraints", Unsigned(bits))));
}

/// A section: the class's name and its pairs.
struct MadeUpSection {
  std::string name;
  std::string pairs = {};
};

/// A node object.
inline std::string NodeOf(std::string_view adapter, std::vector<MadeUpSection> const& sections) {
  std::string listed = Pair("count", Unsigned(std::to_string(sections.size())));
  for (std::size_t i = 0; i < sections.size(); ++i) {
    listed += Pair("section-" + std::to_string(i),
                   List(Pair("sectionName", Wide(sections[i].name)) + sections[i].pairs));
  }
  return List(Pair("adapter", Wide(adapter)) + Pair("sections", List(listed)));
}

inline std::string Children(std::vector<std::string> const& nodes) {
  std::string listed;
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    listed += Pair("child-" + std::to_string(i), nodes[i]);
  }
  return Pair("children", List(listed));
}

/// A UI_SubView with the pairs of its own section and those of the node's.
inline std::string SubViewOf(std::string_view subViewPairs, std::string_view nodePairs) {
  return NodeOf("moxui::ui::UI_SubView", {{"moxui::ui::UI_SubView", std::string(subViewPairs)},
                                          {"moxui::ui::UI_Node", std::string(nodePairs)}});
}

inline std::string DocumentOf(std::string_view rootNode) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<prop.map version='4'>\n" +
         List(Pair("UINodeArchive", Unsigned("1")) + Pair("root", rootNode)) + "</prop.map>\n";
}

}  // namespace moxui::testing
