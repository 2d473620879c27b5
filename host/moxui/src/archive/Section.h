#pragma once

#include "PropertyValue.h"

#include <moxcore/utility/IntrusivePtr.h>
#include <moxui/ui/UI_Node.h>

#include <algorithm>
#include <functional>
#include <span>
#include <string_view>

namespace moxui::archive {

/// A key of a class's section, and what it does to an object of the class.
template <class Class>
struct Property {
  std::string_view key;
  void (*apply)(Class& object, PropertyValue const& value);
};

/// What the archives know of one class: the section of its properties.
class Section {
 public:
  using Rest = std::function<void(Member const&)>;

  /// Applies values to a node; those of keys that the class doesn't have go to `rest`, all of them if the
  /// node isn't of the class.
  virtual void Apply(ui::UI_Node& node, Object const& values, Rest const& rest) const = 0;

 protected:
  ~Section() = default;
};

template <class Class>
class SectionOf final : public Section {
 public:
  explicit constexpr SectionOf(std::span<Property<Class> const> properties) : mProperties(properties) {}

  void Apply(ui::UI_Node& node, Object const& values, Rest const& rest) const override {
    auto* const object = dynamic_cast<Class*>(&node);
    for (Member const& member : values) {
      auto const property =
          std::ranges::find(mProperties, std::string_view(member.key), &Property<Class>::key);
      if (object != nullptr && property != mProperties.end()) {
        property->apply(*object, PropertyValue(member.key, member.value));
      } else {
        rest(member);
      }
    }
  }

 private:
  std::span<Property<Class> const> mProperties;
};

/// A class that archives name: how an object is made (null for classes that are only a part of others), and
/// its section.
struct ArchiveClass {
  std::string_view name;
  moxcore::utility::IntrusivePtr<ui::UI_Node> (*make)();
  Section const* section;
};

template <class Class>
moxcore::utility::IntrusivePtr<ui::UI_Node> Make() {
  return moxcore::utility::MakeIntrusive<Class>();
}

/// For keys that say what the class finds out by itself.
template <class Class>
void Nothing(Class&, PropertyValue const&) {}

}  // namespace moxui::archive
