#include "audio/AudioPage.h"
#include "channels/ChannelsPage.h"
#include "controls/ControlPages.h"
#include "curve/CurvePage.h"
#include "presets/PresetsPage.h"
#include "program/Localized.h"
#include "shell/Page.h"
#include "timecode/TimecodePage.h"

#include <moxcore/string/TextOperations.h>

#include <string>

namespace playground {
namespace {

PageDescriptor Audio() {
  return {.name = "audio",
          .title = "$$$/playground/page/audio=Audio",
          .group = "$$$/playground/group/media=Media",
          .description = "$$$/playground/page/audio/text=Waveforms of any length and any number of channels.",
          .states = {{"whole", "$$$/playground/state/whole=Whole sound"},
                     {"selection", "$$$/playground/state/selection=Selection"},
                     {"samples", "$$$/playground/state/samples=Single samples"},
                     {"layers", "$$$/playground/state/layers=Layers"},
                     {"fade", "$$$/playground/state/fade=Fade"},
                     {"no-sound", "$$$/playground/state/noSound=No sound"}},
          .make = [](PageContext const& context) -> moxcore::utility::IntrusivePtr<Page> {
            return moxcore::utility::MakeIntrusive<AudioPage>(context);
          }};
}

std::vector<PageDescriptor> MakePages() {
  std::vector<PageDescriptor> pages{Audio(), ChannelsPageDescriptor(), TimecodePageDescriptor(),
                                    CurvePageDescriptor(), PresetsPageDescriptor()};
  for (PageDescriptor& page : ControlPages()) {
    pages.push_back(std::move(page));
  }
  return pages;
}

bool Contains(moxcore::Utf16String text, moxcore::Utf16String const& upperCasePart) {
  moxcore::string::ToUpperCase(text);
  return text.find(upperCasePart) != moxcore::Utf16String::npos;
}

}  // namespace

std::vector<PageDescriptor> const& AllPages() {
  static std::vector<PageDescriptor> const kPages = MakePages();
  return kPages;
}

std::size_t FindPage(std::string_view name) {
  auto const& pages = AllPages();
  std::size_t page = 0;
  while (page < pages.size() && pages[page].name != name) {
    ++page;
  }
  return page;
}

std::size_t FindPageOrFirst(std::string_view name) {
  std::size_t const page = FindPage(name);
  return page < AllPages().size() ? page : 0;
}

std::vector<std::size_t> PagesMatching(std::u16string_view text) {
  moxcore::Utf16String part(text);
  moxcore::string::LeftTrim(part);
  moxcore::string::RightTrim(part);
  moxcore::string::ToUpperCase(part);
  std::vector<std::size_t> matching;
  auto const& pages = AllPages();
  for (std::size_t page = 0; page < pages.size(); ++page) {
    if (Contains(Text16(pages[page].title), part) || Contains(To16(pages[page].name), part) ||
        Contains(Text16(pages[page].group), part)) {
      matching.push_back(page);
    }
  }
  return matching;
}

}  // namespace playground
