#pragma once

#include <moxmediaui/Module.h>
#include <moxui/archive/UINodeArchive.h>
#include <moxui/resources/ResourceManager.h>
#include <moxui/scriber/RasterSupplier.h>
#include <moxui/skins/Look.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>

namespace moxmediaui {

using moxui::archive::Value;

inline std::string TextOf(Value const& object, char const* key) {
  Value const* const value = object.Find(key);
  return value != nullptr ? std::string(value->GetText()) : std::string();
}

/// Every node with its place in the tree, such as "/0/2".
inline void Visit(Value const& node, std::string const& place,
                  std::function<void(Value const&, std::string const&)> const& visit) {
  visit(node, place);
  for (auto const& section : node.Find("sections")->GetMembers()) {
    Value const* const children = section.value.Find("children");
    for (std::size_t i = 0; children != nullptr && i < children->GetMembers().size(); ++i) {
      auto const& child = children->GetMembers()[i];
      EXPECT_EQ(std::string(child.key), "child-" + std::to_string(i));
      Visit(child.value, place + "/" + std::to_string(i), visit);
    }
  }
}

/// The library's view archives, each by its name.
class ArchiveTest : public ::testing::Test {
 protected:
  ArchiveTest() { Initialize(moxui::scriber::GetRasterSupplier()); }
  ~ArchiveTest() override {
    moxui::skins::SetRunningV7OrBeyond(true);
    Terminate();
  }

  static std::string Bytes(char const* name, bool isV7) {
    moxui::skins::SetRunningV7OrBeyond(isV7);
    moxui::utility::ResourceBytes bytes;
    EXPECT_TRUE(GetResourceManager()->GetBinary(moxui::utility::ResourceType("xml"),
                                                moxui::utility::ResourceName(name), &bytes));
    return {bytes.begin(), bytes.end()};
  }
  static Value Root(char const* name, bool isV7) {
    return *moxui::archive::ReadArchive(Bytes(name, isV7)).Find("root");
  }
};

}  // namespace moxmediaui
