#include "properties/NamedColors.h"

#include <array>

namespace playground {

std::span<NamedColor const> NamedColors() {
  static constexpr std::array<NamedColor, 12> kColors{{{"$$$/playground/color/black=Black", 0x000000},
                                                       {"$$$/playground/color/white=White", 0xFFFFFF},
                                                       {"$$$/playground/color/gray=Gray", 0x808080},
                                                       {"$$$/playground/color/red=Red", 0xE5484D},
                                                       {"$$$/playground/color/orange=Orange", 0xF5803E},
                                                       {"$$$/playground/color/yellow=Yellow", 0xF5D90A},
                                                       {"$$$/playground/color/green=Green", 0x46A758},
                                                       {"$$$/playground/color/teal=Teal", 0x12A594},
                                                       {"$$$/playground/color/blue=Blue", 0x3E63DD},
                                                       {"$$$/playground/color/violet=Violet", 0x8E4EC6},
                                                       {"$$$/playground/color/pink=Pink", 0xE93D82},
                                                       {"$$$/playground/color/brown=Brown", 0xAD7F58}}};
  return kColors;
}

}  // namespace playground
