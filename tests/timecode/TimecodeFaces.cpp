#include "TimecodeFaces.h"

#include <moxui/scriber/RasterSupplier.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/skins/Theme.h>
#include <moxui/ui/KeyboardCode.h>

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

namespace timecode_tests {

namespace {

using moxui::platform::Pixels;
using moxui::ui::KeyboardCode;
using moxui::ui::ThemeID;

constexpr moxui::ExtentT<float> kSize{184, 36};
constexpr RectT<float> kField{58, 6, 104, 24};

/// A bracket that stands for an in point.
moxmediaui::ImageP MakeSymbol() {
  static constexpr std::string_view kDrawing =
      "<svg xmlns='http://www.w3.org/2000/svg' width='14' height='14'>"
      "<path d='M4 1h7v2H6v8h5v2H4z' fill='#E0883A'/></svg>";
  return moxui::scriber::GetRasterSupplier()->NewImageFromFileBytes(std::as_bytes(std::span(kDrawing)), 1.0f);
}

void OpenEdit(Stage& stage, OpenTimecodeControl& field) {
  stage.Click(stage.CenterOf(field));
  stage.Leave();
}

TimecodeFace Format(std::string name, int format, FrameRate rate) {
  return {std::move(name), [=](OpenTimecodeControl& field) { field.SetFormat(TimeDisplay(format), rate); }};
}

TimecodeFace NoTime(std::string name, InvalidDisplay display) {
  return {std::move(name), [=](OpenTimecodeControl& field) {
            field.SetInvalidDisplayType(display);
            field.SetTime(kNoTime, false);
          }};
}

TimecodeFace Edited(std::string name, TextSize size, moxmediaui::TextAlignment alignment) {
  return {std::move(name),
          [=](OpenTimecodeControl& field) {
            field.SetTextSize(size, 0.0f);
            field.SetTextAlignment(alignment, false);
          },
          OpenEdit};
}

std::vector<TimecodeFace> MakeFaces() {
  using moxmediaui::TextAlignment;
  auto const asItIs = [](OpenTimecodeControl&) {};
  return {
      {"timecode", asItIs},
      Format("drop_frame", 102, k2997),
      Format("frames", 109, k25),
      Format("feet", 112, FrameRate(10584000000)),
      Format("samples", 200, FrameRate(5292000)),
      NoTime("no_time_placeholder", InvalidDisplay::kPlaceholder),
      NoTime("no_time_empty", InvalidDisplay::kNothing),
      {"disabled", [](OpenTimecodeControl& field) { field.UI_SetDisabled(); }},
      {"symbol_left", [](OpenTimecodeControl& field) { field.SetSymbol(MakeSymbol(), true); }},
      {"symbol_right", [](OpenTimecodeControl& field) { field.SetSymbol(MakeSymbol(), false); }},
      {"focused", asItIs, [](Stage& stage, OpenTimecodeControl&) { stage.Tab(); }},
      Edited("edited", TextSize::kToolkit, TextAlignment::kLeft),
      Edited("edited_large", TextSize::kLarge, TextAlignment::kCenter),
      Edited("edited_bold", TextSize::kLargeBold, TextAlignment::kRight),
  };
}

void Paste(Pixels& sheet, Pixels const& picture, int left, int top) {
  auto const rowBytes = [](Pixels const& pixels) { return 4 * static_cast<std::ptrdiff_t>(pixels.width); };
  for (int y = 0; y < picture.height; ++y) {
    auto const row = picture.bytes.begin() + y * rowBytes(picture);
    std::copy(row, row + rowBytes(picture),
              sheet.bytes.begin() + (top + y) * rowBytes(sheet) + 4 * static_cast<std::ptrdiff_t>(left));
  }
}

}  // namespace

std::vector<TimecodeFace> const& GetTimecodeFaces() {
  static std::vector<TimecodeFace> const faces = MakeFaces();
  return faces;
}

TimecodeFace const& GetTimecodeFace(std::string const& name) {
  return *std::ranges::find(GetTimecodeFaces(), name, &TimecodeFace::name);
}

Pixels TakeFacePicture(TimecodeFace const& face, float scale) {
  Stage stage(kSize);
  stage.SetBackground(moxui::ui::GetColor(moxui::ui::ThemeColorID::kPanelBackground));
  auto const field = moxcore::utility::MakeIntrusive<OpenTimecodeControl>();
  field->UI_SetLocalRectF(kField);
  stage.GetRootView().ChildPushBack(field);
  field->SetFormat(kTimecode25, k25);
  field->SetTime(kHour + Seconds(754) + TickTime(18, k25), false);
  face.prepare(*field);
  if (face.act) {
    face.act(stage, *field);
  }
  return stage.TakePicture(scale);
}

Pixels TakeFaceInAllLooks(TimecodeFace const& face, float scale) {
  constexpr std::array kThemes = {ThemeID::kDark, ThemeID::kLight, ThemeID::kHighContrast};
  Pixels sheet;
  for (int row = 0; row < 2; ++row) {
    for (int column = 0; column < 3; ++column) {
      RunningLook const look(row == 0, kThemes[static_cast<std::size_t>(column)]);
      Pixels const picture = TakeFacePicture(face, scale);
      if (sheet.width == 0) {
        sheet.width = 3 * picture.width;
        sheet.height = 2 * picture.height;
        sheet.bytes.resize(static_cast<std::size_t>(4 * sheet.width * sheet.height));
      }
      Paste(sheet, picture, column * picture.width, row * picture.height);
    }
  }
  return sheet;
}

}  // namespace timecode_tests
