// What a view archive costs from its bytes to a laid-out tree of controls, in terms of reading the same bytes
// with expat and doing nothing with them.
#include "Figure.h"

#include <moxcore/utility/IntrusivePtr.h>
#include <moxmediaui/Module.h>
#include <moxui/resources/ResourceManager.h>
#include <moxui/scriber/RasterSupplier.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/ui/AutoLayout.h>
#include <moxui/ui/UI_NodeBuilder.h>
#include <moxui/ui/UI_SubView.h>

#include <expat.h>

#include <cstdio>
#include <string>
#include <string_view>

namespace {

constexpr int kRuns = 16;

void Parse(std::string_view bytes) {
  for (int run = 0; run < kRuns; ++run) {
    XML_Parser const parser = XML_ParserCreate(nullptr);
    XML_SetElementHandler(
        parser, [](void*, XML_Char const*, XML_Char const**) {}, [](void*, XML_Char const*) {});
    XML_SetCharacterDataHandler(parser, [](void*, XML_Char const*, int) {});
    bench::DoNotOptimize(XML_Parse(parser, bytes.data(), static_cast<int>(bytes.size()), XML_TRUE));
    XML_ParserFree(parser);
  }
}

// A class that the host doesn't know stands for a view of the client's.
moxcore::utility::IntrusivePtr<moxui::ui::UI_Node> MakeClientView(moxcore::Utf8String const&) {
  return moxcore::utility::MakeIntrusive<moxui::ui::UI_SubView>();
}

void Build(std::string_view bytes) {
  auto const* const supplier = moxui::scriber::GetRasterSupplier();
  auto const surface = supplier->NewOffscreenSurface(1, 1, 1);
  moxui::scriber::Scriber scratch(supplier, surface.Get());
  for (int run = 0; run < kRuns; ++run) {
    auto const tree = moxui::ui::UI_NodeBuilder(bytes).Build(supplier, MakeClientView);
    moxui::ui::AutoLayoutSubView(dynamic_cast<moxui::ui::UI_SubView*>(tree.root.Get()), &scratch);
    bench::DoNotOptimize(tree.root.Get());
  }
}

}  // namespace

int main(int argc, char** argv) {
  bench::Figures figures(argc, argv);
  moxmediaui::Initialize(moxui::scriber::GetRasterSupplier());
  for (auto const& [name, resource] : {std::pair{"layout_dialog", "CustomAudioChannelLayoutDialog"},
                                       std::pair{"curve_dialog", "CurvePointEditDialog"}}) {
    moxui::utility::ResourceBytes bytes;
    if (!moxmediaui::GetResourceManager()->GetBinary(moxui::utility::ResourceType("XML"),
                                                     moxui::utility::ResourceName(resource), &bytes)) {
      std::fprintf(stderr, "there is no %s\n", resource);
      return 1;
    }
    std::string_view const text(reinterpret_cast<char const*>(bytes.data()), bytes.size());
    figures.Compare({.name = std::string("node_builder_") + name + "_against_expat",
                     .numerator = [text] { Build(text); },
                     .denominator = [text] { Parse(text); },
                     .bar = 4.0,
                     .unit = "us",
                     .numeratorRuns = kRuns,
                     .denominatorRuns = kRuns});
  }
  moxmediaui::Terminate();
  return figures.Result();
}
