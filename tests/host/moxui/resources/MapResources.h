#pragma once

#include <moxui/resources/ResourceManager.h>

#include <map>
#include <string>

/// Resources that a test makes up; names in upper case.
class MapResources : public moxui::utility::ResourceManager {
 public:
  void Add(std::string const& type, std::string const& name, std::string_view text) {
    mResources[{type, name}] = moxui::utility::ResourceBytes(text.begin(), text.end());
  }

  std::vector<moxcore::Utf8String> GetResourceDataNames(moxui::utility::ResourceType type) const override {
    std::vector<moxcore::Utf8String> names;
    for (auto const& [key, bytes] : mResources) {
      if (key.first == type.value) {
        names.emplace_back(key.second.begin(), key.second.end());
      }
    }
    return names;
  }

 protected:
  std::optional<std::span<std::uint8_t const>> Find(moxui::utility::ResourceType type,
                                                    moxui::utility::ResourceName name) const override {
    auto const upper = [](std::string_view text) {
      std::string result(text);
      for (char& unit : result) {
        unit = unit >= 'a' && unit <= 'z' ? static_cast<char>(unit - 'a' + 'A') : unit;
      }
      return result;
    };
    auto const found = mResources.find({upper(type.value), upper(name.value)});
    if (found == mResources.end()) {
      return std::nullopt;
    }
    return std::span<std::uint8_t const>(found->second);
  }

 private:
  std::map<std::pair<std::string, std::string>, moxui::utility::ResourceBytes> mResources;
};
