#pragma once

#include <moxcore/utility/ModuleResources.h>
#include <moxui/geometry/ColorRGBA.h>
#include <moxui/geometry/Flags.h>
#include <moxui/scriber/ImageInterface.h>
#include <moxui/scriber/ScriberTypes.h>

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <tuple>

namespace moxui::controls {
class UI_PictureSupplyMessage;
}
namespace moxui::ui {
class ThemeProvider;
}

namespace moxui::utility {

class ResourceManager;

/// Knows icons that a resource manager doesn't; asked before it.
class ImageResourceHelper {
 public:
  virtual ~ImageResourceHelper();
  virtual bool GetImageResource(std::string_view name, moxcore::utility::ResourceBytes& document) = 0;
};

/// Makes images of the icons among a module's resources, in the tone of the theme and of a control's state
/// (see IconTone.h for names and tones). Images are kept, so that asking at each paint costs nothing. An icon
/// of 36 units is 18 logical pixels wide. Resources, supplier and helper are lent; each may be null, which
/// finds nothing. Main thread only.
class ImageProvider {
 public:
  ImageProvider(ResourceManager* resources, scriber::SupplierInterface const* supplier,
                ImageResourceHelper* helper);
  virtual ~ImageProvider();
  ImageProvider(ImageProvider const&) = delete;
  ImageProvider& operator=(ImageProvider const&) = delete;

  /// Null when there is no icon of that name. A null supplier means the provider's own, a null theme the
  /// running one.
  scriber::ImageP GetThemeImage(std::string_view name, scriber::SupplierInterface const* supplier,
                                Flags<unsigned int> state = {}, ui::ThemeProvider const* theme = nullptr);
  /// The same in a tone of the caller's.
  scriber::ImageP GetImage(std::string_view name, scriber::SupplierInterface const* supplier,
                           ColorRGBA const& tone);

  /// Answers a button's question for its picture: the icon of its image name in the tone of its state. Leaves
  /// the message unanswered when the control has no such name or there is no such icon.
  void ProvideImage(controls::UI_PictureSupplyMessage* message);

  /// The document of an icon, from the helper or the resources.
  virtual bool GetImageResource(std::string_view name, moxcore::utility::ResourceBytes& document);

 private:
  using Key = std::tuple<scriber::SupplierInterface const*, std::string, std::uint32_t>;

  ResourceManager* mResources;
  scriber::SupplierInterface const* mSupplier;
  ImageResourceHelper* mHelper;
  std::map<Key, scriber::ImageP> mImages;
};

}  // namespace moxui::utility
