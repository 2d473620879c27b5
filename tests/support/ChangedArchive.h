#pragma once

#include <moxcore/utility/ModuleHandle.h>
#include <moxcore/utility/ResourceOverride.h>
#include <moxmediaui/Module.h>
#include <moxui/resources/ResourceManager.h>
#include <moxui/skins/Look.h>

#include <memory>
#include <string>
#include <string_view>

namespace tests {

// One of the library's view archives, that of the look that runs, with nodes of other ids than it was
// compiled in with; as long as it lives. The library must be running.
class ChangedArchive {
 public:
  explicit ChangedArchive(std::string_view name) : mName(name) {
    moxcore::utility::ResourceBytes bytes;
    moxmediaui::GetResourceManager()->GetBinary(moxcore::utility::ResourceType("XML"),
                                                moxcore::utility::ResourceName(mName), &bytes);
    mText.assign(bytes.begin(), bytes.end());
    if (moxui::skins::IsRunningV7OrBeyond()) {
      mName += ".V7";
    }
  }

  // False when there is no node of that id.
  bool Rename(std::string_view id, std::string_view newID) {
    auto const written = [](std::string_view text) {
      return "<key>id</key><string>" + std::string(text) + "</string>";
    };
    std::string const old = written(id);
    auto const place = mText.find(old);
    if (place == std::string::npos) {
      return false;
    }
    mText.replace(place, old.size(), written(newID));
    mOverride.reset();
    mOverride = std::make_unique<moxcore::utility::ResourceOverride>(
        moxcore::utility::ModuleHandle::FromAddress(reinterpret_cast<void const*>(&moxmediaui::Initialize)),
        moxcore::utility::ResourceType("XML"), moxcore::utility::ResourceName(mName), mText);
    return true;
  }

 private:
  std::string mName;
  std::string mText;
  std::unique_ptr<moxcore::utility::ResourceOverride> mOverride;
};

}  // namespace tests
