// Reads bytes as a view archive and builds its nodes. What was read, written, reads as the same; every other
// archive is told of with the host's error.
#include <moxcore/config/Errors.h>
#include <moxui/archive/UINodeArchive.h>
#include <moxui/ui/UI_NodeBuilder.h>
#include <moxui/ui/UI_SubView.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

class ClientView : public moxui::ui::UI_SubView {
 public:
  ClientView() { ++alive; }
  ~ClientView() override { --alive; }
  static inline int alive = 0;
};

moxcore::utility::IntrusivePtr<moxui::ui::UI_Node> MakeClientView(moxcore::Utf8String const& type) {
  return type == "PresetsView" ? moxcore::utility::MakeIntrusive<ClientView>()
                               : moxcore::utility::IntrusivePtr<ClientView>();
}

void Require(bool condition) {
  if (!condition) {
    std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    std::string_view const bytes(reinterpret_cast<char const*>(data), size);
    moxui::ui::UI_NodeBuilder const builder(bytes);
    Require(moxui::archive::ReadArchive(moxui::archive::WriteArchive(builder.GetArchive())) ==
            builder.GetArchive());
    auto const tree = builder.Build(nullptr, MakeClientView);
    Require(static_cast<bool>(tree.root));
  } catch (moxcore::config::mox_exception const& error) {
    Require(std::string_view(error.what()).find("line ") != std::string_view::npos);
  }
  Require(ClientView::alive == 0);
  return 0;
}
